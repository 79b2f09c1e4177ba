#include <osg/Name.h>

#include <osg/FieldContainerType.h>

namespace osg
{

const FieldContainerType& Name::getClassType()
{
    static const FieldContainerType type("Name", &Attachment::getClassType(), true);
    return type;
}

NamePtr Name::create(std::string value)
{
    return NamePtr(new Name(std::move(value)));
}

const FieldContainerType& Name::getType() const
{
    return getClassType();
}

void Name::setValue(std::string value)
{
    _value = std::move(value);
    contentChanged();
}

} // namespace osg

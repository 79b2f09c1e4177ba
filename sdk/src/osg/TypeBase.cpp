#include <osg/TypeBase.h>

#include "osg/TypeRegistry_p.h"

namespace osg
{

TypeBase::TypeBase(const char* name, const TypeBase* parent)
    : _name(name ? name : ""), _id(TypeRegistryAccess::add(*this)), _parent(parent)
{
}

TypeBase::~TypeBase()
{
    TypeRegistryAccess::remove(*this);
}

bool TypeBase::isDerivedFrom(const TypeBase& other) const
{
    for (const TypeBase* type = this; type; type = type->getParent()) {
        if (type->getId() == other.getId())
            return true;
    }
    return false;
}

} // namespace osg

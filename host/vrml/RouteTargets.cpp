#include "host/vrml/RouteTargets.h"

#include <Inventor/SbString.h>
#include <Inventor/SbTime.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/fields/SoSFBool.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/misc/SoNotification.h>

namespace kthost
{
namespace
{

template <class Value>
struct FieldOf;

template <>
struct FieldOf<float>
{
    using Type = SoSFFloat;
};

template <>
struct FieldOf<SbBool>
{
    using Type = SoSFBool;
};

template <>
struct FieldOf<SbTime>
{
    using Type = SoSFTime;
};

/// VRML97 wants both ends of a route to be of one type; the reader also lets others through, by way of their
/// text.
template <class Value>
void writeText(SoField& field, Value value)
{
    typename FieldOf<Value>::Type source;
    source.setValue(value);
    SbString text;
    source.get(text);
    field.set(text.getString());
}

} // namespace

RouteTargets::RouteTargets(SoEngineOutput& output)
{
    SoFieldList fields;
    output.getForwardConnections(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SoField* const field = fields[i];
        const bool hasOutputType = field->getTypeId() == output.getConnectionType();
        _targets.push_back({field, hasOutputType, CoinRef<SoFieldContainer>(field->getContainer())});
        field->disconnect(&output);
    }
}

// The value is written in silence and announced with a copy of the frame's list. Each node above is then told
// once a frame and not once a value, since it ignores an announcement that is no younger than the last one it
// has passed on.
template <class Value>
void RouteTargets::send(Value value, const SoNotList& frame) const
{
    for (const Target& target : _targets) {
        const SbBool wasNotifying = target.field->enableNotify(FALSE);
        if (target.hasOutputType)
            static_cast<typename FieldOf<Value>::Type*>(target.field)->setValue(value);
        else
            writeText(*target.field, value);
        target.field->enableNotify(wasNotifying);
        SoNotList announcement(&frame);
        target.field->notify(&announcement);
    }
}

template void RouteTargets::send(float, const SoNotList&) const;
template void RouteTargets::send(SbBool, const SoNotList&) const;
template void RouteTargets::send(SbTime, const SoNotList&) const;

} // namespace kthost

#include "host/vrml/RouteTargets.h"

#include <Inventor/SbString.h>
#include <Inventor/SbTime.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/engines/SoNodeEngine.h>
#include <Inventor/fields/SoSFBool.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/lists/SoEngineOutputList.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/misc/SoNotification.h>

#include <unordered_set>

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

/// Sets the value and nothing else. The field's own setter would announce it at once, at the price of a lock
/// and of a walk up the scene for each value.
template <class Value>
void writeInSilence(SoField& field, Value value)
{
    using Field = typename FieldOf<Value>::Type;
    struct Opened : Field
    {
        static constexpr auto valueMember() { return &Opened::value; }
    };
    static_cast<Field&>(field).*Opened::valueMember() = value;
    field.setDirty(FALSE);
}

/// VRML97 wants both ends of a route to be of one type; the reader also lets others through, by way of their
/// text.
template <class Value>
void writeText(SoField& field, Value value)
{
    typename FieldOf<Value>::Type source;
    source.setValue(value);
    SbString text;
    source.get(text);
    const SbBool wasNotifying = field.enableNotify(FALSE);
    field.set(text.getString());
    field.enableNotify(wasNotifying);
}

void appendTargets(const SoNodeEngine& engine, std::vector<SoFieldContainer*>& containers)
{
    SoEngineOutputList outputs;
    engine.getOutputs(outputs);
    for (int i = 0; i < outputs.getLength(); ++i) {
        SoFieldList fields;
        outputs[i]->getForwardConnections(fields);
        for (int k = 0; k < fields.getLength(); ++k)
            containers.push_back(fields[k]->getContainer());
    }
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

std::vector<SoNode*> RouteTargets::animatedNodes() const
{
    std::vector<SoNode*> nodes;
    std::vector<SoFieldContainer*> pending;
    std::unordered_set<const SoFieldContainer*> seen;
    for (const Target& target : _targets)
        pending.push_back(target.owner.get());
    while (!pending.empty()) {
        SoFieldContainer* const container = pending.back();
        pending.pop_back();
        if (!seen.insert(container).second)
            continue;
        if (container->isOfType(SoNodeEngine::getClassTypeId()))
            appendTargets(static_cast<const SoNodeEngine&>(*container), pending);
        else if (container->isOfType(SoNode::getClassTypeId()))
            nodes.push_back(static_cast<SoNode*>(container));
    }
    return nodes;
}

// Each value is announced with a copy of the frame's list. A node above is then told once a frame and not
// once a value, since it ignores an announcement that is no younger than the last one that it has passed on.
template <class Value>
void RouteTargets::send(Value value, const SoNotList& frame) const
{
    for (const Target& target : _targets) {
        if (target.hasOutputType)
            writeInSilence(*target.field, value);
        else
            writeText(*target.field, value);
        SoNotList announcement(&frame);
        target.field->notify(&announcement);
    }
}

template void RouteTargets::send(float, const SoNotList&) const;
template void RouteTargets::send(SbBool, const SoNotList&) const;
template void RouteTargets::send(SbTime, const SoNotList&) const;

} // namespace kthost

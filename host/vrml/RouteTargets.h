#pragma once

#include "host/vrml/CoinRef.h"

#include <Inventor/fields/SoFieldContainer.h>

#include <boost/container/small_vector.hpp>

#include <vector>

class SoEngineOutput;
class SoField;
class SoNode;
class SoNotList;

namespace kthost
{

/// The fields that one output of a time sensor was routed to, taken over from the reader's routes.
class RouteTargets
{
public:
    RouteTargets() = default;

    /// Takes the routes of `output` away and remembers where they led. The fields live as long as this.
    explicit RouteTargets(SoEngineOutput& output);

    bool isEmpty() const { return _targets.empty(); }

    /// The nodes that the routes animate: those they lead to, and where that is an interpolator those that
    /// its routes lead to, and so on.
    std::vector<SoNode*> animatedNodes() const;

    /// Writes the value to every target, as one event of `frame`. Value is SbBool, float or SbTime; it is
    /// converted where a route leads to a field of another type.
    template <class Value>
    void send(Value value, const SoNotList& frame) const;

private:
    struct Target
    {
        SoField* field;
        bool hasOutputType;
        CoinRef<SoFieldContainer> owner;
    };

    // Most outputs lead to one field; it is kept in place, since a frame goes through thousands of these.
    boost::container::small_vector<Target, 1> _targets;
};

} // namespace kthost

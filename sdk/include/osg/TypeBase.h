#pragma once

#include <osg/Export.h>

#include <cstdint>
#include <string>

namespace osg
{

/// A run-time type: a name, an id that no other type of the process has, and the type it derives from.
/// Types live as long as the module that declares them; they are compared by id and never copied.
class KT_OSG_EXPORT TypeBase
{
public:
    /// Registers the type in the TypeRegistry. `name` is copied; null is read as empty. `parent` is null for
    /// a root type, else it must outlive this one.
    TypeBase(const char* name, const TypeBase* parent);

    /// Takes the type out of the registry.
    virtual ~TypeBase();

    TypeBase(const TypeBase&) = delete;
    TypeBase& operator=(const TypeBase&) = delete;

    /// The class name, such as "TimeSensor". Valid for as long as the type.
    const char* getName() const { return _name.c_str(); }

    std::uint32_t getId() const { return _id; }

    /// The type this one derives from, or null.
    const TypeBase* getParent() const { return _parent; }

    /// True for the type itself and for every type that has it among its parents.
    bool isDerivedFrom(const TypeBase& other) const;

private:
    std::string _name;
    std::uint32_t _id;
    const TypeBase* _parent;
};

} // namespace osg

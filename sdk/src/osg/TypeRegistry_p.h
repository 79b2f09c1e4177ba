#pragma once

#include <osg/TypeRegistry.h>

#include <cstdint>
#include <vector>

namespace osg
{

/// How types enter and leave the registry: TypeBase's constructor and destructor only.
class TypeRegistryAccess
{
public:
    /// The new type's id, counted from 1 and never given twice.
    static std::uint32_t add(const TypeBase& type);
    static void remove(const TypeBase& type);
};

} // namespace osg

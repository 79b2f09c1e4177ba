#pragma once

#include <osg/Export.h>

#include <cstdint>
#include <string>

namespace osg
{

class TypeBase;

/// Every type of the process, found by id or by name. Types register themselves; see TypeBase.
class KT_OSG_EXPORT TypeRegistry
{
public:
    /// The type with this id, or null.
    static const TypeBase* find(std::uint32_t id);

    /// The oldest registered type of this name (compared byte for byte), or null.
    static const TypeBase* find(const std::string& name);
};

} // namespace osg

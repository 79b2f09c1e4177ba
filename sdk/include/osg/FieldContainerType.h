#pragma once

#include <osg/TypeBase.h>

namespace osg
{

/// The type of a field container: a TypeBase with a group.
/// Attachments are looked up by group, so that a derived attachment takes the place of its base.
class KT_OSG_EXPORT FieldContainerType : public TypeBase
{
public:
    /// Opens a group of its own where `parent` is null or `ownGroup` is set; else it shares its parent's
    /// group.
    FieldContainerType(const char* name, const FieldContainerType* parent, bool ownGroup = false);

    /// The id of the group, which is the id of the type that opened it.
    std::uint32_t getGroupId() const { return _groupId; }

private:
    std::uint32_t _groupId;
};

} // namespace osg

#pragma once

#include <osg/FieldContainerPtr.h>

#include <vector>

namespace osg
{

/// What was edited since the list was last drained, in the order of the edits. An entry an edit; the list
/// owns a reference to what it names.
class KT_OSG_EXPORT ChangeList
{
public:
    struct Entry
    {
        FieldContainerPtr container;
        FieldMask mask;
    };

    /// Records that the fields of `mask` were written. A null container is ignored.
    void addChanged(const FieldContainerPtr& container, FieldMask mask);

    const std::vector<Entry>& entries() const { return _entries; }
    bool isEmpty() const { return _entries.empty(); }
    void clear() { _entries.clear(); }

    /// Exchanges the entries of both lists: how the frame loop takes what was recorded while new edits go on.
    void swap(ChangeList& other) noexcept { _entries.swap(other._entries); }

private:
    std::vector<Entry> _entries;
};

} // namespace osg

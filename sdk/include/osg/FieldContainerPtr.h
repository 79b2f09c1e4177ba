#pragma once

#include <osg/FieldContainer.h>

#include <cstddef>
#include <utility>

namespace osg
{

/// An owning pointer to any field container; null by default. Equal when it points at the same container.
class KT_OSG_EXPORT FieldContainerPtr
{
public:
    /// While set, the end of an edit leaves FieldContainer::changed() out. Cleared at start-up.
    static bool _ignore_change;

    FieldContainerPtr() = default;
    FieldContainerPtr(std::nullptr_t) {}
    explicit FieldContainerPtr(FieldContainer* container) : _container(container) { retain(); }
    FieldContainerPtr(const FieldContainerPtr& other) : _container(other._container) { retain(); }
    FieldContainerPtr(FieldContainerPtr&& other) noexcept
        : _container(std::exchange(other._container, nullptr))
    {
    }
    ~FieldContainerPtr() { release(); }

    FieldContainerPtr& operator=(FieldContainerPtr other) noexcept
    {
        std::swap(_container, other._container);
        return *this;
    }

    FieldContainer* get() const { return _container; }
    FieldContainer* operator->() const { return _container; }
    FieldContainer& operator*() const { return *_container; }
    explicit operator bool() const { return _container != nullptr; }

    bool operator==(const FieldContainerPtr& other) const { return _container == other._container; }
    bool operator!=(const FieldContainerPtr& other) const { return _container != other._container; }

private:
    void retain() const
    {
        if (_container)
            _container->addRef();
    }

    void release() const
    {
        if (_container)
            _container->subRef();
    }

    FieldContainer* _container = nullptr;
};

} // namespace osg

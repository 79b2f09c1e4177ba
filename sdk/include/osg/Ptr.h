#pragma once

#include <osg/FieldContainerPtr.h>

#include <type_traits>

namespace osg
{

/// An owning pointer to a field container of the class T, or of one derived from it.
template <class T>
class Ptr : public FieldContainerPtr
{
public:
    Ptr() = default;
    Ptr(std::nullptr_t) {}
    explicit Ptr(T* container) : FieldContainerPtr(container) {}

    template <class Derived, class = std::enable_if_t<std::is_base_of_v<T, Derived>>>
    Ptr(const Ptr<Derived>& other) : FieldContainerPtr(other)
    {
    }

    T* get() const { return static_cast<T*>(FieldContainerPtr::get()); }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
};

/// The same container under a derived class; the caller has tested its type.
template <class T>
Ptr<T> staticCast(const FieldContainerPtr& container)
{
    return Ptr<T>(static_cast<T*>(container.get()));
}

} // namespace osg

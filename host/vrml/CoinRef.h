#pragma once

#include <utility>

namespace kthost
{

/// An owning pointer to an object of the reader's library, which counts references with ref() and unref().
template <class T>
class CoinRef
{
public:
    CoinRef() = default;
    explicit CoinRef(T* object) : _object(object)
    {
        if (_object)
            _object->ref();
    }
    CoinRef(const CoinRef& other) : CoinRef(other._object) {}
    CoinRef(CoinRef&& other) noexcept : _object(std::exchange(other._object, nullptr)) {}
    ~CoinRef()
    {
        if (_object)
            _object->unref();
    }

    CoinRef& operator=(CoinRef other) noexcept
    {
        std::swap(_object, other._object);
        return *this;
    }

    T* get() const { return _object; }
    T* operator->() const { return _object; }
    T& operator*() const { return *_object; }
    explicit operator bool() const { return _object != nullptr; }

private:
    T* _object = nullptr;
};

} // namespace kthost

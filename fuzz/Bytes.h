#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace kt::fuzz
{

/// A fuzzer's input, read as what it stands for: every input means something, and a byte more or less at its
/// end changes little. Behind the end there are zeros.
class Bytes
{
public:
    Bytes(const std::uint8_t* data, std::size_t size) : _data(data), _left(size) {}

    bool isEmpty() const { return _left == 0; }

    std::uint8_t byte()
    {
        std::uint8_t value = 0;
        take(&value, 1);
        return value;
    }

    /// From 0 to `count` - 1.
    std::size_t below(std::size_t count) { return byte() % count; }

    /// Any bit pattern of a plain type.
    template <class Number>
    Number number()
    {
        Number value = 0;
        take(&value, sizeof value);
        return value;
    }

    /// Up to 255 bytes, their number first.
    std::string text()
    {
        std::string value(std::min<std::size_t>(byte(), _left), '\0');
        take(value.data(), value.size());
        return value;
    }

    /// All that is left.
    std::string rest()
    {
        std::string value(_left, '\0');
        take(value.data(), value.size());
        return value;
    }

private:
    void take(void* to, std::size_t size)
    {
        const std::size_t taken = std::min(size, _left);
        if (taken == 0)
            return;
        std::memcpy(to, _data, taken);
        _data += taken;
        _left -= taken;
    }

    const std::uint8_t* _data;
    std::size_t _left;
};

} // namespace kt::fuzz

#pragma once

#include <cstddef>

namespace kthost
{

/// Memory that ImageGuard shares with its program. It stays from image to image, since fresh memory takes
/// longer to come by than many an image to decode.
class PixelMemory
{
public:
    /// As much is kept at any time, in bytes.
    static constexpr std::size_t kept = std::size_t{16} << 20U;

    /// Fresh and empty.
    PixelMemory();

    /// That of another process, which handed over its descriptor.
    explicit PixelMemory(int descriptor);
    ~PixelMemory();
    PixelMemory(const PixelMemory&) = delete;
    PixelMemory& operator=(const PixelMemory&) = delete;

    /// Below 0 where there is none.
    int descriptor() const { return _descriptor; }

    /// Makes it so large at least; null where that cannot be.
    unsigned char* grow(std::size_t bytes);

    /// What is in it; null where it is not so large.
    const unsigned char* view(std::size_t bytes);

    /// Gives back what is not kept.
    void shrink();

private:
    bool holds(std::size_t bytes) const;
    unsigned char* map(std::size_t bytes);
    void unmap();

    int _descriptor;
    unsigned char* _mapped = nullptr;
    std::size_t _mappedBytes = 0;
};

} // namespace kthost

#pragma once

#include <cstddef>

namespace kthost
{

/// Memory that ImageGuard shares with its program. It stays from image to image, since fresh memory takes
/// longer to come by than many an image to decode. It never becomes smaller, which neither side would
/// survive.
class PixelMemory
{
public:
    /// As much is kept at any time, in bytes.
    static constexpr std::size_t kept = std::size_t{16} << 20U;

    /// Fresh and empty; failed() where there is none.
    PixelMemory();

    /// That of another process, which handed over its descriptor.
    explicit PixelMemory(int descriptor);
    ~PixelMemory();
    PixelMemory(const PixelMemory&) = delete;
    PixelMemory& operator=(const PixelMemory&) = delete;

    bool failed() const { return _descriptor < 0; }
    int descriptor() const { return _descriptor; }

    /// Makes it so large at least; null where that cannot be.
    unsigned char* grow(std::size_t bytes);

    /// What is in it; null where it is not so large.
    const unsigned char* view(std::size_t bytes);

    /// Gives back what is not kept. What is there then are zeros.
    void release();

private:
    std::size_t size() const;
    unsigned char* map(std::size_t bytes);
    void unmap();

    int _descriptor;
    unsigned char* _mapped = nullptr;
    std::size_t _mappedBytes = 0;
};

} // namespace kthost

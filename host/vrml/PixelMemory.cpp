#include "host/vrml/PixelMemory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kthost
{

PixelMemory::PixelMemory() : _descriptor(memfd_create("image", MFD_CLOEXEC | MFD_ALLOW_SEALING))
{
    if (!failed())
        fcntl(_descriptor, F_ADD_SEALS, F_SEAL_SHRINK);
}

PixelMemory::PixelMemory(int descriptor) : _descriptor(descriptor) {}

PixelMemory::~PixelMemory()
{
    unmap();
    if (!failed())
        close(_descriptor);
}

std::size_t PixelMemory::size() const
{
    struct stat memory = {};
    return fstat(_descriptor, &memory) == 0 ? static_cast<std::size_t>(memory.st_size) : 0;
}

unsigned char* PixelMemory::map(std::size_t bytes)
{
    if (bytes <= _mappedBytes)
        return _mapped;
    unmap();
    void* const memory =
        mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, _descriptor, 0);
    if (memory == MAP_FAILED)
        return nullptr;
    _mappedBytes = bytes;
    return _mapped = static_cast<unsigned char*>(memory);
}

void PixelMemory::unmap()
{
    if (_mapped)
        munmap(_mapped, _mappedBytes);
    _mapped = nullptr;
    _mappedBytes = 0;
}

unsigned char* PixelMemory::grow(std::size_t bytes)
{
    constexpr std::size_t step = std::size_t{1} << 20U; // of whole pages, which alone can be given back
    const std::size_t whole = (bytes + step - 1) / step * step;
    const bool isLarge = size() >= bytes || ftruncate(_descriptor, static_cast<off_t>(whole)) == 0;
    return isLarge ? map(bytes) : nullptr;
}

const unsigned char* PixelMemory::view(std::size_t bytes)
{
    return size() >= bytes ? map(bytes) : nullptr;
}

void PixelMemory::release()
{
    const std::size_t bytes = size();
    if (bytes <= kept)
        return;
    unmap();
    // Where that fails there is no harm but the memory's.
    static_cast<void>(fallocate(_descriptor, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE,
                                static_cast<off_t>(kept), static_cast<off_t>(bytes - kept)) == 0);
}

} // namespace kthost

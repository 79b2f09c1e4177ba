#include "host/vrml/PixelMemory.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kthost
{

PixelMemory::PixelMemory() : _descriptor(memfd_create("image", MFD_CLOEXEC)) {}

PixelMemory::PixelMemory(int descriptor) : _descriptor(descriptor) {}

PixelMemory::~PixelMemory()
{
    unmap();
    if (_descriptor >= 0)
        close(_descriptor);
}

bool PixelMemory::holds(std::size_t bytes) const
{
    struct stat memory = {};
    return fstat(_descriptor, &memory) == 0 && static_cast<std::size_t>(memory.st_size) >= bytes;
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
    return holds(bytes) || ftruncate(_descriptor, static_cast<off_t>(bytes)) == 0 ? map(bytes) : nullptr;
}

const unsigned char* PixelMemory::view(std::size_t bytes)
{
    return holds(bytes) ? map(bytes) : nullptr;
}

void PixelMemory::shrink()
{
    if (_mappedBytes <= kept)
        return;
    unmap();
    // Where that fails there is no harm but the memory's.
    static_cast<void>(ftruncate(_descriptor, static_cast<off_t>(kept)) == 0);
}

} // namespace kthost

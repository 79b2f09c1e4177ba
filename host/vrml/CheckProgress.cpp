#include "host/vrml/CheckProgress.h"

#include <sys/mman.h>
#include <unistd.h>

namespace kthost
{

CheckProgress::CheckProgress() : _descriptor(memfd_create("check", MFD_CLOEXEC))
{
    // Pages of such a file begin as zeros, which is the state that reset() sets.
    if (_descriptor >= 0 && ftruncate(_descriptor, sizeof(Shared)) == 0)
        map();
}

CheckProgress::CheckProgress(int descriptor) : _descriptor(descriptor)
{
    map();
}

CheckProgress::~CheckProgress()
{
    if (_shared)
        munmap(_shared, sizeof(Shared));
    if (_descriptor >= 0)
        close(_descriptor);
}

void CheckProgress::map()
{
    void* const memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED, _descriptor, 0);
    if (memory != MAP_FAILED)
        _shared = static_cast<Shared*>(memory);
}

void CheckProgress::reset()
{
    _shared->told = 0;
    _shared->awaited = 0;
}

bool CheckProgress::tell(std::uint64_t place)
{
    _shared->told = place;
    std::uint64_t awaited = _shared->awaited;
    return awaited != 0 && place >= awaited && _shared->awaited.compare_exchange_strong(awaited, 0);
}

std::uint64_t CheckProgress::told() const
{
    return _shared->told;
}

void CheckProgress::await(std::uint64_t place)
{
    _shared->awaited = place + 1;
}

} // namespace kthost

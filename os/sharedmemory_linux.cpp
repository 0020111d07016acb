#include "os/sharedmemory.h"

#include <algorithm>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace osUtils::System {

SharedMemory::SharedMemory(size_t size)
    : bytes(size)
    , memory(memfd_create("shared", MFD_CLOEXEC))
{
    if (!memory.isOpen() || ftruncate(memory.number(), static_cast<off_t>(bytes)) != 0)
        return;
    void* const mapped =
        mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, memory.number(), 0);
    if (mapped != MAP_FAILED)
        address = mapped;
}

SharedMemory::~SharedMemory()
{
    if (address)
        munmap(address, bytes);
}

bool SharedMemory::reserve() const
{
    return posix_fallocate(memory.number(), 0, static_cast<off_t>(bytes)) == 0;
}

void SharedMemory::populate() const
{
    constexpr size_t step = size_t{64} * 1024;
    // A system that does not know the request (Linux before 5.14) maps the pages one by one later.
    for (size_t at = 0; at < bytes; at += step)
        madvise(static_cast<std::byte*>(address) + at, std::min(step, bytes - at),
                MADV_POPULATE_WRITE);
}

}

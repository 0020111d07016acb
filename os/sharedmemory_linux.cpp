#include "os/sharedmemory.h"

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

void SharedMemory::touchEveryPage() const
{
    const auto pageBytes = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    for (size_t at = 0; at < bytes; at += pageBytes)
        static_cast<volatile std::byte*>(address)[at] = std::byte{};
}

}

#include "os/uniformmemory.h"

#include "os/sharedmemory.h"

#include <algorithm>

#include <sys/mman.h>
#include <unistd.h>

namespace osUtils::System {

namespace {

size_t roundedUp(size_t bytes, size_t unit)
{
    return (bytes + unit - 1) / unit * unit;
}

/// Shows the file over and over in a range of addresses. Pages that are written to become copies.
bool repeat(int file, size_t pieceBytes, std::byte* range, size_t bytes)
{
    for (size_t at = 0; at < bytes; at += pieceBytes) {
        const void* piece =
            mmap(range + at, pieceBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_FIXED, file, 0);
        if (piece == MAP_FAILED)
            return false;
    }
    return true;
}

bool fillRange(std::byte* range, size_t bytes, size_t pieceBytes, uint32_t value)
{
    const SharedMemory piece(pieceBytes);
    if (!piece.data())
        return false;
    std::fill_n(static_cast<uint32_t*>(piece.data()), pieceBytes / sizeof(uint32_t), value);
    return repeat(piece.file().number(), pieceBytes, range, bytes);
}

}

UniformMemory uniformMemory(size_t wanted, uint32_t value)
{
    // Long enough that a large screen is some hundreds of mappings, of which a process has 65,530, and short
    // enough to be written in no time.
    constexpr size_t longestPiece = 1U << 18U;
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    const size_t pieceBytes = std::min(longestPiece, roundedUp(wanted, page));
    const size_t bytes = pieceBytes ? roundedUp(wanted, pieceBytes) : 0;

    void* const range =
        mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (range == MAP_FAILED)
        return {};
    const UniformMemory memory{static_cast<uint32_t*>(range), bytes};
    // The system's own pages are zero.
    if (value == 0 || fillRange(static_cast<std::byte*>(range), bytes, pieceBytes, value))
        return memory;
    releaseMemory(memory);
    return {};
}

void releaseMemory(const UniformMemory& memory)
{
    munmap(memory.values, memory.bytes);
}

}

#pragma once

#include "os/filedescriptor.h"

#include <cstddef>

namespace osUtils::System {

/// Memory that can be handed to another process, or mapped once more. Zero at first.
class SharedMemory {
public:
    explicit SharedMemory(size_t bytes);
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory();

    /// Null where the system has none to give.
    [[nodiscard]] void* data() const { return address; }
    /// What it is mapped from.
    [[nodiscard]] const FileDescriptor& file() const { return memory; }

    /// Has the system set all of it aside here and now: for a process that shall not wait for each page while
    /// it writes. False if there is not enough.
    [[nodiscard]] bool reserve() const;
    /// Has the system map all of it for this process, which else it does when a page is used. Other threads that map
    /// memory meanwhile are held up for some microseconds only.
    void populate() const;

private:
    size_t bytes;
    FileDescriptor memory;
    void* address = nullptr;
};

}

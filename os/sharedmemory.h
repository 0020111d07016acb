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

    /// Has the system provide all pages here and now: for a process that shall not wait for each while it
    /// writes. (Populated by the system in one go, they would hold up what other threads map.)
    void touchEveryPage() const;

private:
    size_t bytes;
    FileDescriptor memory;
    void* address = nullptr;
};

}

#pragma once

#include <unistd.h>

#include <utility>

namespace osUtils {

/// Owns an open file and closes it. The caller checks whether opening it succeeded.
class FileDescriptor {
public:
    FileDescriptor() = default;
    /// @param opened  a descriptor that nobody else closes, or -1
    explicit FileDescriptor(int opened)
        : descriptor(opened)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor(std::exchange(other.descriptor, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(descriptor, other.descriptor);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (isOpen())
            ::close(descriptor);
    }

    [[nodiscard]] bool isOpen() const { return descriptor != -1; }
    [[nodiscard]] int number() const { return descriptor; }

private:
    int descriptor = -1;
};

}

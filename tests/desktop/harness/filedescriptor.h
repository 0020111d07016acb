#pragma once

#include <unistd.h>

#include <utility>

/// Owns one open file descriptor and closes it. What is read or written through it is up to the
/// holder.
class FileDescriptor {
public:
    explicit FileDescriptor(int openDescriptor)
        : descriptor(openDescriptor)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor(std::exchange(other.descriptor, -1))
    {
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor& operator=(FileDescriptor&&) = delete;
    ~FileDescriptor() { close(); }

    [[nodiscard]] int get() const { return descriptor; }

    void close()
    {
        if (descriptor >= 0)
            ::close(std::exchange(descriptor, -1));
    }

private:
    int descriptor;
};

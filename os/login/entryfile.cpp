#include "os/login/entryfile.h"

#include "os/filedescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace osUtils::Login {

namespace {

// The largest entries that programs install, with all their translations, have a tenth of this.
constexpr size_t largestEntry = size_t{1024} * 1024;

// Neither shown by file managers nor taken for an entry by sessions.
constexpr auto begunPrefix = ".korvel-";
constexpr auto begunSuffix = ".new";

/// A file's absence by itself is no failure of reading a folder: it may just have been removed.
bool meansAbsence(int error)
{
    return error == ENOENT || error == ELOOP || error == ENOTDIR;
}

OSStatus readAll(const FileDescriptor& file, std::optional<std::string>& bytes)
{
    std::string read;
    std::array<char, 4096> block{};
    while (read.size() <= largestEntry) {
        const ssize_t size = ::read(file.number(), block.data(), block.size());
        if (size == 0) {
            bytes = std::move(read);
            return LoginItemStatus::success;
        }
        if (size > 0)
            read.append(block.data(), static_cast<size_t>(size));
        else if (errno != EINTR)
            return errno;
    }
    return LoginItemStatus::success;
}

OSStatus writeAll(const FileDescriptor& file, const std::string& bytes)
{
    size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t size = ::write(file.number(), bytes.data() + written, bytes.size() - written);
        if (size >= 0)
            written += static_cast<size_t>(size);
        else if (errno != EINTR)
            return errno;
    }
    return fsync(file.number()) == 0 ? LoginItemStatus::success : errno;
}

/// Gives a file its name unless that is taken.
OSStatus moveToFreeName(int folder, const std::string& from, const std::string& to)
{
    if (renameat2(folder, from.c_str(), folder, to.c_str(), RENAME_NOREPLACE) == 0)
        return LoginItemStatus::success;
    // What file systems answer that cannot rename so, as network file systems.
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (linkat(folder, from.c_str(), folder, to.c_str(), 0) != 0)
        return errno;
    // The entry is there. Where its first name stays, the next addition removes it.
    unlinkat(folder, from.c_str(), 0);
    return LoginItemStatus::success;
}

}

OSStatus readEntryFile(int folder, const std::string& name, std::optional<std::string>& bytes)
{
    bytes.reset();
    struct stat information { };
    if (fstatat(folder, name.c_str(), &information, 0) != 0)
        return meansAbsence(errno) ? LoginItemStatus::success : errno;
    // Opening a pipe or a device could wait for somebody or set something going.
    if (!S_ISREG(information.st_mode))
        return LoginItemStatus::success;
    const FileDescriptor file(
        openat(folder, name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen())
        return meansAbsence(errno) ? LoginItemStatus::success : errno;
    return readAll(file, bytes);
}

OSStatus writeEntryFile(int folder, const std::string& name, const std::string& bytes)
{
    const std::string begun = begunPrefix + name + begunSuffix;
    const FileDescriptor file(
        openat(folder, begun.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (!file.isOpen())
        return errno;
    OSStatus status = writeAll(file, bytes);
    if (status == LoginItemStatus::success)
        status = moveToFreeName(folder, begun, name);
    if (status != LoginItemStatus::success)
        unlinkat(folder, begun.c_str(), 0);
    return status;
}

bool isBegunEntryFile(const std::string& name)
{
    return name.starts_with(begunPrefix) && name.ends_with(begunSuffix);
}

}

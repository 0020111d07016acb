#include "os/login/autostartfolder.h"

#include "os/login/entryfile.h"
#include "os/login/newentryname.h"
#include "os/login/userfolders.h"

#include <dirent.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>
#include <memory>
#include <thread>

namespace osUtils::Login {

namespace {

using namespace std::chrono_literals;
// As long as a user would bear to wait. One addition holds the lock for thousandths of a second.
constexpr auto longestWait = 5s;
constexpr auto betweenTries = 500us;

// One is enough; a file system that finds every name taken must not hold the caller for ever.
constexpr int mostNameTries = 16;

// Base directory specification: a folder that has to be made is for its user alone.
constexpr int privateFolder = 0700;

struct CloseFolder {
    void operator()(DIR* stream) const { closedir(stream); }
};

bool comesBefore(const AutostartFile& first, const AutostartFile& second)
{
    // Nothing comes before every position.
    if (first.entry.position != second.entry.position)
        return first.entry.position < second.entry.position;
    return first.name < second.name;
}

}

AutostartFolder::AutostartFolder()
    : folderPath(autostartPath())
{
}

OSStatus AutostartFolder::open()
{
    folder = FileDescriptor(::open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder.isOpen() ? LoginItemStatus::success : errno;
}

OSStatus AutostartFolder::openOrCreate()
{
    if (folderPath.empty())
        return ENOENT;
    if (g_mkdir_with_parents(folderPath.c_str(), privateFolder) != 0)
        return errno;
    return open();
}

OSStatus AutostartFolder::fileNames(std::vector<std::string>& names) const
{
    // A descriptor of its own, since reading a folder moves the descriptor on.
    FileDescriptor descriptor(openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen())
        return errno;
    const std::unique_ptr<DIR, CloseFolder> stream(fdopendir(descriptor.number()));
    if (!stream)
        return errno;
    descriptor.release();
    // Only errno tells the end from a failure.
    errno = 0;
    while (const dirent* file = readdir(stream.get())) {
        names.emplace_back(file->d_name);
        errno = 0;
    }
    return errno;
}

OSStatus AutostartFolder::list(std::vector<AutostartFile>& files) const
{
    std::vector<std::string> names;
    if (const OSStatus status = fileNames(names); status != LoginItemStatus::success)
        return status;
    for (const std::string& name : names) {
        if (!name.ends_with(entrySuffix))
            continue;
        std::optional<std::string> bytes;
        const OSStatus status = readEntryFile(folder.number(), name, bytes);
        if (status != LoginItemStatus::success)
            return status;
        if (auto entry = bytes ? parseEntry(*bytes) : std::nullopt)
            files.push_back({name, std::move(*entry)});
    }
    std::sort(files.begin(), files.end(), comesBefore);
    return LoginItemStatus::success;
}

OSStatus AutostartFolder::lockedDescriptor(FileDescriptor& descriptor) const
{
    // A descriptor of its own here as well: threads that share one would not wait for each other.
    // The system gives the lock up when the process ends, however that happens.
    descriptor = FileDescriptor(openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen())
        return errno;
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0) {
        const OSStatus status = errno;
        const bool isTaken = status == EWOULDBLOCK || status == EINTR;
        if (!isTaken || std::chrono::steady_clock::now() >= end)
            return status;
        std::this_thread::sleep_for(betweenTries);
    }
    return LoginItemStatus::success;
}

OSStatus AutostartFolder::add(const AutostartEntry& entry) const
{
    std::string name;
    OSStatus status = writeAtEnd(entry, name);
    if (status != LoginItemStatus::success)
        return status;
    // After the lock is given up, so that the next in line need not wait for the disk as well.
    status = sync();
    // What was reported as failed must not be found there later.
    if (status != LoginItemStatus::success)
        unlinkat(folder.number(), name.c_str(), 0);
    return status;
}

OSStatus AutostartFolder::writeAtEnd(AutostartEntry entry, std::string& name) const
{
    FileDescriptor lock;
    OSStatus status = lockedDescriptor(lock);
    if (status != LoginItemStatus::success)
        return status;
    std::vector<AutostartFile> files;
    status = list(files);
    if (status != LoginItemStatus::success)
        return status;
    const std::int64_t last = files.empty() ? 0 : files.back().entry.position.value_or(0);
    if (last == std::numeric_limits<std::int64_t>::max())
        return EOVERFLOW;
    entry.position = last + 1;
    status = removeBegunFiles();
    if (status != LoginItemStatus::success)
        return status;
    status = EEXIST;
    for (int tries = 0; status == EEXIST && tries < mostNameTries; ++tries) {
        name = newEntryName(entry.program);
        status = writeEntryFile(folder.number(), name, entryBytes(entry));
    }
    return status;
}

OSStatus AutostartFolder::removeBegunFiles() const
{
    std::vector<std::string> names;
    const OSStatus status = fileNames(names);
    for (const std::string& name : names) {
        if (isBegunEntryFile(name))
            unlinkat(folder.number(), name.c_str(), 0);
    }
    return status;
}

OSStatus AutostartFolder::remove(const std::string& fileName) const
{
    if (unlinkat(folder.number(), fileName.c_str(), 0) != 0)
        return errno;
    return sync();
}

OSStatus AutostartFolder::sync() const
{
    // EINVAL: a file system whose folders cannot be synced, nor need be.
    if (fsync(folder.number()) == 0 || errno == EINVAL)
        return LoginItemStatus::success;
    return errno;
}

}

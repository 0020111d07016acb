#include "os/login/autostart.h"

#include "os/desktopentry/applications.h"
#include "windowsystem/filedescriptor.h"
#include "os/login/commandline.h"
#include "os/login/newentry.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <set>
#include <tuple>

namespace osUtils::Login {

namespace {

namespace fs = std::filesystem;

// One is enough; a file system that finds every name taken must not hold the caller for ever.
constexpr int mostNameTries = 16;

// Base directory specification: a folder that has to be made is for its user alone.
constexpr int privateFolder = 0700;

OSStatus statusOf(bool isDone)
{
    return isDone ? LoginItemStatus::success : errno;
}

/// Whether there is an entry for all users that counts where the user has none of its name.
bool countsForAllUsers(const std::string& name)
{
    const std::vector<std::string> folders = autostartFolders();
    const auto holdsName = [&name](const std::string& folder) {
        return access((folder + '/' + name).c_str(), F_OK) == 0;
    };
    const auto folder = std::find_if(folders.begin() + 1, folders.end(), holdsName);
    return folder != folders.end() && startsSomething(DesktopEntry::read(*folder + '/' + name));
}

OSStatus namesIn(const std::string& folder, std::set<std::string>& names)
{
    std::error_code error;
    fs::directory_iterator file(folder, error);
    for (; !error && file != fs::directory_iterator(); file.increment(error)) {
        if (file->path().native().ends_with(DesktopEntry::suffix))
            names.insert(file->path().filename());
    }
    return error.value() == ENOENT ? LoginItemStatus::success : error.value();
}

AutostartItem itemFrom(const DesktopEntry& entry, const std::vector<ApplicationFile>& applications)
{
    AutostartItem item{.name = fs::path(entry.path()).filename(),
                       .path = applicationPath(applications, fs::path(entry.path()).stem()),
                       .hidden = entry.isTrue(hiddenKey)};
    g_ascii_string_to_signed(entry.value(positionKey).c_str(), 10, 1, G_MAXINT64, &item.position,
                             nullptr);
    if (item.path.empty()) {
        const GlibText added(g_filename_from_uri(entry.value(urlKey).c_str(), nullptr, nullptr));
        item.path = added ? added.get() : startedProgram(entry);
    }
    return item;
}

/// Name of the entry by which other programs, too, start an application; empty for other files.
std::string usualName(const std::string& path)
{
    for (const ApplicationFile& application : applicationFiles()) {
        if (application.path == path)
            return application.id + DesktopEntry::suffix;
    }
    return {};
}

OSStatus writeAll(const FileDescriptor& file, const std::string& bytes)
{
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t size = ::write(file.number(), bytes.data() + written, bytes.size() - written);
        if (size >= 0)
            written += static_cast<std::size_t>(size);
        else if (errno != EINTR)
            return errno;
    }
    return statusOf(fsync(file.number()) == 0);
}

/// Makes a file that has all its bytes from the first moment on, EEXIST if the name is taken. The
/// bytes are on the disk when this returns; the name is not before the folder is.
OSStatus writeFile(const std::string& folder, const std::string& name, const std::string& bytes)
{
    const std::string path = folder + '/' + name;
    const std::string begun = folder + "/.korvel-" + name + ".new";
    // Of a file without a name nothing stays if the process ends here. Not all file systems have it.
    FileDescriptor file(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0644));
    if (!file.isOpen())
        file =
            FileDescriptor(::open(begun.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    if (!file.isOpen())
        return errno;
    OSStatus status = writeAll(file, bytes);
    const std::string open = "/proc/self/fd/" + std::to_string(file.number());
    if (status == LoginItemStatus::success)
        status = statusOf(linkat(AT_FDCWD, open.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW)
                          == 0);
    unlink(begun.c_str());
    return status;
}

OSStatus sync(const std::string& path)
{
    const FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return errno;
    // EINVAL: a file system whose folders cannot be synced, nor need be.
    return statusOf(fsync(folder.number()) == 0 || errno == EINVAL);
}

/// Makes the user's folder if there is none.
OSStatus provide(const std::string& folder)
{
    if (folder.empty())
        return ENOENT;
    return statusOf(g_mkdir_with_parents(folder.c_str(), privateFolder) == 0);
}

OSStatus writeAtEnd(const std::string& folder, std::string name, const std::string& path,
                    DesktopEntry& entry)
{
    OSStatus status = EEXIST;
    for (int tries = 0; status == EEXIST && tries < mostNameTries; ++tries) {
        const std::int64_t position =
            std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
        if (name.empty() || tries > 0)
            name = entryName(path, position);
        entry.setValue(positionKey, std::to_string(position));
        status = writeFile(folder, name, entry.bytes());
    }
    if (status != LoginItemStatus::success)
        return status;
    status = sync(folder);
    // What was reported as failed must not be found there later.
    if (status != LoginItemStatus::success)
        unlink((folder + '/' + name).c_str());
    return status;
}

}

OSStatus listAutostart(std::vector<AutostartItem>& items)
{
    const std::vector<ApplicationFile> applications = applicationFiles();
    const std::vector<std::string> folders = autostartFolders();
    std::set<std::string> known;
    for (const std::string& folder : folders) {
        std::set<std::string> names;
        const OSStatus status = namesIn(folder, names);
        if (status != LoginItemStatus::success && folder == folders.front())
            return status;
        for (const std::string& name : names) {
            const auto entry = DesktopEntry::read(fs::path(folder) / name);
            if (known.insert(name).second && startsSomething(entry))
                items.push_back(itemFrom(*entry, applications));
        }
    }
    std::sort(items.begin(), items.end(), [](const AutostartItem& a, const AutostartItem& b) {
        return std::tie(a.position, a.name) < std::tie(b.position, b.name);
    });
    return LoginItemStatus::success;
}

OSStatus addAutostart(const std::string& path, bool hidden)
{
    std::optional<DesktopEntry> entry = entryFor(path);
    if (!entry)
        return LoginItemStatus::fileNotFound;
    entry->setValue(hiddenKey, hidden ? "true" : "false");
    const std::string folder = autostartFolders().front();
    if (const OSStatus status = provide(folder); status != LoginItemStatus::success)
        return status;

    const std::string name = usualName(path);
    const std::string usual = folder + '/' + name;
    if (!name.empty() && isSwitchedOff(DesktopEntry::read(usual))) {
        if (unlink(usual.c_str()) != 0)
            return errno;
        if (!hidden && countsForAllUsers(name))
            return sync(folder);
    }
    return writeAtEnd(folder, name, path, *entry);
}

OSStatus removeAutostart(const std::string& name)
{
    const std::string folder = autostartFolders().front();
    const std::string file = folder + '/' + name;
    if (!countsForAllUsers(name))
        return unlink(file.c_str()) == 0 ? sync(folder) : errno;
    if (const OSStatus status = provide(folder); status != LoginItemStatus::success)
        return status;
    const std::string begun = name + ".new";
    const std::string begunFile = folder + '/' + begun;
    unlink(begunFile.c_str()); // of a process that was ended
    const OSStatus status = writeFile(folder, begun, switchedOffEntry(name).bytes());
    if (status != LoginItemStatus::success)
        return status;
    return std::rename(begunFile.c_str(), file.c_str()) == 0 ? sync(folder) : errno;
}

}

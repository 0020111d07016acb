#include "os/login/loginitems.h"

#include "os/desktopentry/applications.h"
#include "os/login/commandline.h"
#include "windowsystem/filedescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>
#include <utility>

using namespace osUtils;
using namespace osUtils::Login;

namespace {

namespace fs = std::filesystem;

/// Our own mark, which nothing acts upon. Not the standard's Hidden key.
constexpr auto hiddenKey = "X-Korvel-Hidden";
/// When the entry was added here, in nanoseconds.
constexpr auto positionKey = "X-Korvel-Position";
/// Of what was added, where the command line does not begin with it.
constexpr auto urlKey = "X-Korvel-URL";

constexpr std::size_t longestNamePart = 32;

// One is enough; a file system that finds every name taken must not hold the caller for ever.
constexpr int mostNameTries = 16;

// Base directory specification: a folder that has to be made is for its user alone.
constexpr int privateFolder = 0700;

OSStatus statusOf(bool isDone)
{
    return isDone ? LoginItemStatus::success : errno;
}

/// Whether an entry makes sessions start something.
bool startsSomething(const std::optional<DesktopEntry>& entry)
{
    return entry && entry->isApplication() && !entry->value("Exec").empty();
}

/// Whether there is an entry for all users that counts where the user has none of its name.
bool countsForAllUsers(const std::string& name)
{
    const std::vector<fs::path> folders = autostartFolders();
    const auto holdsName = [&name](const fs::path& folder) {
        return access((folder / name).c_str(), F_OK) == 0;
    };
    const auto folder = std::find_if(folders.begin() + 1, folders.end(), holdsName);
    return folder != folders.end() && startsSomething(DesktopEntry::read(*folder / name));
}

LoginItem itemFrom(const DesktopEntry& entry, const std::vector<ApplicationFile>& applications)
{
    const fs::path file = entry.path();
    std::string path = applicationPath(applications, file.stem());
    if (path.empty()) {
        const GlibText added(g_filename_from_uri(entry.value(urlKey).c_str(), nullptr, nullptr));
        path = added ? added.get() : startedProgram(entry);
    }
    return {LoginItemUrl::ofEntry(file.filename(), path), entry.isTrue(hiddenKey)};
}

/// When an entry was added here; 0 if others have made it.
std::int64_t positionOf(const DesktopEntry& entry)
{
    gint64 position = 0;
    g_ascii_string_to_signed(entry.value(positionKey).c_str(), 10, 1, G_MAXINT64, &position,
                             nullptr);
    return position;
}

/// A name that can be shown: valid UTF-8 on one line.
std::string shownName(const std::string& path)
{
    const std::string name = fs::path(path).filename();
    const std::string& shown = name.empty() ? path : name;
    std::string valid = GlibText(g_utf8_make_valid(shown.c_str(), -1)).get();
    std::replace_if(
        valid.begin(), valid.end(), [](char letter) { return g_ascii_iscntrl(letter); }, ' ');
    return valid;
}

DesktopEntry newEntry(const std::string& path)
{
    DesktopEntry entry;
    entry.setValue("Type", "Application");
    entry.setValue("Name", shownName(path));
    return entry;
}

bool isProgram(const std::string& path)
{
    std::error_code error;
    return !fs::is_directory(path, error) && access(path.c_str(), X_OK) == 0;
}

/// Takes over the command line of an application, and what else it is started with. False if the
/// program is not there.
bool copyStart(const DesktopEntry& application, DesktopEntry& entry)
{
    const std::vector<std::string> words = commandWords(application);
    if (words.empty() || !GlibText(g_find_program_in_path(words.front().c_str())))
        return false;
    for (const char* key : {"Icon", "Path", "Terminal"}) {
        if (const std::string value = application.value(key); !value.empty())
            entry.setValue(key, value);
    }
    if (const std::string name = application.name(); !name.empty())
        entry.setValue("Name", name);
    entry.setValue("Exec", execLine(words));
    return true;
}

/// An entry that starts an application if the file is its desktop entry, or the file itself if it
/// is a program, and else opens it as the desktop does. None for an application that is not there.
/// @param path  of a file that exists
std::optional<DesktopEntry> entryFor(const std::string& path)
{
    using Words = std::vector<std::string>;
    DesktopEntry entry = newEntry(path);
    const auto application =
        path.ends_with(DesktopEntry::suffix) ? DesktopEntry::read(path) : std::nullopt;
    if (!application || !application->isApplication())
        entry.setValue("Exec", execLine(isProgram(path) ? Words{path} : Words{"xdg-open", path}));
    else if (!copyStart(*application, entry))
        return std::nullopt;
    if (startedProgram(entry) != path)
        entry.setValue(urlKey, GlibText(g_filename_to_uri(path.c_str(), nullptr, nullptr)).get());
    return entry;
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

/// A file name of letters that are safe everywhere. No entry for all users has one like it.
std::string uniqueName(const std::string& path, std::int64_t position)
{
    std::string name = fs::path(path).filename();
    name.resize(std::min(name.size(), longestNamePart));
    std::replace_if(
        name.begin(), name.end(),
        [](char letter) { return !g_ascii_isalnum(letter) && letter != '.'; }, '_');
    return "korvel-" + name + '-' + std::to_string(position) + DesktopEntry::suffix;
}

/// Makes the user's folder if there is none.
OSStatus provide(const fs::path& folder)
{
    if (folder.empty())
        return ENOENT;
    return statusOf(g_mkdir_with_parents(folder.c_str(), privateFolder) == 0);
}

OSStatus sync(const fs::path& path)
{
    const FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return errno;
    // EINVAL: a file system whose folders cannot be synced, nor need be.
    return statusOf(fsync(folder.number()) == 0 || errno == EINVAL);
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

/// Makes a file that has all its bytes from the first moment on, EEXIST if the name is taken. Both
/// are on the disk when this returns.
OSStatus writeFile(const fs::path& path, const std::string& bytes)
{
    const fs::path folder = path.parent_path();
    const fs::path begun = folder / (".korvel-" + path.filename().native() + ".new");
    // Of a file without a name nothing stays if the process ends here. Not all file systems have
    // it.
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
    if (status != LoginItemStatus::success)
        return status;
    status = sync(folder);
    // What was reported as failed must not be found there later.
    if (status != LoginItemStatus::success)
        unlink(path.c_str());
    return status;
}

/// Writes an entry behind all others.
/// @param name  empty for one of its own, which also serves where the name is taken
OSStatus writeAtEnd(const fs::path& folder, std::string name, const std::string& path,
                    DesktopEntry& entry)
{
    OSStatus status = EEXIST;
    for (int tries = 0; status == EEXIST && tries < mostNameTries; ++tries) {
        const std::int64_t position =
            std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
        if (name.empty() || tries > 0)
            name = uniqueName(path, position);
        entry.setValue(positionKey, std::to_string(position));
        status = writeFile(folder / name, entry.bytes());
    }
    return status;
}

}

OSStatus LIAECopyLoginItems(LoginItemArrayRef& items)
{
    items.reset();
    const std::vector<ApplicationFile> applications = applicationFiles();
    const std::vector<fs::path> folders = autostartFolders();
    std::map<std::pair<std::int64_t, std::string>, LoginItem> sorted;
    std::set<std::string> known;
    for (const fs::path& folder : folders) {
        std::error_code error;
        fs::directory_iterator file(folder, error);
        for (; !error && file != fs::directory_iterator(); file.increment(error)) {
            const std::string name = file->path().filename();
            if (!name.ends_with(DesktopEntry::suffix) || !known.insert(name).second)
                continue;
            if (const auto entry = DesktopEntry::read(file->path()); startsSomething(entry))
                sorted[{positionOf(*entry), name}] = itemFrom(*entry, applications);
        }
        if (error && error.value() != ENOENT && folder == folders.front())
            return error.value();
    }
    auto listed = std::make_unique<LoginItemArray>();
    for (const auto& [position, item] : sorted)
        listed->push_back(item);
    items = std::move(listed);
    return LoginItemStatus::success;
}

OSStatus LIAEAddRefAtEnd(const std::string& path, bool hidden)
{
    // A zero would end the path early, at what may be another file.
    const bool canBeFile = path.starts_with('/') && path.find('\0') == std::string::npos;
    const bool isThere = canBeFile && access(path.c_str(), F_OK) == 0;
    std::optional<DesktopEntry> entry = isThere ? entryFor(path) : std::nullopt;
    if (!entry)
        return LoginItemStatus::fileNotFound;
    entry->setValue(hiddenKey, hidden ? "true" : "false");
    const fs::path folder = autostartFolders().front();
    if (const OSStatus status = provide(folder); status != LoginItemStatus::success)
        return status;

    const std::string name = usualName(path);
    const auto usual = name.empty() ? std::nullopt : DesktopEntry::read(folder / name);
    const bool isSwitchedOff = usual && usual->isTrue("Hidden") && usual->value("Exec").empty();
    if (isSwitchedOff) {
        if (unlink(usual->path().c_str()) != 0)
            return errno;
        if (!hidden && countsForAllUsers(name))
            return sync(folder);
    }
    return writeAtEnd(folder, name, path, *entry);
}

OSStatus LIAEAddURLAtEnd(const LoginItemUrlRef& url, bool hidden)
{
    return url ? LIAEAddRefAtEnd(url->path(), hidden) : LoginItemStatus::fileNotFound;
}

OSStatus LIAERemove(int index)
{
    LoginItemArrayRef items;
    if (const OSStatus status = LIAECopyLoginItems(items); status != LoginItemStatus::success)
        return status;
    const auto position = static_cast<std::size_t>(index);
    return index >= 0 && position < items->size() ? removeListed(*(*items)[position].URL) : EINVAL;
}

OSStatus Login::removeListed(const LoginItemUrl& url)
{
    const fs::path folder = autostartFolders().front();
    const fs::path file = folder / url.entryName();
    if (!countsForAllUsers(url.entryName()))
        return unlink(file.c_str()) == 0 ? sync(folder) : errno;

    if (const OSStatus status = provide(folder); status != LoginItemStatus::success)
        return status;
    DesktopEntry switchedOff = newEntry(file);
    switchedOff.setValue("Hidden", "true");
    const fs::path begun = file.native() + ".new";
    unlink(begun.c_str()); // of a process that was ended
    const OSStatus status = writeFile(begun, switchedOff.bytes());
    if (status != LoginItemStatus::success)
        return status;
    return std::rename(begun.c_str(), file.c_str()) == 0 ? sync(folder) : errno;
}

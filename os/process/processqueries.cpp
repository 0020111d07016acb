#include "os/process/processqueries.h"

#include "os/process/applicationentry.h"
#include "windowsystem/clients.h"

#include <glib.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <sstream>

namespace osUtils::Process {

namespace {

namespace fs = std::filesystem;

constexpr int notFound = -1;

// Bytes of the kernel's short name of a program, which holds the first of a longer file name.
constexpr std::size_t longestShortName = 15;

fs::path pathOf(int pid, const char* entry)
{
    return "/proc/" + std::to_string(pid) + '/' + entry;
}

/// All bytes of a file; none of one that cannot be read, as that of a process that has ended.
std::string bytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The process that an entry of the kernel's table is of; 0 for other entries.
int processIn(const std::string& entry)
{
    gint64 id = 0;
    g_ascii_string_to_signed(entry.c_str(), 10, 1, G_MAXINT, &id, nullptr);
    return static_cast<int>(id);
}

/// The lowest id of the processes with this short name. Throws std::bad_alloc.
int firstProcessNamed(const std::string& name)
{
    int first = notFound;
    std::error_code error;
    fs::directory_iterator entry("/proc", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const int id = processIn(entry->path().filename());
        // That the kernel lists them in order is promised nowhere.
        const bool isLower = id > 0 && (first == notFound || id < first);
        if (isLower && bytesOf(pathOf(id, "comm")) == name + '\n')
            first = id;
    }
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
    return first;
}

/// Path of the executable of a process; empty if it has none or does not show it to this user.
std::string executablePath(int pid)
{
    constexpr std::string_view removedMark = " (deleted)";
    std::error_code error;
    std::string target = fs::read_symlink(pathOf(pid, "exe"), error);
    // The kernel marks the target of an executable that was removed or replaced.
    if (target.ends_with(removedMark) && !fs::exists(target, error))
        target.resize(target.size() - removedMark.size());
    return target;
}

/// What the user knows the window's program by; empty if neither entry nor window tells.
std::string displayName(const Windowing::WindowIdentity& window, const ApplicationEntry* entry)
{
    if (entry)
        return entry->name.empty() ? entry->id : entry->name;
    return window.className.empty() ? window.instance : window.className;
}

}

void getPidInfos(pidInfos* info)
{
    info->path.clear();
    info->name = get_application_basename(info->pid);

    const std::optional<Windowing::WindowIdentity> window = Windowing::listedWindow(info->pid);
    if (!window)
        return;
    const std::vector<ApplicationEntry> applications = installedApplications();
    const ApplicationEntry* entry = entryOf(*window, applications);

    const std::string name = displayName(*window, entry);
    if (!name.empty()) {
        info->name = name;
        info->path = executablePath(info->pid);
    }
    if (entry)
        info->bundleId = g_intern_string(entry->id.c_str());
}

int getProcessId(std::string name)
{
    // The kernel's own threads show longer names than the table's field holds; none of them counts.
    if (name.size() > longestShortName)
        return notFound;
    try {
        return firstProcessNamed(name);
    } catch (const std::bad_alloc&) {
        std::fputs("could not reallocate memory\n", stderr);
        return notFound;
    }
}

int getCurrentFocusProcess()
{
    return Windowing::frontmostProcess().value_or(notFound);
}

std::string get_application_basename(int pid)
{
    // An interpreter, its options and the script, whose name the kernel takes.
    constexpr int mostWords = 4;

    std::string name = bytesOf(pathOf(pid, "comm"));
    if (!name.empty())
        name.pop_back(); // the line end
    if (name.size() != longestShortName)
        return name;
    std::istringstream words(executablePath(pid) + '\0' + bytesOf(pathOf(pid, "cmdline")));
    std::string word;
    for (int i = 0; i < mostWords && std::getline(words, word, '\0'); ++i) {
        if (std::string file = fs::path(word).filename(); file.starts_with(name))
            return file;
    }
    return name;
}

std::string get_application_path(int /*pid*/)
{
    return {};
}

std::string getWindowTitle(int /*pid*/)
{
    return {};
}

// The argument order of the calls below is part of what the functions promise.

bool is_executable_alive(int pid)
{
    return ::kill(0, pid) == 0;
}

int is_executable_alive(const std::string& name)
{
    return getProcessId(name);
}

bool closeProcess(int pid)
{
    ::kill(3, pid);
    return ::kill(0, pid) == 0;
}

bool closeProcess(const std::string& name)
{
    return closeProcess(getProcessId(name));
}

}

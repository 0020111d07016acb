#include "os/process/processqueries.h"

#include "os/process/applicationentry.h"
#include "os/process/processtable.h"
#include "os/process/windowsystem.h"

#include <glib.h>

#include <csignal>
#include <cstdio>
#include <new>

namespace osUtils::Process {

namespace {

constexpr int notFound = -1;

/// The lowest id of the processes with this short name. Throws std::bad_alloc.
int firstProcessNamed(const std::string& name)
{
    for (const int id : processIds()) {
        if (shortName(id) == name)
            return id;
    }
    return notFound;
}

}

void getPidInfos(pidInfos* info)
{
    info->path.clear();
    info->name = get_application_basename(info->pid);

    const std::optional<WindowIdentity> window = listedWindow(info->pid);
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
    return frontmostProcess().value_or(notFound);
}

std::string get_application_basename(int pid)
{
    return wholeName(pid);
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

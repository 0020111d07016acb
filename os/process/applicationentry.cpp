#include "os/process/applicationentry.h"

#include "os/desktopentry/applications.h"
#include "os/desktopentry/desktopentry.h"

#include <algorithm>
#include <string_view>

namespace osUtils::Process {

namespace {

using Entries = std::vector<ApplicationEntry>;

/// The id in a desktop entry's name, which may be that of its file.
std::string_view idIn(std::string_view name)
{
    constexpr std::string_view suffix = ".desktop";
    name.remove_prefix(name.find_last_of('/') + 1); // none found: npos + 1 is 0
    if (name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    return name;
}

char lowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool areSameInAnyCase(std::string_view first, std::string_view second)
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](char a, char b) { return lowerCase(a) == lowerCase(b); });
}

template <typename Claim> const ApplicationEntry* firstOf(const Entries& entries, Claim claim)
{
    const auto found = std::find_if(entries.begin(), entries.end(), claim);
    return found == entries.end() ? nullptr : &*found;
}

const ApplicationEntry* withId(const Entries& entries, std::string_view id)
{
    return firstOf(entries, [id](const ApplicationEntry& entry) { return entry.id == id; });
}

const ApplicationEntry* withIdInAnyCase(const Entries& entries, std::string_view id)
{
    return firstOf(entries,
                   [id](const ApplicationEntry& entry) { return areSameInAnyCase(entry.id, id); });
}

const ApplicationEntry* withWindowClass(const Entries& entries, std::string_view name)
{
    return firstOf(entries,
                   [name](const ApplicationEntry& entry) { return entry.windowClass == name; });
}

}

std::vector<ApplicationEntry> installedApplications()
{
    std::vector<ApplicationEntry> applications;
    for (const ApplicationFile& file : applicationFiles()) {
        const auto entry = DesktopEntry::read(file.path);
        if (entry && entry->isApplication())
            applications.push_back({file.id, entry->name(), entry->value("StartupWMClass")});
    }
    return applications;
}

const ApplicationEntry* entryOf(const WindowIdentity& window, const Entries& entries)
{
    for (const std::string& named : {window.desktopFile, window.gtkApplication}) {
        const std::string_view id = idIn(named);
        if (const auto* entry = id.empty() ? nullptr : withId(entries, id))
            return entry;
    }
    // The instance first: a browser gives each installed web application one of its own, while the
    // class is the browser's. Ids are lower-case by custom where classes have capitals.
    for (const auto search : {withWindowClass, withId, withIdInAnyCase}) {
        for (const std::string& name : {window.windowClass.instance, window.windowClass.name}) {
            if (const auto* entry = name.empty() ? nullptr : search(entries, name))
                return entry;
        }
    }
    return nullptr;
}

std::string displayName(const WindowIdentity& window, const ApplicationEntry* entry)
{
    if (entry)
        return entry->name.empty() ? entry->id : entry->name;
    const auto& [instance, name] = window.windowClass;
    return name.empty() ? instance : name;
}

}

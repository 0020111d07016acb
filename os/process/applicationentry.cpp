#include "os/process/applicationentry.h"

#include "os/desktopentry/applications.h"
#include "os/desktopentry/desktopentry.h"

#include <string_view>
#include <utility>

namespace osUtils::Process {

namespace {

/// The id in a desktop entry's name, which may be that of its file.
std::string_view idIn(std::string_view name)
{
    constexpr std::string_view suffix = DesktopEntry::suffix;
    name.remove_prefix(name.find_last_of('/') + 1); // none found: npos + 1 is 0
    if (name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    return name;
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

const ApplicationEntry* entryOf(const Windowing::WindowIdentity& window,
                                const std::vector<ApplicationEntry>& entries)
{
    using Matches = bool (*)(const ApplicationEntry&, std::string_view);
    constexpr Matches hasWindowClass = [](const auto& entry, auto name) {
        return entry.windowClass == name;
    };
    constexpr Matches hasId = [](const auto& entry, auto name) { return entry.id == name; };
    constexpr Matches hasIdInAnyCase = [](const auto& entry, auto name) {
        return entry.id.size() == name.size()
            && g_ascii_strncasecmp(entry.id.c_str(), name.data(), name.size()) == 0;
    };
    // The instance first: a browser gives each installed web application one of its own, while the
    // class is the browser's. Ids are lower-case by custom where classes have capitals.
    const std::pair<Matches, std::string_view> claims[] = {
        {hasId, idIn(window.desktopFile)}, {hasId, idIn(window.gtkApplication)},
        {hasWindowClass, window.instance}, {hasWindowClass, window.className},
        {hasId, window.instance},          {hasId, window.className},
        {hasIdInAnyCase, window.instance}, {hasIdInAnyCase, window.className},
    };
    for (const auto& [matches, name] : claims) {
        for (const ApplicationEntry& entry : entries) {
            if (!name.empty() && matches(entry, name))
                return &entry;
        }
    }
    return nullptr;
}

}

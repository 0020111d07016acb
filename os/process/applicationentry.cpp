#include "os/process/applicationentry.h"

#include "os/desktopentry/applications.h"
#include "os/desktopentry/desktopentry.h"

#include <string_view>

namespace osUtils::Process {

namespace {

/// The id in a desktop entry's name, which may be that of its file.
std::string_view idIn(std::string_view name)
{
    constexpr std::string_view suffix = ".desktop";
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

const ApplicationEntry* entryOf(const WindowIdentity& window,
                                const std::vector<ApplicationEntry>& entries)
{
    for (const std::string& named : {window.desktopFile, window.gtkApplication}) {
        const std::string_view id = idIn(named);
        for (const ApplicationEntry& entry : entries) {
            if (!id.empty() && entry.id == id)
                return &entry;
        }
    }
    using Matches = bool (*)(const ApplicationEntry&, const std::string&);
    constexpr Matches hasWindowClass = [](const auto& entry, const auto& name) {
        return entry.windowClass == name;
    };
    constexpr Matches hasId = [](const auto& entry, const auto& name) { return entry.id == name; };
    constexpr Matches hasIdInAnyCase = [](const auto& entry, const auto& name) {
        return g_ascii_strcasecmp(entry.id.c_str(), name.c_str()) == 0;
    };
    // The instance first: a browser gives each installed web application one of its own, while the
    // class is the browser's. Ids are lower-case by custom where classes have capitals.
    for (const Matches matches : {hasWindowClass, hasId, hasIdInAnyCase}) {
        for (const std::string& name : {window.instance, window.className}) {
            for (const ApplicationEntry& entry : entries) {
                if (!name.empty() && matches(entry, name))
                    return &entry;
            }
        }
    }
    return nullptr;
}

}

#pragma once

#include "windowsystem/clients.h"

#include <string>
#include <vector>

/// Which installed application a window belongs to.
namespace osUtils::Process {

/// What a desktop entry says of an application. Name and window class may be empty.
struct ApplicationEntry {
    /// Without ".desktop".
    std::string id;
    /// In the user's language.
    std::string name;
    /// By which the application's windows are known.
    std::string windowClass;
};

/// The applications that have a desktop entry, read anew at each call, the most important first.
[[nodiscard]] std::vector<ApplicationEntry> installedApplications();

/// The entry that the window names or else matches; null if there is none.
/// @param entries  those to be preferred first
[[nodiscard]] const ApplicationEntry* entryOf(const Windowing::WindowIdentity& window,
                                              const std::vector<ApplicationEntry>& entries);

}

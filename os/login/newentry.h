#pragma once

#include "os/desktopentry/desktopentry.h"

#include <cstdint>
#include <optional>
#include <string>

/// The autostart entries that this program writes.
namespace osUtils::Login {

constexpr auto hiddenKey = "X-Korvel-Hidden";
constexpr auto positionKey = "X-Korvel-Position";
/// Of what was added, where the command line does not begin with it.
constexpr auto urlKey = "X-Korvel-URL";

/// Whether an entry makes sessions start something.
[[nodiscard]] bool startsSomething(const std::optional<DesktopEntry>& entry);

/// An entry that starts an application if the file is its desktop entry, or the file itself if it is
/// a program, and else opens it as the desktop does. None for an application that is not there.
/// @param path  of a file that exists
[[nodiscard]] std::optional<DesktopEntry> entryFor(const std::string& path);

/// A file name for it, of letters that are safe everywhere. No entry for all users has one like it.
[[nodiscard]] std::string entryName(const std::string& path, std::int64_t position);

/// An entry that switches off those for all users that have its name.
[[nodiscard]] DesktopEntry switchedOffEntry(const std::string& name);

/// Whether an entry does nothing else.
[[nodiscard]] bool isSwitchedOff(const std::optional<DesktopEntry>& entry);

}

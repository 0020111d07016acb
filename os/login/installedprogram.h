#pragma once

#include <optional>
#include <string>

namespace osUtils::Login {

/// Path of the program that an installed application starts, as its desktop entry says; arguments
/// in the entry are left out.
///
/// None if no entry has the identifier, if the most important that has it counts as deleted or is
/// of another type, or if its program is neither on the PATH nor named by an absolute path.
/// @param id  the desktop-entry id without ".desktop", as in "org.gnome.gedit"; each "-" may stand
///            for the slash of a sub-folder
[[nodiscard]] std::optional<std::string> installedProgram(const std::string& id);

}

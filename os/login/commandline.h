#pragma once

#include "os/desktopentry/desktopentry.h"

#include <string>
#include <vector>

/// The command line in a desktop entry's Exec key.
namespace osUtils::Login {

/// The program and its arguments. Of the field codes those that stand for files are left out, since
/// nobody names any at the login. Empty if the line is none.
[[nodiscard]] std::vector<std::string> commandWords(const DesktopEntry& entry);

/// The program that an entry starts, looked up on the PATH if it has no slash. A word that cannot
/// be found stays as it is, as does a whole line that has no first word.
[[nodiscard]] std::string startedProgram(const DesktopEntry& entry);

/// The Exec key for a program and its arguments, whatever bytes they are of.
///
/// Starters differ on all that the standard escapes. Where that would be needed, a shell is started
/// instead, and given the words in letters that none of them touches.
[[nodiscard]] std::string execLine(const std::vector<std::string>& words);

}

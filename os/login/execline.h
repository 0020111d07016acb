#pragma once

#include <string>

/// The command line in a desktop entry's Exec key, as the value reads once its escapes as a key
/// file's text are resolved.
namespace osUtils::Login {

/// The command line that starts a program without arguments.
///
/// It keeps to the standard, which not every runner does: several leave the doubled percent sign in
/// a program's path as it is, and some do so with escapes.
[[nodiscard]] std::string execLine(const std::string& program);

/// The program that a command line starts: its first word, looked up on the PATH if it has no
/// slash. A word that cannot be found stays as it is, as does a whole line that has no first word.
[[nodiscard]] std::string startedProgram(const std::string& execLine);

}

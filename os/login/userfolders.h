#pragma once

#include <string>
#include <vector>

/// Folders of the XDG base directory specification, as the environment has them at this moment.
///
/// The environment is asked, unlike for the program's own folders, since sessions do so too. A
/// relative path in it counts as none; without a HOME the user database's stands in.
namespace osUtils::Login {

/// Where the user's session looks for programs to start; empty if the user has no home.
[[nodiscard]] std::string autostartPath();

/// Where applications are described, the most important folder first. None of them need exist.
[[nodiscard]] std::vector<std::string> applicationPaths();

}

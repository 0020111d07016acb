#pragma once

#include <string>

namespace osUtils::Login {

/// A file name for an entry that starts a program, another one at each call: letters that are safe
/// everywhere, the program's own name among them. Whether it is free is for the caller to see.
///
/// No system-wide entry has such a name; one that had would give way to the user's.
[[nodiscard]] std::string newEntryName(const std::string& program);

}

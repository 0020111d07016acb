#pragma once

#include <optional>
#include <string>
#include <vector>

/// The kernel's table of processes, read from /proc.
namespace osUtils::Process {

/// Ids of all processes, the lowest first. Throws std::bad_alloc when there is no memory for them.
[[nodiscard]] std::vector<int> processIds();

/// The kernel's short name of a process; none if it has ended or never was.
[[nodiscard]] std::optional<std::string> shortName(int pid);

/// Path of the executable of a process; empty if it has none or does not show it to this user.
[[nodiscard]] std::string executablePath(int pid);

}

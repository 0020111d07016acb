#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The kernel's table of processes, read from /proc.
namespace osUtils::Process {

/// Bytes of the kernel's short name of a program, which holds the first of a longer file name.
constexpr std::size_t longestShortName = 15;

/// Ids of all processes, the lowest first. Throws std::bad_alloc when there is no memory for them.
[[nodiscard]] std::vector<int> processIds();

/// The kernel's short name of a process; none if it has ended or never was.
[[nodiscard]] std::optional<std::string> shortName(int pid);

/// The short name, completed where the kernel may have cut it: by the name of the executable's file
/// or of one of the first words that it was started with, where that begins with it.
[[nodiscard]] std::string wholeName(int pid);

/// Path of the executable of a process; empty if it has none or does not show it to this user.
[[nodiscard]] std::string executablePath(int pid);

}

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The texts of the process table as the kernel writes them.
namespace osUtils::Process {

/// Bytes of the kernel's short name of a program, which holds the first of a longer file name.
constexpr std::size_t longestShortName = 15;

/// The process that an entry of the table's folder is of; none for other entries.
[[nodiscard]] std::optional<int> processIdFrom(std::string_view entry);

/// The short name out of the file that holds it and a line end. None for an empty file, which is
/// what a process leaves that ends meanwhile. The name itself may hold line ends, or be empty.
[[nodiscard]] std::optional<std::string_view> shortNameFrom(std::string_view file);

/// The path of an executable out of the target of the link to it.
/// @param fileExists  whether there is a file of the target's name: the kernel marks the target of
///                    an executable that was removed or replaced
[[nodiscard]] std::string executablePathFrom(std::string_view target, bool fileExists);

}

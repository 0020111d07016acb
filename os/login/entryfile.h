#pragma once

#include "os/login/loginitem.h"

#include <optional>
#include <string>

/// Reading and writing a file that holds a desktop entry.
namespace osUtils::Login {

constexpr auto entrySuffix = ".desktop";

/// Reads a file whole, following links as sessions do, and never waiting for anybody.
/// @param folder  descriptor of the folder that a relative name is in
/// @param bytes   nothing where the name leads to no file, to something else than a file, or to one
///                that is far larger than entries are
[[nodiscard]] OSStatus readEntryFile(int folder, const std::string& name,
                                     std::optional<std::string>& bytes);

/// Makes a file in a folder that has all its bytes from the first moment on. The bytes are on the
/// disk when this returns; the name is not before the folder is synced. A name that is taken gives
/// EEXIST, and nothing changes.
[[nodiscard]] OSStatus writeEntryFile(int folder, const std::string& name,
                                      const std::string& bytes);

/// Whether a name is one of those under which writeEntryFile() begins its files; one that is left
/// over belongs to a process that was ended.
[[nodiscard]] bool isBegunEntryFile(const std::string& name);

}

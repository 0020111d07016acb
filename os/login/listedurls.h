#pragma once

#include "os/login/loginitemurl.h"

#include <string>

namespace osUtils::Login {

/// The URL object of a listed entry: the one that an earlier listing gave for the same file and the
/// same program, if anybody still holds it, else a new one. Any thread may ask.
/// @param file     path of the entry
/// @param program  what the entry starts
[[nodiscard]] LoginItemUrlRef listedUrl(const std::string& file, const std::string& program);

}

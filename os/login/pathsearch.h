#pragma once

#include <string>

namespace osUtils::Login {

/// Whether a text occurs in a path, ignoring case; the empty text occurs nowhere.
///
/// Where bytes are valid UTF-8, case is ignored by Unicode's full folding, whatever the locale, and
/// whole characters are compared. A byte that is not part of a character equals itself alone.
[[nodiscard]] bool occursInPath(const std::string& text, const std::string& path);

}

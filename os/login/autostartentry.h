#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace osUtils::Login {

/// What a desktop entry of type Application says of the program that it starts.
struct AutostartEntry {
    /// Absolute path; where the program cannot be found, what the entry says instead.
    std::string program;
    /// Our own mark, which nothing acts upon. Not the standard's Hidden key.
    bool hidden = false;
    /// Place among the entries that have one, from 1. Only entries written here have one.
    std::optional<std::int64_t> position;
};

/// The entry that a file's bytes are. None if they are no entry of type Application that starts
/// something, or one that counts as deleted.
[[nodiscard]] std::optional<AutostartEntry> parseEntry(const std::string& bytes);

/// The bytes of a file that parseEntry() reads as this entry.
[[nodiscard]] std::string entryBytes(const AutostartEntry& entry);

}

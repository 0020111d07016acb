#pragma once

#include "os/login/loginitems.h"

#include <cstdint>
#include <string>
#include <vector>

/// The entries that sessions start programs by, in the user's folder and in those for all users.
/// What a login item's URL is, and how items are looked for, is left to others.
///
/// Every state that another process can see, or that the end of this one can leave behind, is valid.
namespace osUtils::Login {

/// An entry that counts.
struct AutostartItem {
    /// Of its file, whose folder does not matter to sessions.
    std::string name;
    /// What was added: an installed application's desktop entry, a program or another file. Of an
    /// entry that others have made, the application whose id it has, else the program that it starts.
    std::string path;
    /// Our own mark, which nothing acts upon. Not the standard's Hidden key.
    bool hidden = false;
    /// When it was added here, in nanoseconds; 0 if others have made it.
    std::int64_t position = 0;
};

/// All entries by position, then by name. Of the same name in several folders only that of the first
/// counts, and what cannot be read is passed over: sessions do both.
[[nodiscard]] OSStatus listAutostart(std::vector<AutostartItem>& items);

/// Adds an entry behind all others for a file, which exists. Neither waits for others who do so at
/// the same time nor reads what they have written.
[[nodiscard]] OSStatus addAutostart(const std::string& path, bool hidden);

/// Removes the user's entry. Where one for all users would then count, the user's becomes one that
/// switches it off.
[[nodiscard]] OSStatus removeAutostart(const std::string& name);

}

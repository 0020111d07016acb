#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Where the XDG base directory specification puts desktop entries, as the environment says at this
/// moment: sessions ask it too, unlike the program for its own folders. A relative path in it
/// counts as none; without a HOME the user database's stands in.
namespace osUtils {

/// Where sessions look for programs to start, the user's folder first. That one is empty if the
/// user has no home; none of them need exist.
[[nodiscard]] std::vector<std::filesystem::path> autostartFolders();

/// The desktop entry of an installed application.
struct ApplicationFile {
    /// Without ".desktop", and with "-" for the slashes of sub-folders.
    std::string id;
    std::string path;
};

/// All files that may be desktop entries, those of the more important folder first, then by their
/// ids. Of several with one id only the most important is there.
///
/// GLib has a list, too, but of other things: what the program on the PATH has gone for, or what is
/// not for menus, is not on it, and it keeps a thread to watch the folders.
[[nodiscard]] std::vector<ApplicationFile> applicationFiles();

/// Path of the file with an id; empty if there is none.
[[nodiscard]] std::string applicationPath(const std::vector<ApplicationFile>& files,
                                          const std::string& id);

}

#pragma once

#include <memory>
#include <string>

class LoginItemUrl;

/// A URL is an object that is told apart from others by being itself, not by what it says. All who
/// hold it own it together; it never changes.
using LoginItemUrlRef = std::shared_ptr<const LoginItemUrl>;

/// The URL of a file, of which login items are made. Says nothing of whether the file exists.
class LoginItemUrl {
public:
    /// A new object for a path, which begins at the working directory if it is relative. Of ".",
    /// ".." and doubled slashes none is left, unless the path leads elsewhere without them.
    /// @param path  any bytes, not taken for UTF-8
    [[nodiscard]] static LoginItemUrlRef fromPath(const std::string& path);
    /// The object for an autostart entry: the one that was given for it before, if anybody still
    /// holds that, else a new one.
    /// @param entryName  of the entry's file
    /// @param text  by which the entry names its program: an absolute path, or other text that
    ///              leads to no file
    [[nodiscard]] static LoginItemUrlRef ofEntry(const std::string& entryName,
                                                 const std::string& text);

    /// Path of the file, without a slash at its end unless it is the root.
    [[nodiscard]] const std::string& path() const { return filePath; }
    /// Of the autostart entry's file; empty if a caller made the object from a path.
    [[nodiscard]] const std::string& entryName() const { return entry; }
    /// "file://" and the path with everything percent-encoded that needs it; of a relative path no
    /// more than that, encoded.
    [[nodiscard]] std::string text() const;

    /// Whether a text occurs in the path, ignoring case; the empty text occurs nowhere.
    ///
    /// Where bytes are valid UTF-8, case is ignored by Unicode's full folding, whatever the locale,
    /// and whole characters are compared. A byte that is not part of a character equals itself
    /// alone.
    [[nodiscard]] bool pathContains(const std::string& text) const;

private:
    LoginItemUrl(const std::string& entryName, const std::string& path);

    std::string entry;
    std::string filePath;
};

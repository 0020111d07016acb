#pragma once

#include <glib.h>

#include <memory>
#include <optional>
#include <string>

namespace osUtils {

/// Gives back what GLib has allocated.
struct FreeFromGlib {
    void operator()(void* memory) const { g_free(memory); }
    void operator()(char** words) const { g_strfreev(words); }
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};

/// A text of GLib's with its owner.
using GlibText = std::unique_ptr<char, FreeFromGlib>;

/// The group "Desktop Entry" of a key file. Values are any bytes, since paths are.
///
/// GLib takes the file apart. The escapes in values are resolved here, since its versions differ on
/// wrong ones, and it has no way to read a text that is not UTF-8. A new entry has no keys.
class DesktopEntry {
public:
    static constexpr auto suffix = ".desktop";

    /// None where the path leads to no file, or to one that cannot be read or is no desktop entry.
    /// Never waits for anybody.
    [[nodiscard]] static std::optional<DesktopEntry> read(const std::string& path);

    /// Where it was read from; empty otherwise.
    [[nodiscard]] const std::string& path() const { return file; }
    /// The value with its escapes resolved, wrong ones left as they are; empty without the key.
    [[nodiscard]] std::string value(const std::string& key) const;
    /// Whether the value is "true", or "1" as old entries have it.
    [[nodiscard]] bool isTrue(const char* key) const;
    /// In the user's language; empty if it has none in UTF-8.
    [[nodiscard]] std::string name() const;
    /// Whether it is of an application, and not one that counts as deleted.
    [[nodiscard]] bool isApplication() const;

    void setValue(const char* key, const std::string& value);
    [[nodiscard]] std::string bytes() const;

private:
    std::string file;
    std::unique_ptr<GKeyFile, FreeFromGlib> keys{g_key_file_new()};
};

}

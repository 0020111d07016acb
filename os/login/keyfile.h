#pragma once

#include "os/login/glibowner.h"

#include <optional>
#include <string>

namespace osUtils::Login {

/// The group "Desktop Entry" of a key file; other groups are not looked at.
///
/// Values are any bytes without zeros, since a path is. GLib, which reads and writes the format,
/// knows texts in UTF-8 only: it is handed each byte as the character of that number.
class KeyFile {
public:
    /// An empty file.
    KeyFile();
    /// The file of these bytes; none where they do not keep to the format or lack the group.
    [[nodiscard]] static std::optional<KeyFile> parse(const std::string& bytes);

    /// The value with its escapes resolved, wrong ones left as they are; none without the key.
    [[nodiscard]] std::optional<std::string> value(const char* key) const;
    /// Whether the value is "true", or "1" as old entries have it.
    [[nodiscard]] bool isTrue(const char* key) const;
    void setValue(const char* key, const std::string& value);

    [[nodiscard]] std::string bytes() const;

private:
    std::unique_ptr<GKeyFile, FreeFromGlib> file;
};

}

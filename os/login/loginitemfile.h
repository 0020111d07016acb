#pragma once

#include <optional>
#include <string>

class LoginItemUrl;

/// A file that was there when it was looked up. It may have vanished since.
class LoginItemFile {
public:
    /// The file that a URL leads to; none if there is no such file or it cannot be reached.
    [[nodiscard]] static std::optional<LoginItemFile> fromUrl(const LoginItemUrl& url);

    /// Absolute path, in which links are left as they are: the file behind one may change.
    [[nodiscard]] const std::string& path() const { return filePath; }
    [[nodiscard]] bool isStillThere() const;

private:
    explicit LoginItemFile(const std::string& path);

    std::string filePath;
};

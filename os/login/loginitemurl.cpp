#include "os/login/loginitemurl.h"

#include "os/desktopentry/glibowner.h"

#include <filesystem>

namespace fs = std::filesystem;

LoginItemUrl::LoginItemUrl(const std::string& path)
    : filePath(path)
{
    while (filePath.size() > 1 && filePath.back() == '/')
        filePath.pop_back();
}

LoginItemUrlRef LoginItemUrl::fromPath(const std::string& path)
{
    // Without a working directory the path stays relative and leads to no file.
    std::error_code error;
    const fs::path absolute = path.empty() ? fs::path() : fs::absolute(path, error);
    const fs::path normal = (error ? fs::path(path) : absolute).lexically_normal();
    // The ".." after a link leads out of the folder behind the link.
    const bool isElsewhere =
        !fs::equivalent(absolute, normal, error) && fs::exists(absolute, error);
    return LoginItemUrlRef(new LoginItemUrl(isElsewhere ? absolute : normal));
}

LoginItemUrlRef LoginItemUrl::fromRawText(const std::string& text)
{
    return LoginItemUrlRef(new LoginItemUrl(text));
}

std::string LoginItemUrl::text() const
{
    const osUtils::GlibText encoded(
        g_uri_escape_bytes(reinterpret_cast<const guint8*>(filePath.data()), filePath.size(), "/"));
    return (filePath.starts_with('/') ? "file://" : "") + std::string(encoded.get());
}

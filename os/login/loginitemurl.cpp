#include "os/login/loginitemurl.h"

#include "os/login/glibowner.h"

#include <filesystem>

LoginItemUrl::LoginItemUrl(const std::string& path, Kind urlKind)
    : filePath(path)
    , kind(urlKind)
{
    while (filePath.size() > 1 && filePath.back() == '/')
        filePath.pop_back();
}

LoginItemUrlRef LoginItemUrl::fromPath(const std::string& path, Kind kind)
{
    if (path.empty() || path.front() == '/')
        return LoginItemUrlRef(new LoginItemUrl(path, kind));
    // Without a working directory the path stays relative and leads to no file.
    std::error_code error;
    const auto folder = std::filesystem::current_path(error);
    return LoginItemUrlRef(new LoginItemUrl(error ? path : (folder / path).native(), kind));
}

LoginItemUrlRef LoginItemUrl::fromRawText(const std::string& text)
{
    return LoginItemUrlRef(new LoginItemUrl(text, Kind::File));
}

std::string LoginItemUrl::text() const
{
    const bool isAbsolute = !filePath.empty() && filePath.front() == '/';
    const osUtils::Login::GlibText encoded(
        g_uri_escape_bytes(reinterpret_cast<const guint8*>(filePath.data()), filePath.size(), "/"));
    std::string url = (isAbsolute ? "file://" : "") + std::string(encoded.get());
    if (kind == Kind::Directory && !url.ends_with('/'))
        url += '/';
    return url;
}

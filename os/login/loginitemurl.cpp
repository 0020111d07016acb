#include "os/login/loginitemurl.h"

#include "os/desktopentry/desktopentry.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <utility>

namespace fs = std::filesystem;

namespace {

/// A text without case. Bytes that are no characters stand behind one that no character has, so
/// that they cannot be taken for a part of any.
std::string folded(const std::string& text)
{
    constexpr char mark = '\xff';
    std::string result;
    const char* next = text.data();
    const char* const end = next + text.size();
    while (next != end) {
        const char* stray = nullptr;
        g_utf8_validate(next, end - next, &stray);
        result += osUtils::GlibText(g_utf8_casefold(next, stray - next)).get();
        if (stray != end)
            result += {mark, *stray++};
        next = stray;
    }
    return result;
}

}

LoginItemUrl::LoginItemUrl(const std::string& entryName, const std::string& path)
    : entry(entryName)
    , filePath(path)
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
    return LoginItemUrlRef(new LoginItemUrl({}, isElsewhere ? absolute : normal));
}

LoginItemUrlRef LoginItemUrl::ofEntry(const std::string& entryName, const std::string& text)
{
    static std::mutex guard;
    static std::map<std::pair<std::string, std::string>, std::weak_ptr<const LoginItemUrl>> urls;

    const std::lock_guard lock(guard);
    std::erase_if(urls, [](const auto& known) { return known.second.expired(); });
    std::weak_ptr<const LoginItemUrl>& known = urls[{entryName, text}];
    LoginItemUrlRef url = known.lock();
    if (!url)
        known = url = LoginItemUrlRef(new LoginItemUrl(entryName, text));
    return url;
}

std::string LoginItemUrl::text() const
{
    const osUtils::GlibText encoded(
        g_uri_escape_bytes(reinterpret_cast<const guint8*>(filePath.data()), filePath.size(), "/"));
    return (filePath.starts_with('/') ? "file://" : "") + std::string(encoded.get());
}

bool LoginItemUrl::pathContains(const std::string& text) const
{
    return !text.empty() && folded(filePath).find(folded(text)) != std::string::npos;
}

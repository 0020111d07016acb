#include "os/login/loginitems.h"

#include "os/login/autostart.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <mutex>
#include <utility>

using namespace osUtils::Login;

namespace {

constexpr int notFound = -1;

// The words are given, "intem" included.
constexpr auto addMessage = "Couldn't add login item error %ld";
constexpr auto listMessage = "Couldn't list login items error %ld";
constexpr auto removeMessage = "Couldn't remove login intem error %ld";

/// The URL object of an entry: the one that an earlier listing gave for the same name and path, if
/// anybody still holds it, else a new one.
LoginItemUrlRef urlOf(const AutostartItem& item)
{
    static std::mutex guard;
    static std::map<std::pair<std::string, std::string>, std::weak_ptr<const LoginItemUrl>> urls;

    const std::lock_guard lock(guard);
    std::erase_if(urls, [](const auto& known) { return known.second.expired(); });
    std::weak_ptr<const LoginItemUrl>& known = urls[{item.name, item.path}];
    LoginItemUrlRef url = known.lock();
    if (!url) {
        url = LoginItemUrl::fromRawText(item.path);
        known = url;
    }
    return url;
}

/// Removes the first entry that a claim holds for.
template <typename Claim> OSStatus removeFirst(Claim claim, OSStatus ifThereIsNone)
{
    std::vector<AutostartItem> entries;
    const OSStatus status = listAutostart(entries);
    if (status != LoginItemStatus::success)
        return status;
    const auto found = std::find_if(entries.begin(), entries.end(), claim);
    return found == entries.end() ? ifThereIsNone : removeAutostart(found->name);
}

/// Removes the item that a listing gave this very object for, wherever it stands by now.
OSStatus removeListed(const LoginItemUrlRef& url)
{
    return removeFirst([&url](const AutostartItem& entry) { return urlOf(entry) == url; }, ENOENT);
}

bool succeeded(OSStatus status, const char* message)
{
    if (status != LoginItemStatus::success)
        std::printf(message, static_cast<long>(status));
    return status == LoginItemStatus::success;
}

/// Position of the last item that a claim holds for.
template <typename Claim> int lastOf(const LoginItemArrayRef& items, Claim claim)
{
    int index = items ? static_cast<int>(items->size()) - 1 : notFound;
    while (index != notFound && !claim((*items)[static_cast<size_t>(index)].URL))
        --index;
    return index;
}

int lastWithPath(const LoginItemArrayRef& items, const std::string& path)
{
    return lastOf(items, [&path](const LoginItemUrlRef& url) { return url->pathContains(path); });
}

}

OSStatus LIAECopyLoginItems(LoginItemArrayRef& items)
{
    items.reset();
    std::vector<AutostartItem> entries;
    const OSStatus status = listAutostart(entries);
    if (status != LoginItemStatus::success)
        return status;
    auto listed = std::make_unique<LoginItemArray>();
    for (const AutostartItem& entry : entries)
        listed->push_back({urlOf(entry), entry.hidden});
    items = std::move(listed);
    return status;
}

OSStatus LIAEAddRefAtEnd(const std::string& path, bool hidden)
{
    struct stat information { };
    // A zero would end the path early, at what may be another file.
    const bool canBeFile = path.starts_with('/') && path.find('\0') == std::string::npos;
    if (!canBeFile || stat(path.c_str(), &information) != 0)
        return LoginItemStatus::fileNotFound;
    return addAutostart(path, hidden);
}

OSStatus LIAEAddURLAtEnd(const LoginItemUrlRef& url, bool hidden)
{
    return url ? LIAEAddRefAtEnd(url->path(), hidden) : LoginItemStatus::fileNotFound;
}

OSStatus LIAERemove(int index)
{
    return removeFirst([&index](const AutostartItem&) { return index >= 0 && index-- == 0; },
                       EINVAL);
}

LoginItemArrayRef allLoginItems()
{
    LoginItemArrayRef items;
    succeeded(LIAECopyLoginItems(items), listMessage);
    return items;
}

bool addLoginItemWithURL(const LoginItemUrlRef& url, bool hidden)
{
    return succeeded(LIAEAddURLAtEnd(url, hidden), addMessage);
}

bool addLoginItemWithPath(const std::string& path, bool hidden)
{
    return addLoginItemWithURL(LoginItemUrl::fromPath(path), hidden);
}

bool removeLoginItemAtIndex(int index)
{
    return succeeded(LIAERemove(index), removeMessage);
}

int indexForLoginItemWithPath(const std::string& path)
{
    return lastWithPath(allLoginItems(), path);
}

bool removeLoginItemWithPath(const std::string& path)
{
    const LoginItemArrayRef items = allLoginItems();
    const int index = lastWithPath(items, path);
    // By its object, for its position may have changed.
    return index != notFound
        && succeeded(removeListed((*items)[static_cast<size_t>(index)].URL), removeMessage);
}

int indexForLoginItemWithURL(const LoginItemUrlRef& url)
{
    return lastOf(allLoginItems(), [&url](const LoginItemUrlRef& listed) { return listed == url; });
}

bool removeLoginItemWithURL(const LoginItemUrlRef& url)
{
    return indexForLoginItemWithURL(url) != notFound && succeeded(removeListed(url), removeMessage);
}

#include "os/login/loginitemservice.h"

#include "os/login/autostart.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <mutex>
#include <utility>

using osUtils::Login::AutostartItem;

namespace {

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
    const OSStatus status = osUtils::Login::listAutostart(entries);
    if (status != LoginItemStatus::success)
        return status;
    const auto found = std::find_if(entries.begin(), entries.end(), claim);
    return found == entries.end() ? ifThereIsNone : osUtils::Login::removeAutostart(found->name);
}

}

OSStatus LIAECopyLoginItems(LoginItemArrayRef& items)
{
    items.reset();
    std::vector<AutostartItem> entries;
    const OSStatus status = osUtils::Login::listAutostart(entries);
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
    return osUtils::Login::addAutostart(path, hidden);
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

OSStatus osUtils::Login::removeListedItem(const LoginItemUrlRef& url)
{
    return removeFirst([&url](const AutostartItem& entry) { return urlOf(entry) == url; }, ENOENT);
}

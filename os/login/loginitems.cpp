#include "os/login/loginitems.h"

#include "os/desktopentry/applications.h"
#include "os/desktopentry/desktopentry.h"

#include <cstdio>

namespace {

constexpr int notFound = -1;

// The words are given, "intem" included.
constexpr auto addMessage = "Couldn't add login item error %ld";
constexpr auto listMessage = "Couldn't list login items error %ld";
constexpr auto removeMessage = "Couldn't remove login intem error %ld";

bool succeeded(OSStatus status, const char* message)
{
    if (status != LoginItemStatus::success)
        std::printf(message, static_cast<long>(status));
    return status == LoginItemStatus::success;
}

/// Position of the last item whose URL a claim holds for.
template <typename Claim> int lastOf(const LoginItemArrayRef& items, Claim claim)
{
    int index = items ? static_cast<int>(items->size()) - 1 : notFound;
    while (index != notFound && !claim((*items)[static_cast<size_t>(index)].URL))
        --index;
    return index;
}

int lastContaining(const LoginItemArrayRef& items, const std::string& path)
{
    return lastOf(items, [&path](const LoginItemUrlRef& url) { return url->pathContains(path); });
}

int lastWith(const LoginItemArrayRef& items, const LoginItemUrlRef& sought)
{
    return lastOf(items, [&sought](const LoginItemUrlRef& url) { return url == sought; });
}

/// Not lastContaining(): one application's path may be another's in capitals.
int lastOfApplication(const LoginItemArrayRef& items, const std::string& path)
{
    return lastOf(items, [&path](const LoginItemUrlRef& url) { return url->path() == path; });
}

/// Removes an item, if one was found.
bool removeAt(const LoginItemArrayRef& items, int index)
{
    if (index == notFound)
        return false;
    const LoginItemUrlRef& url = (*items)[static_cast<size_t>(index)].URL;
    return succeeded(osUtils::Login::removeListed(*url), removeMessage);
}

/// Path of an application's desktop entry; empty if it has none.
std::string applicationWithId(const std::string& id)
{
    const std::string path = osUtils::applicationPath(osUtils::applicationFiles(), id);
    const auto entry = path.empty() ? std::nullopt : osUtils::DesktopEntry::read(path);
    return entry && entry->isApplication() ? path : "";
}

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
    return lastContaining(allLoginItems(), path);
}

bool removeLoginItemWithPath(const std::string& path)
{
    const LoginItemArrayRef items = allLoginItems();
    return removeAt(items, lastContaining(items, path));
}

int indexForLoginItemWithURL(const LoginItemUrlRef& url)
{
    return lastWith(allLoginItems(), url);
}

bool removeLoginItemWithURL(const LoginItemUrlRef& url)
{
    const LoginItemArrayRef items = allLoginItems();
    return removeAt(items, lastWith(items, url));
}

bool osUtils::System::startWithOS(const std::string& bundleId)
{
    const std::string path = applicationWithId(bundleId);
    return !path.empty() && lastOfApplication(allLoginItems(), path) != notFound;
}

bool osUtils::System::switchOsStartBehavior(const std::string& bundleId,
                                            const std::string& /*unused*/)
{
    const std::string path = applicationWithId(bundleId);
    if (path.empty())
        return false;
    const LoginItemArrayRef items = allLoginItems();
    const int index = lastOfApplication(items, path);
    return index == notFound ? addLoginItemWithPath(path, false) : removeAt(items, index);
}

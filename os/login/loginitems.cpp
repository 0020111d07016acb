#include "os/login/loginitems.h"

#include "os/login/loginitemservice.h"
#include "os/login/pathsearch.h"

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
    return lastOf(items, [&path](const LoginItemUrlRef& url) {
        return osUtils::Login::occursInPath(path, url->path());
    });
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
    return lastWithPath(allLoginItems(), path);
}

bool removeLoginItemWithPath(const std::string& path)
{
    const LoginItemArrayRef items = allLoginItems();
    const int index = lastWithPath(items, path);
    // By its object, for its position may have changed.
    return index != notFound
        && succeeded(osUtils::Login::removeListedItem((*items)[static_cast<size_t>(index)].URL),
                     removeMessage);
}

int indexForLoginItemWithURL(const LoginItemUrlRef& url)
{
    return lastOf(allLoginItems(), [&url](const LoginItemUrlRef& listed) { return listed == url; });
}

bool removeLoginItemWithURL(const LoginItemUrlRef& url)
{
    return indexForLoginItemWithURL(url) != notFound
        && succeeded(osUtils::Login::removeListedItem(url), removeMessage);
}

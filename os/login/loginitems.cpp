#include "os/login/loginitems.h"

#include "os/login/loginitemservice.h"
#include "os/login/pathsearch.h"

#include <cstdio>

namespace {

constexpr int notFound = -1;

enum class Operation { List, Add, Remove };

// The words are given, "intem" included.
const char* messageFormat(Operation operation)
{
    switch (operation) {
    case Operation::List:
        return "Couldn't list login items error %ld";
    case Operation::Add:
        return "Couldn't add login item error %ld";
    case Operation::Remove:
    default:
        return "Couldn't remove login intem error %ld";
    }
}

bool succeeded(Operation operation, OSStatus status)
{
    if (status != LoginItemStatus::success)
        std::printf(messageFormat(operation), static_cast<long>(status));
    return status == LoginItemStatus::success;
}

int lastWithPath(const LoginItemArrayRef& items, const std::string& path)
{
    int found = notFound;
    for (size_t i = 0; items && i < items->size(); ++i) {
        if (osUtils::Login::occursInPath(path, (*items)[i].URL->path()))
            found = static_cast<int>(i);
    }
    return found;
}

int firstWithUrl(const LoginItemArrayRef& items, const LoginItemUrlRef& url)
{
    for (size_t i = 0; items && i < items->size(); ++i) {
        if ((*items)[i].URL == url)
            return static_cast<int>(i);
    }
    return notFound;
}

/// Removes the item that stood at a position of a listing.
bool removeFound(const LoginItemArrayRef& items, int index)
{
    // By its object, for its position may have changed.
    return index != notFound
        && succeeded(Operation::Remove,
                     osUtils::Login::removeListedItem((*items)[static_cast<size_t>(index)].URL));
}

}

LoginItemArrayRef allLoginItems()
{
    LoginItemArrayRef items;
    succeeded(Operation::List, LIAECopyLoginItems(items));
    return items;
}

bool addLoginItemWithURL(const LoginItemUrlRef& url, bool hidden)
{
    return succeeded(Operation::Add, LIAEAddURLAtEnd(url, hidden));
}

bool addLoginItemWithPath(const std::string& path, bool hidden)
{
    return addLoginItemWithURL(LoginItemUrl::fromPath(path), hidden);
}

bool removeLoginItemAtIndex(int index)
{
    return succeeded(Operation::Remove, LIAERemove(index));
}

int indexForLoginItemWithPath(const std::string& path)
{
    return lastWithPath(allLoginItems(), path);
}

bool removeLoginItemWithPath(const std::string& path)
{
    const LoginItemArrayRef items = allLoginItems();
    return removeFound(items, lastWithPath(items, path));
}

int indexForLoginItemWithURL(const LoginItemUrlRef& url)
{
    return firstWithUrl(allLoginItems(), url);
}

bool removeLoginItemWithURL(const LoginItemUrlRef& url)
{
    const LoginItemArrayRef items = allLoginItems();
    return removeFound(items, firstWithUrl(items, url));
}

#include "os/login/startwithos.h"

#include "os/desktopentry/applications.h"
#include "os/desktopentry/desktopentry.h"
#include "os/login/loginitems.h"

namespace osUtils::System {

namespace {

/// Path of the application's desktop entry; empty if it has none.
std::string pathOf(const std::string& bundleId)
{
    const std::string path = applicationPath(applicationFiles(), bundleId);
    const auto entry = path.empty() ? std::nullopt : DesktopEntry::read(path);
    return entry && entry->isApplication() ? path : "";
}

/// The URL of the last item that is the application; null if there is none. Not found by
/// indexForLoginItemWithPath(): one application's path may be another's in capitals.
LoginItemUrlRef itemOf(const std::string& path)
{
    LoginItemUrlRef found;
    if (const LoginItemArrayRef items = allLoginItems()) {
        for (const LoginItem& item : *items) {
            if (item.URL->path() == path)
                found = item.URL;
        }
    }
    return found;
}

}

bool startWithOS(const std::string& bundleId)
{
    const std::string path = pathOf(bundleId);
    return !path.empty() && itemOf(path);
}

bool switchOsStartBehavior(const std::string& bundleId, const std::string& /*unused*/)
{
    const std::string path = pathOf(bundleId);
    if (path.empty())
        return false;
    const LoginItemUrlRef item = itemOf(path);
    return item ? removeLoginItemWithURL(item) : addLoginItemWithPath(path, false);
}

}

#include "os/login/listedurls.h"

#include <map>
#include <mutex>
#include <utility>

namespace osUtils::Login {

LoginItemUrlRef listedUrl(const std::string& file, const std::string& program)
{
    static std::mutex guard;
    static std::map<std::pair<std::string, std::string>, std::weak_ptr<const LoginItemUrl>> urls;

    const std::lock_guard lock(guard);
    std::erase_if(urls, [](const auto& known) { return known.second.expired(); });
    std::weak_ptr<const LoginItemUrl>& known = urls[{file, program}];
    LoginItemUrlRef url = known.lock();
    if (!url) {
        url = LoginItemUrl::fromRawText(program);
        known = url;
    }
    return url;
}

}

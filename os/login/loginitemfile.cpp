#include "os/login/loginitemfile.h"

#include "os/login/loginitemurl.h"

#include <sys/stat.h>

LoginItemFile::LoginItemFile(const std::string& path)
    : filePath(path)
{
}

std::optional<LoginItemFile> LoginItemFile::fromUrl(const LoginItemUrl& url)
{
    const std::string& path = url.path();
    // A zero would end the path early, at what may be another file.
    const bool canBeFile = path.starts_with('/') && path.find('\0') == std::string::npos;
    LoginItemFile file(path);
    if (!canBeFile || !file.isStillThere())
        return std::nullopt;
    return file;
}

bool LoginItemFile::isStillThere() const
{
    struct stat information { };
    return stat(filePath.c_str(), &information) == 0;
}

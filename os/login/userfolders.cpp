#include "os/login/userfolders.h"

#include "os/specialfolders.h"

#include <cstdlib>
#include <sstream>

namespace osUtils::Login {

namespace {

constexpr auto defaultDataFolders = "/usr/local/share:/usr/share";

bool isAbsolute(const std::string& path)
{
    return path.starts_with('/');
}

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The user's folder of a kind, empty if there is no home.
std::string userFolder(const char* variableName, const char* belowHome)
{
    if (std::string chosen = variable(variableName); isAbsolute(chosen))
        return chosen;
    const std::string home = isAbsolute(variable("HOME")) ? variable("HOME") : getHomeFolder();
    return isAbsolute(home) ? home + belowHome : std::string{};
}

}

std::string autostartPath()
{
    const std::string folder = userFolder("XDG_CONFIG_HOME", "/.config");
    return folder.empty() ? folder : folder + "/autostart";
}

std::vector<std::string> applicationPaths()
{
    std::vector<std::string> folders{userFolder("XDG_DATA_HOME", "/.local/share")};
    const std::string shared = variable("XDG_DATA_DIRS");
    std::istringstream list(shared.empty() ? defaultDataFolders : shared);
    for (std::string folder; std::getline(list, folder, ':');)
        folders.push_back(folder);

    std::vector<std::string> paths;
    for (const std::string& folder : folders) {
        if (isAbsolute(folder))
            paths.push_back(folder + "/applications");
    }
    return paths;
}

}

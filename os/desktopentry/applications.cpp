#include "os/desktopentry/applications.h"

#include "os/desktopentry/desktopentry.h"
#include "os/specialfolders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

namespace osUtils {

namespace {

namespace fs = std::filesystem;

// Nobody nests deeper, and links can make folders that never end.
constexpr int deepestFolder = 5;

std::string variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// A folder in the user's folder and in each of the system's; the first is empty if there is no
/// home.
std::vector<fs::path> foldersNamed(const char* name, const char* usersVariable,
                                   const char* belowHome, const char* systemVariable,
                                   const char* systemDefault)
{
    std::string user = variable(usersVariable);
    if (!user.starts_with('/')) {
        const std::string home =
            variable("HOME").starts_with('/') ? variable("HOME") : getHomeFolder();
        user = home.starts_with('/') ? home + belowHome : "";
    }
    std::vector<fs::path> folders{user.empty() ? ""
                                               : fs::path(user + '/' + name).lexically_normal()};
    const std::string system = variable(systemVariable);
    std::istringstream list(system.empty() ? systemDefault : system);
    for (std::string folder; std::getline(list, folder, ':');) {
        if (folder.starts_with('/'))
            folders.push_back(fs::path(folder + '/' + name).lexically_normal());
    }
    return folders;
}

/// Desktop entries in a folder and those below, by their ids.
std::map<std::string, std::string> filesIn(const fs::path& folder)
{
    std::map<std::string, std::string> files;
    std::error_code error;
    fs::recursive_directory_iterator file(folder,
                                          fs::directory_options::skip_permission_denied
                                              | fs::directory_options::follow_directory_symlink,
                                          error);
    for (; !error && file != fs::recursive_directory_iterator(); file.increment(error)) {
        std::error_code unreadable;
        if (file.depth() >= deepestFolder)
            file.disable_recursion_pending();
        if (file->path().extension() != DesktopEntry::suffix || !file->is_regular_file(unreadable))
            continue;
        std::string id = file->path().lexically_relative(folder).replace_extension();
        std::replace(id.begin(), id.end(), '/', '-');
        files.emplace(id, file->path());
    }
    return files;
}

}

std::vector<fs::path> autostartFolders()
{
    return foldersNamed("autostart", "XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg");
}

std::vector<ApplicationFile> applicationFiles()
{
    std::vector<ApplicationFile> files;
    std::set<std::string> ids;
    for (const fs::path& folder : foldersNamed("applications", "XDG_DATA_HOME", "/.local/share",
                                               "XDG_DATA_DIRS", "/usr/local/share:/usr/share")) {
        for (const auto& [id, path] : filesIn(folder)) {
            if (ids.insert(id).second)
                files.push_back({id, path});
        }
    }
    return files;
}

std::string applicationPath(const std::vector<ApplicationFile>& files, const std::string& id)
{
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&id](const ApplicationFile& file) { return file.id == id; });
    return found == files.end() ? "" : found->path;
}

}

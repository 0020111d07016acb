#include "os/specialfolders.h"

#include "os/folderbases.h"

#include <pwd.h>
#include <unistd.h>

std::string getHomeFolder()
{
    const passwd* entry = getpwuid(getuid());
    return entry && entry->pw_dir ? entry->pw_dir : std::string{};
}

namespace Vc::Utils {

std::string _vcUserDataFolder;
std::string _vcAllUsersDataFolder;
std::string _vcUserPictureFolder;
std::string _vcUserFolder;

namespace {

constexpr auto dataProduct = "/Varnholt/Vellumcraft";
constexpr auto pictureProduct = "/Vellumcraft";

const std::string& cached(std::string& entry, const std::string& path)
{
    if (entry.empty())
        entry = path;
    return entry;
}

}

const std::string& vcSpecialFolders(vc_special_folders_e kind)
{
    const std::string home = getHomeFolder();
    switch (kind) {
    case ALL_USERS_DATA_FOLDER:
        return cached(_vcAllUsersDataFolder, std::string(FolderBases::allUsersData) + dataProduct);
    case USER_PICTURE_FOLDER:
        return cached(_vcUserPictureFolder, home + FolderBases::userPictures + pictureProduct);
    case USER_FOLDER:
        return cached(_vcUserFolder, home);
    case USER_DATA_FOLDER:
    default:
        return cached(_vcUserDataFolder, home + FolderBases::userData + dataProduct);
    }
}

}

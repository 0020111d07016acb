#pragma once

#include <string>

/// Home folder of the user who runs the process, from the user database (the environment is not
/// asked); empty if the database has no entry for the real user id.
std::string getHomeFolder();

/// Where the product keeps its files.
namespace Vc::Utils {

/// Kinds of folder. The underlying type is fixed, so that other numbers are legal values; they
/// all mean the user's data folder.
enum vc_special_folders_e : int {
    ALL_USERS_DATA_FOLDER = 0,
    USER_DATA_FOLDER = 1,
    USER_PICTURE_FOLDER = 2,
    USER_FOLDER = 3,
};

/// Paths computed so far, without a trailing slash; empty until first asked for. Written by
/// vcSpecialFolders() alone.
extern std::string _vcUserDataFolder;
extern std::string _vcAllUsersDataFolder;
extern std::string _vcUserPictureFolder;
extern std::string _vcUserFolder;

/// Path of a kind of folder, without a trailing slash, valid for the rest of the process.
///
/// The folder is neither created nor tested for. Without an entry in the user database the paths of
/// the user start at the root. GUI thread only.
const std::string& vcSpecialFolders(vc_special_folders_e kind);

}

#include "os/folderbases.h"

namespace Vc::Utils::FolderBases {

// Filesystem Hierarchy Standard 3.0: data of software that the system's packages do not own.
const char* const allUsersData = "/usr/local/share";
// XDG base directory specification: the default of XDG_DATA_HOME. The variable itself is not read,
// since the home folder does not come from the environment either.
const char* const userData = "/.local/share";
const char* const userPictures = "/Pictures";

}

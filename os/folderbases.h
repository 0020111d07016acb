#pragma once

/// The folders in which this platform keeps the data of programs and users.
///
/// Text as it is put together: no trailing slash, and those of the user begin with the slash that
/// follows the home folder.
namespace Vc::Utils::FolderBases {

/// Data shared by all users, an absolute path.
extern const char* const allUsersData;
/// The user's data, below the home folder.
extern const char* const userData;
/// The user's pictures, below the home folder.
extern const char* const userPictures;

}

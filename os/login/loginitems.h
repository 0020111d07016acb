#pragma once

#include "os/login/loginitemurl.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// The login items of the user.
///
/// An item is an entry of type Application that the user's sessions start: one in the user's
/// autostart folder, or one for all users that the user's entries leave to count. Paths are any
/// bytes. Nothing here needs Qt, and any thread may call; other processes may change the items at
/// the same time, so that a position holds for the listing that it comes from and may be another's
/// soon after. Every state that they can see, or that the end of this process can leave behind, is
/// valid.

/// What a login-item function came to: 0 is success, fileNotFound that there is no such file, and a
/// positive number an error of the system, passed on as it was in errno (<cerrno> has the names).
using OSStatus = std::int32_t;

namespace LoginItemStatus {

constexpr OSStatus success = 0;
constexpr OSStatus fileNotFound = -43;

}

/// One program that is started when the user logs in.
struct LoginItem {
    /// Of what was added: an installed application's desktop entry, a program or another file. Of
    /// an entry that others have made, the application whose id it has, else the program that it
    /// starts.
    LoginItemUrlRef URL;
    /// A mark that is kept for the caller; sessions start every item alike.
    bool Hidden = false;
};

/// Login items in their order, positions counting from 0.
using LoginItemArray = std::vector<LoginItem>;
/// Whoever is given an array owns it.
using LoginItemArrayRef = std::unique_ptr<const LoginItemArray>;

// Functions that give a status, without a word to anybody.

/// Lists the items: first those that other programs have made, by the name of their file, then
/// those added here, in the order of their addition. Of the same name in several folders only that
/// of the first counts, and entries that cannot be read are passed over: sessions do both.
/// @param items  the array, on success; else nothing
[[nodiscard]] OSStatus LIAECopyLoginItems(LoginItemArrayRef& items);

/// Adds an item behind all others, whether or not there is one for the file already. Neither waits
/// for others who do so at the same time nor reads what they have written.
/// @param path    absolute; addLoginItemWithURL() tells what is started
/// @param hidden  kept with the item
[[nodiscard]] OSStatus LIAEAddRefAtEnd(const std::string& path, bool hidden);

/// The same for the file of a URL.
[[nodiscard]] OSStatus LIAEAddURLAtEnd(const LoginItemUrlRef& url, bool hidden);

/// Removes the item at a position, counted from 0; EINVAL if there is none. An entry for all users
/// stays, and is switched off for this one.
[[nodiscard]] OSStatus LIAERemove(int index);

namespace osUtils::Login {

/// Removes the item that a listing gave this URL for, wherever it stands by now.
[[nodiscard]] OSStatus removeListed(const LoginItemUrl& url);

}

// For callers who want a plain answer. A failure is one line on standard output, without a line
// end, that ends in the status; nothing else is printed.

/// All items in their order; null after printing "Couldn't list login items error " and the status.
[[nodiscard]] LoginItemArrayRef allLoginItems();

/// Adds an item behind all others for a file, which there may be one for already.
///
/// A program starts itself, a desktop entry its application with all its arguments, and anything
/// else is opened by xdg-open, as the desktop would. Paths of any bytes are started alike by dex,
/// Openbox, GLib and systemd; those that one of them would misread go through a shell and base64 of
/// coreutils. Programs for a terminal start only where the session knows one.
/// @param url     stays the caller's; the item gets another object when it is listed
/// @param hidden  a mark that is listed with the item
/// @return  success; else prints "Couldn't add login item error " and the status
bool addLoginItemWithURL(const LoginItemUrlRef& url, bool hidden);
/// The same for a path; a relative one begins at the working directory.
bool addLoginItemWithPath(const std::string& path, bool hidden);

/// Removes the item at a position, counted from 0. One that all users have is switched off for this
/// one only, as the XDG autostart standard has it; adding its application switches it on again.
/// @return  success; else prints "Couldn't remove login intem error " and the status
bool removeLoginItemAtIndex(int index);

/// Position of the last item whose path contains the given one, ignoring case (see
/// LoginItemUrl::pathContains()); -1 if there is none, also after printing that the items cannot be
/// listed.
[[nodiscard]] int indexForLoginItemWithPath(const std::string& path);
/// Removes the item that indexForLoginItemWithPath() means, and no other, even while other
/// processes change the items.
/// @return  success; false without a word if no item matches, and as removeLoginItemAtIndex()
bool removeLoginItemWithPath(const std::string& path);

/// Position of the item that has this very URL object, -1 if there is none.
///
/// Only a listing makes such objects: one made by the caller is never found, whatever it says. As
/// long as somebody holds an object, every listing of the process gives it for its item again; an
/// item whose program has been changed since, or that was removed and added again here, has
/// another.
[[nodiscard]] int indexForLoginItemWithURL(const LoginItemUrlRef& url);
/// Removes that item, as removeLoginItemWithPath() does.
bool removeLoginItemWithURL(const LoginItemUrlRef& url);

/// Whether an application starts when the user logs in.
///
/// An application is named by its desktop-entry id without ".desktop", as in "org.gnome.gedit",
/// where "-" may stand for the slash of a sub-folder. Its path is that of its desktop entry, whole:
/// items of other applications are neither found nor removed, whatever they start.
namespace osUtils::System {

/// Whether the application is among the login items, with the words of allLoginItems() on failure.
/// False, without a word, if no application has the identifier.
[[nodiscard]] bool startWithOS(const std::string& bundleId);

/// Makes an application start with the login if it did not, and no longer if it did.
/// @return  success, with the words of the login item functions on failure; false without a word if
///          no application has the identifier
bool switchOsStartBehavior(const std::string& bundleId, const std::string& unused);

}

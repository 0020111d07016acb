#pragma once

#include "os/login/loginitem.h"

class LoginItemFile;

/// The login items of the user, with statuses and without a word to anybody. Any thread may call;
/// other processes may change the items at the same time, so that a position holds for the listing
/// that it comes from and may be another's soon after.
///
/// An item is an entry of type Application in the autostart folder of the user's sessions. Entries
/// that hold for all users are no items and stay as they are; where the user's entry stood in for
/// one of them, that one counts again once the user's is removed.

/// Lists the items: first those that other programs have made, by the name of their file, then
/// those added here, in the order of their addition. A folder that does not exist has no items; an
/// entry that cannot be read is an error, since nobody knows whether it is one.
/// @param items  the array, on success; else nothing
[[nodiscard]] OSStatus LIAECopyLoginItems(LoginItemArrayRef& items);

/// Adds an item behind all others, whether or not there is one for the file already. Waits at most
/// five seconds while other processes add items (then EWOULDBLOCK).
/// The item is kept and listed whatever bytes the path is of. Sessions may fail to start one with
/// control characters, bytes that are no UTF-8, percent signs, quotes, dollar signs or backslashes
/// in its path, since many read entries less exactly than the standard asks.
/// @param hidden  kept with the item
[[nodiscard]] OSStatus LIAEAddRefAtEnd(const LoginItemFile& file, bool hidden);

/// Looks up the file of a URL and adds an item for it. Whether it is a program is not asked.
[[nodiscard]] OSStatus LIAEAddURLAtEnd(const LoginItemUrlRef& url, bool hidden);

/// Removes the item at a position, counted from 0; EINVAL if there is none.
[[nodiscard]] OSStatus LIAERemove(int index);

namespace osUtils::Login {

/// Removes the item that a listing gave this very object for, wherever it stands by now; ENOENT if
/// somebody else has removed it.
[[nodiscard]] OSStatus removeListedItem(const LoginItemUrlRef& url);

}

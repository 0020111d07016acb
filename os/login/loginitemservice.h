#pragma once

#include "os/login/loginitem.h"

#include <string>

/// The login items of the user, with statuses and without a word to anybody. Any thread may call;
/// other processes may change the items at the same time, so that a position holds for the listing
/// that it comes from and may be another's soon after.
///
/// An item is an entry of type Application that the user's sessions start: one in the user's
/// autostart folder, or one for all users that the user's entries leave to count.

/// Lists the items: first those that other programs have made, by the name of their file, then
/// those added here, in the order of their addition. Entries that cannot be read are passed over.
/// @param items  the array, on success; else nothing
[[nodiscard]] OSStatus LIAECopyLoginItems(LoginItemArrayRef& items);

/// Adds an item behind all others, whether or not there is one for the file already.
/// @param path    absolute, of any bytes; loginitems.h tells what is started
/// @param hidden  kept with the item
[[nodiscard]] OSStatus LIAEAddRefAtEnd(const std::string& path, bool hidden);

/// The same for the file of a URL.
[[nodiscard]] OSStatus LIAEAddURLAtEnd(const LoginItemUrlRef& url, bool hidden);

/// Removes the item at a position, counted from 0; EINVAL if there is none. An entry for all users
/// stays, and is switched off for this one.
[[nodiscard]] OSStatus LIAERemove(int index);

namespace osUtils::Login {

/// Removes the item that a listing gave this very object for, wherever it stands by now; ENOENT if
/// somebody else has removed it.
[[nodiscard]] OSStatus removeListedItem(const LoginItemUrlRef& url);

}

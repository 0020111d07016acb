#pragma once

#include "os/login/loginitem.h"

#include <string>

/// The login items of the user, for callers who want a plain answer. What an item is, and where it
/// is kept, loginitemservice.h tells.
///
/// A failure is one line on standard output, without a line end, that ends in the status (see
/// OSStatus); nothing else is printed. Paths are any bytes. Nothing here needs the toolkit, and any
/// thread may call.

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

/// Position of the last item whose path contains the given one, ignoring case (pathsearch.h tells
/// how); -1 if there is none, also after printing that the items cannot be listed.
[[nodiscard]] int indexForLoginItemWithPath(const std::string& path);
/// Removes the item that indexForLoginItemWithPath() means, and no other, even while other
/// processes change the items.
/// @return  success; false without a word if no item matches, and as removeLoginItemAtIndex()
bool removeLoginItemWithPath(const std::string& path);

/// Position of the item that has this very URL object, -1 if there is none.
///
/// Only a listing makes such objects: one made by the caller is never found, whatever it says. As
/// long as somebody holds an object, every listing of the process gives it for its item again; an
/// item whose program has been changed since, or that was removed and added again here, has another.
[[nodiscard]] int indexForLoginItemWithURL(const LoginItemUrlRef& url);
/// Removes that item, as removeLoginItemWithPath() does.
bool removeLoginItemWithURL(const LoginItemUrlRef& url);

#pragma once

#include <string>

/// Whether an application starts when the user logs in.
///
/// An application is named by its desktop-entry id without ".desktop", as in "org.gnome.gedit", where
/// "-" may stand for the slash of a sub-folder. Its path is that of its desktop entry, whole: items
/// of other applications are neither found nor removed, whatever they start.
namespace osUtils::System {

/// Whether the application is among the login items, with the words of allLoginItems() on failure.
/// False, without a word, if no application has the identifier.
[[nodiscard]] bool startWithOS(const std::string& bundleId);

/// Makes an application start with the login if it did not, and no longer if it did.
/// @return  success, with the words of the login item functions on failure; false without a word if
///          no application has the identifier
bool switchOsStartBehavior(const std::string& bundleId, const std::string& unused);

}

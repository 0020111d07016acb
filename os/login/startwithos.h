#pragma once

#include <string>

/// Whether an application starts when the user logs in.
///
/// An application is named by its desktop-entry id without ".desktop" and stands for the program
/// that its entry starts, without arguments. One that is itself an argument, as of a sandbox or an
/// interpreter, cannot be told from others of its kind.
namespace osUtils::System {

/// Whether the application's program is among the login items, by indexForLoginItemWithPath() and
/// with its words on failure. False, without a word, if no application has the identifier.
[[nodiscard]] bool startWithOS(const std::string& bundleId);

/// Makes an application start with the login if it did not, and no longer if it did.
/// @return  success, with the words of the login item functions on failure; false without a word if
///          no application has the identifier
bool switchOsStartBehavior(const std::string& bundleId, const std::string& unused);

}

#pragma once

#include "os/process/windowidentity.h"

#include <optional>

/// What the running window system knows of other programs. Nothing where there is none, or one that
/// is not asked here (only X11 is).
namespace osUtils::Process {

/// The process of the window that the user works with.
[[nodiscard]] std::optional<int> frontmostProcess();

/// The names that a listed window of the process bears; none if it has no such window.
[[nodiscard]] std::optional<WindowIdentity> listedWindow(int process);

}

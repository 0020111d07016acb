#pragma once

#include "os/sharedpixels.h"

#include <QRegion>
#include <QWindow>

namespace osUtils::X11 {

/// Has the server copy pixels to a window from where they lie, once it has done what it was asked for before.
/// @param pixels  those of the whole window
/// @param region  the part of the window that is copied, in device pixels
/// @return  false if the window is of another kind or size, and nothing is copied
[[nodiscard]] bool showPixels(WId window, const System::SharedPixels& pixels,
                              const QRegion& region);

}

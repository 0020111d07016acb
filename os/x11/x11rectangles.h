#pragma once

#include <QRegion>

#include <xcb/xcb.h>

#include <vector>

namespace osUtils::X11 {

/// A region as the server's requests have it.
/// @param region  in device pixels
[[nodiscard]] std::vector<xcb_rectangle_t> x11Rectangles(const QRegion& region);

}

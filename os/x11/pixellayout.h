#pragma once

#include <QImage>

#include <xcb/xcb.h>

namespace osUtils::X11 {

/// The depth of a screen whose pixels are laid out as the toolkit's of 32 bits.
constexpr uint8_t toolkitsDepth = 24;

/// Whether the pixels of a server's screen are laid out as the toolkit's of 32 bits.
[[nodiscard]] bool hasToolkitsPixels(const xcb_setup_t& setup);

/// A picture in the memory that a server with such pixels has written them to, row by row. What the
/// server leaves open, the byte that no colour uses, is set: to the toolkit it is the opacity.
/// @param release  called with the owner when the picture is no longer used
[[nodiscard]] QImage toolkitsPicture(void* pixels, QSize size, QImageCleanupFunction release,
                                     void* owner);

}

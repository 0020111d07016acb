#pragma once

#include <QImage>

#include <xcb/xcb.h>

namespace osUtils::X11 {

/// The depth of a screen whose pixels are laid out as the toolkit's of 32 bits.
constexpr uint8_t toolkitsDepth = 24;

/// Whether the pixels of a server's screen are laid out as the toolkit's of 32 bits.
[[nodiscard]] bool hasToolkitsPixels(const xcb_setup_t& setup);

/// Sets what the server leaves open in each pixel, the byte that no colour uses: to the toolkit it is the opacity.
void makeOpaque(void* pixels, QSize size);

/// A picture in the memory that a server with such pixels has written them to, row by row.
/// @param release  called with the owner when the picture is no longer used
[[nodiscard]] QImage toolkitsPicture(void* pixels, QSize size, QImageCleanupFunction release,
                                     void* owner);

}

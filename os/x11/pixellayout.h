#pragma once

#include <QRgb>

#include <xcb/xcb.h>

#include <span>

namespace osUtils::X11 {

/// Whether the pixels of a server's screen are laid out as the toolkit's of 32 bits.
[[nodiscard]] bool hasToolkitsPixels(const xcb_setup_t& setup);

/// The server leaves open what is in the byte that no colour uses; to the toolkit it is the opacity.
void makeOpaque(std::span<QRgb> pixels);

}

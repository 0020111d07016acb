#pragma once

#include <QImage>

#include <xcb/xcb.h>

class XConnection;

/// Gives a window a picture as its background, repeated beyond the picture's edges, and shows it.
/// @param picture  without transparency, in device pixels
void setBackground(const XConnection& connection, xcb_window_t window, const QImage& picture);

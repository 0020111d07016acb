#pragma once

#include <QList>

#include <xcb/xcb.h>

class XConnection;

/// Sends a request to the window manager, by the client message that is named and given here.
/// @param window  whom it is about
void askWindowManager(const XConnection& connection, xcb_window_t window, const char* type,
                      const QList<uint32_t>& data);

/// The same message to one window.
void askWindow(const XConnection& connection, xcb_window_t window, const char* type,
               const QList<uint32_t>& data);

#pragma once

#include "windowsystem/x11/windowlayer.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QWindow>

#include <initializer_list>
#include <optional>
#include <vector>

/// Properties of X11 windows that Qt does not set, over Qt's own connection.
///
/// Every function needs the X11 platform. Errors (a window that is gone) are the
/// server's to ignore: nothing is reported.
namespace Windowing::X11 {

/// Name that the running window manager announces; empty when none runs.
[[nodiscard]] QByteArray windowManagerName();

/// Sets the window's type so that it takes its place in the layer. The full-screen state is left
/// to Qt.
void setWindowLayer(WId window, const WindowLayer& layer);

/// Gives a window a place and a size past Qt's rounding.
/// @param geometry  in device pixels, seen from the root window
void setGeometry(WId window, const QRect& geometry);

/// Where a window's top-left corner is seen from the root window, in device pixels.
[[nodiscard]] QPoint positionOnDesktop(WId window);

/// Whether the window and all the frames around it are mapped.
[[nodiscard]] bool isMappedWithFrames(WId window);

/// Takes back the hint that the window's size goes in steps.
void allowAnySize(WId window);

/// Asks the window manager to keep a mapped window above others.
void keepAbove(WId window);

/// Takes that request back.
void stopKeepingAbove(WId window);

/// Gives a window, of whatever program, the keyboard, and tells the window manager that the user
/// wants it. Nothing happens if it is gone or not on the screen.
void activate(WId window);

/// The window that gets the keys; 0 if none does.
[[nodiscard]] WId focusedWindow();

/// Asks once more for a size that the window manager may have refused.
/// @param size  in device pixels
void requestSize(WId window, QSize size);

/// Sets a property to a list of cardinals.
void setCardinals(WId window, QByteArrayView property, std::initializer_list<quint32> values);
void deleteProperty(WId window, QByteArrayView property);

/// The window and the frames that the window manager has put around it, innermost first, without
/// the root.
[[nodiscard]] std::vector<WId> windowAndFrames(WId window);

/// Limits the mouse input of a window to a region, in device pixels and window coordinates; none
/// gives the whole window back. Takes effect at once, without mapping the window anew.
void setInputShape(WId window, const std::optional<QRegion>& region);

/// The same for what can be seen of the window.
void setVisibleShape(WId window, const std::optional<QRegion>& region);

}

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
/// Every function needs the X11 platform. Errors, such as a window that is gone, are not reported.
namespace Windowing::X11 {

/// Name that the running window manager announces; empty when none runs.
[[nodiscard]] QByteArray windowManagerName();

/// Sets the window's type so that it takes its place in the layer. The full-screen state is left
/// to Qt.
void setWindowLayer(WId window, const WindowLayer& layer);

/// Sets a window's place and size, bypassing Qt's rounding.
/// @param geometry  in device pixels, seen from the root window
void setGeometry(WId window, const QRect& geometry);

/// A window's top-left corner seen from the root window, in device pixels.
[[nodiscard]] QPoint positionOnDesktop(WId window);

/// Whether the window and all the frames around it are mapped.
[[nodiscard]] bool isMappedWithFrames(WId window);

/// Removes the hint that the window's size changes in steps.
void allowAnySize(WId window);

/// Asks the window manager to keep a mapped window above others.
void keepAbove(WId window);

/// Withdraws that request.
void stopKeepingAbove(WId window);

/// Gives the keyboard to a window of any program, and tells the window manager that the user wants
/// it. Nothing happens if the window is gone or not on the screen.
void activate(WId window);

/// The window that gets the keys; 0 if none does.
[[nodiscard]] WId focusedWindow();

/// Asks again for a size that the window manager may have refused.
/// @param size  in device pixels
void requestSize(WId window, QSize size);

/// Sets a property to a list of cardinals.
void setCardinals(WId window, QByteArrayView property, std::initializer_list<quint32> values);
void deleteProperty(WId window, QByteArrayView property);

/// The window and the frames that the window manager has put around it, innermost first, without
/// the root.
[[nodiscard]] std::vector<WId> windowAndFrames(WId window);

/// Limits a window's mouse input to a region, in device pixels and window coordinates; no value
/// restores the whole window. Takes effect at once, without mapping the window anew.
void setInputShape(WId window, const std::optional<QRegion>& region);

/// Limits the visible part of a window in the same way.
void setVisibleShape(WId window, const std::optional<QRegion>& region);

}

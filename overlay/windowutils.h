#pragma once

class QWidget;

/// What Qt does not offer of a widget's native window, and the screen under the mouse.
///
/// The window functions act on the window that holds the widget and create it when there is none
/// yet. They may be called before it is first shown and while it is shown, take effect without
/// mapping it anew, and do nothing on a window system that has no such property. GUI thread only.
namespace Helpers::NQt::Utils {

/// Whether the window casts a shadow.
void setWindowShadow(QWidget* widget, bool shadow);

/// Whether mouse events fall through to the windows below. The window's child widgets (a palette)
/// stay clickable.
void setIgnoresMouseEvents(QWidget* widget, bool ignore);

/// Marks the window as non-opaque or opaque. A see-through look needs the widget's translucent
/// background besides.
void setWindowTransparency(QWidget* widget, bool transparent);

/// Raises the window above ordinary, floating and dock windows.
void bringToMegaTop(QWidget* widget);

/// Number of the screen that holds the mouse pointer, as Qt lists them.
[[nodiscard]] int findScreenHoldingMouse();

}

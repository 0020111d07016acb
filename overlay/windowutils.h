#pragma once

class QWidget;

/// Properties of a widget's native window that Qt does not offer, and the screen under the mouse.
///
/// The window functions act on the window that holds the widget and create it if necessary. They
/// may be called before it is first shown and while it is visible, take effect without mapping it
/// anew, and do nothing on a window system without such a property. GUI thread only.
namespace Helpers::NQt::Utils {

/// Whether the window casts a shadow.
void setWindowShadow(QWidget* widget, bool shadow);

/// Whether mouse events fall through to the windows below. The window's child widgets (a palette)
/// stay clickable.
void setIgnoresMouseEvents(QWidget* widget, bool ignore);

/// Marks the window as non-opaque or opaque. To be see-through the widget also needs a translucent
/// background.
void setWindowTransparency(QWidget* widget, bool transparent);

/// Raises the window above ordinary, floating and dock windows.
void bringToMegaTop(QWidget* widget);

/// Number of the screen that holds the mouse pointer, in Qt's order.
[[nodiscard]] int findScreenHoldingMouse();

}

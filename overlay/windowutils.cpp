#include "overlay/windowutils.h"

#include "windowsystem/nativewindow.h"
#include "windowsystem/windowsystem.h"

namespace Helpers::NQt::Utils {

using Windowing::NativeWindow;

void setWindowShadow(QWidget* widget, bool shadow)
{
    NativeWindow::of(*widget).setShadow(shadow);
}

void setIgnoresMouseEvents(QWidget* widget, bool ignore)
{
    NativeWindow::of(*widget).setIgnoresMouse(ignore);
}

void setWindowTransparency(QWidget* widget, bool transparent)
{
    NativeWindow::of(*widget).setOpaque(!transparent);
}

void bringToMegaTop(QWidget* widget)
{
    NativeWindow::of(*widget).raiseAboveAll();
}

int findScreenHoldingMouse()
{
    return Windowing::WindowSystem::ofSession().pointerScreen();
}

}

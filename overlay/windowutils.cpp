#include "overlay/windowutils.h"

#include "overlay/nativewindow.h"
#include "overlay/screengeometry.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace Helpers::NQt::Utils {

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
    QList<QRect> geometries;
    for (const QScreen* screen : QGuiApplication::screens())
        geometries.append(screen->geometry());
    return screenHolding(QCursor::pos(), geometries);
}

}

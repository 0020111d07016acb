#include "windowsystem/screencapture.h"

#include <QPixmap>

namespace Windowing {

ScreenCapture::ScreenCapture(QScreen& captured)
    : screen(&captured)
    , topLeft(captured.geometry().topLeft())
{
}

void ScreenCapture::begin()
{
    // A grab without a size ends exactly at the screen's edge. One with a size is rounded from
    // logical pixels and can miss the last column at a fractional ratio.
    if (screen && grabbed.isNull())
        grabbed = screen->grabWindow(0).toImage();
    grabbed.setDevicePixelRatio(1.0);
}

void ScreenCapture::secure()
{
    ScreenCapture::begin();
}

QImage ScreenCapture::image()
{
    return grabbed;
}

bool ScreenCapture::show(const QImage& /*picture*/, const QWindow& /*window*/,
                         const QRegion& /*region*/) const
{
    return false;
}

}

#pragma once

#include "overlay/frameenginess.h"
#include "overlay/transparentframe.h"

#include <QImage>
#include <QPixmap>
#include <QRect>

/// What the engine of a frame of this geometry has taken.
/// @param screen  number of the screen that the frame opens on
inline QPixmap pictureTaken(const QRect& area, int screen)
{
    using namespace Helpers::NQt;
    TransparentFrame frame(nullptr, TransparentFrame::ScreenshotEngine, 10, 10);
    frame.setGeometry(area);
    FrameEngineSS engine(&frame, screen);
    engine.init();
    return *engine.background();
}

/// The picture's own pixels, ready for comparing.
inline QImage pixels(const QPixmap& picture)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1.0);
    return image;
}

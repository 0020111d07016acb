#include "overlay/sharpimage.h"

#include <QGuiApplication>

namespace Helpers::NQt {

QPixmap sharpImage(const QString& path, qreal devicePixelRatio)
{
    constexpr int largestVariant = 3;
    const int variant = qBound(1, qRound(devicePixelRatio), largestVariant);
    if (variant == 1)
        return QPixmap(path);
    QString name = path;
    name.insert(name.lastIndexOf('.'), QStringLiteral("@%1x").arg(variant));
    return QPixmap(name);
}

QCursor sharpCursor(const QPixmap& image, QPoint hotSpot)
{
    if (image.isNull())
        return QCursor();
    // The X11 plug-in (seen in Qt 6.4.2 and 6.8.2) hands the image on in its own pixels and leaves the hot
    // spot unscaled. The end-to-end tests of cursors fail when a later one scales it.
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        hotSpot *= image.devicePixelRatio();
    return QCursor(image, hotSpot.x(), hotSpot.y());
}

}

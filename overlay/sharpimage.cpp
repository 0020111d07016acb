#include "overlay/sharpimage.h"

#include "windowsystem/windowsystem.h"

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
    hotSpot = Windowing::WindowSystem::ofSession().cursorHotSpot(hotSpot, image.devicePixelRatio());
    return QCursor(image, hotSpot.x(), hotSpot.y());
}

}

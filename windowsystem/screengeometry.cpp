#include "windowsystem/screengeometry.h"

#include <QtMath>

#include <algorithm>
#include <limits>

namespace Windowing {

namespace {

qint64 squaredDistance(QPoint point, const QRect& rect)
{
    const qint64 dx = std::max({rect.left() - point.x(), 0, point.x() - rect.right()});
    const qint64 dy = std::max({rect.top() - point.y(), 0, point.y() - rect.bottom()});
    return dx * dx + dy * dy;
}

int coveringLength(int device, qreal ratio)
{
    int length = static_cast<int>(device / ratio);
    while (qRound(length * ratio) < device)
        ++length;
    return length;
}

bool isRoundedFrom(int logical, int device, qreal ratio)
{
    return qAbs(logical * ratio - device) <= ratio;
}

}

int screenHolding(QPoint point, const QList<QRect>& screens)
{
    int nearest = 0;
    qint64 smallest = std::numeric_limits<qint64>::max();
    for (int index = 0; index < screens.size(); ++index) {
        const qint64 distance = squaredDistance(point, screens[index]);
        if (distance < smallest) {
            smallest = distance;
            nearest = index;
        }
    }
    return nearest;
}

QRect deviceRect(const QRect& area, QPoint screenOrigin, qreal ratio)
{
    const QPointF offset = QPointF(area.topLeft() - screenOrigin) * ratio;
    const QSizeF size = QSizeF(area.size()) * ratio;
    return {screenOrigin + offset.toPoint(), QSize(qCeil(size.width()), qCeil(size.height()))};
}

QRegion deviceRegion(const QRegion& region, qreal ratio)
{
    QRegion pixels;
    for (const QRect& rect : region) {
        pixels +=
            QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio).toAlignedRect();
    }
    return pixels;
}

QSize coveringSize(QSize device, qreal ratio)
{
    return {coveringLength(device.width(), ratio), coveringLength(device.height(), ratio)};
}

std::optional<QRect> monitorOf(const QRect& screen, qreal ratio, const QList<QRect>& monitors)
{
    // Several monitors can begin at the same place: one may show a part of what another shows.
    const auto found =
        std::find_if(monitors.begin(), monitors.end(), [&screen, ratio](const QRect& monitor) {
            return monitor.topLeft() == screen.topLeft()
                && isRoundedFrom(screen.width(), monitor.width(), ratio)
                && isRoundedFrom(screen.height(), monitor.height(), ratio);
        });
    return found == monitors.end() ? std::nullopt : std::optional(*found);
}

}

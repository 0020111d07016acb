#include "os/screencover.h"

#include "os/x11/x11monitors.h"
#include "os/x11/x11window.h"

#include <QScreen>

#include <algorithm>

namespace osUtils::System {

namespace {

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

QSize coveringSize(QSize device, qreal ratio)
{
    return {coveringLength(device.width(), ratio), coveringLength(device.height(), ratio)};
}

std::optional<QRect> monitorOf(const QRect& screen, qreal ratio, const QList<QRect>& monitors)
{
    // Several monitors can begin at the same place: one may show a part of what the other shows.
    const auto found =
        std::find_if(monitors.begin(), monitors.end(), [&screen, ratio](const QRect& monitor) {
            return monitor.topLeft() == screen.topLeft()
                && isRoundedFrom(screen.width(), monitor.width(), ratio)
                && isRoundedFrom(screen.height(), monitor.height(), ratio);
        });
    return found == monitors.end() ? std::nullopt : std::optional(*found);
}

std::optional<QRect> deviceGeometry(const QScreen& screen)
{
    if (!X11::isAvailable())
        return std::nullopt;
    return monitorOf(screen.geometry(), screen.devicePixelRatio(), X11::monitors());
}

QRect coveringGeometry(const QScreen& screen)
{
    const std::optional<QRect> device = deviceGeometry(screen);
    if (!device)
        return screen.geometry();
    return {screen.geometry().topLeft(), coveringSize(device->size(), screen.devicePixelRatio())};
}

}

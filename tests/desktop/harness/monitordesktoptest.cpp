#include "tests/desktop/harness/monitordesktoptest.h"

#include "tests/desktop/harness/monitorserver.h"

#include <QtMath>

std::unique_ptr<XServer> MonitorDesktopTest::startServer()
{
    monitors.reset(); // a new server has none of its modes
    return std::make_unique<MonitorServer>();
}

void MonitorDesktopTest::initTestCase()
{
    if (MonitorServer().display().isEmpty())
        QSKIP("Xorg with its dummy driver does not start; it takes xserver-xorg-video-dummy and "
              "root");
}

bool MonitorDesktopTest::plugIn(const QList<QRect>& places)
{
    if (!monitors)
        monitors.emplace(desktop->display);
    if (!monitors->arrange(places))
        return false;
    desktop->backdrop.fill(Qt::white);
    return true;
}

QList<QRect> MonitorDesktopTest::ownAreas(QRect monitor, qreal scale) const
{
    constexpr int roundingMargin =
        3; // a corner at whole logical pixels need not be one in device pixels
    const QRect palette = PaletteLayout(monitor.size(), scale).area().translated(monitor.topLeft());
    const int dot = qCeil(PenSize * scale);
    return {palette.adjusted(-roundingMargin, -roundingMargin, roundingMargin, roundingMargin),
            QRect(desktop->pointer.position() - QPoint(dot, dot), QSize(2 * dot, 2 * dot))};
}

#include "overlay/desktopgrab.h"

#include "os/screencover.h"
#include "os/screenpicture.h"
#include "overlay/screengeometry.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <utility>
#include <vector>

namespace Helpers::NQt {

namespace {

/// One screen's picture and its place, both in device pixels.
struct ScreenPicture {
    QPixmap picture;
    QPoint origin;

    QRect rect() const { return {origin, picture.size()}; }
};

QPixmap pictureOf(QScreen& screen)
{
    QImage direct = osUtils::System::screenPicture(screen);
    if (direct.isNull())
        return screen.grabWindow(0);
    QPixmap picture = QPixmap::fromImage(std::move(direct), Qt::NoFormatConversion);
    picture.setDevicePixelRatio(screen.devicePixelRatio());
    return picture;
}

// A grab without a size ends exactly at the screen's edge. One with a size is rounded from logical
// pixels and can miss the last column at a fractional ratio.
ScreenPicture grabScreen(QScreen& screen)
{
    ScreenPicture grabbed{pictureOf(screen), screen.geometry().topLeft()};
    grabbed.picture.setDevicePixelRatio(1.0);
    return grabbed;
}

std::vector<ScreenPicture> grabScreens()
{
    std::vector<ScreenPicture> pictures;
    for (QScreen* screen : QGuiApplication::screens()) {
        ScreenPicture grabbed = grabScreen(*screen);
        if (!grabbed.picture.isNull())
            pictures.push_back(std::move(grabbed));
    }
    return pictures;
}

QPixmap composed(const std::vector<ScreenPicture>& pictures, const QRect& area, qreal ratio)
{
    if (pictures.empty())
        return {};
    QPixmap whole(area.size());
    if (whole.isNull())
        return {};
    whole.fill(Qt::black);
    QPainter painter(&whole);
    for (const ScreenPicture& part : pictures)
        painter.drawPixmap(part.origin - area.topLeft(), part.picture);
    painter.end();
    whole.setDevicePixelRatio(ratio);
    return whole;
}

}

QPixmap grabArea(const QRect& area, QScreen& screen)
{
    if (area == osUtils::System::coveringGeometry(screen))
        return pictureOf(screen);
    const qreal ratio = screen.devicePixelRatio();
    return composed(grabScreens(), deviceRect(area, screen.geometry().topLeft(), ratio), ratio);
}

QPixmap grabDesktop(const QScreen& screen)
{
    const std::vector<ScreenPicture> pictures = grabScreens();
    QRect desktop;
    for (const ScreenPicture& part : pictures)
        desktop |= part.rect();
    return composed(pictures, desktop, screen.devicePixelRatio());
}

}

#include "overlay/desktopgrab.h"

#include "os/screencover.h"
#include "overlay/screengeometry.h"

#include <QGuiApplication>
#include <QPainter>

#include <utility>

namespace Helpers::NQt {

namespace {

/// One screen's picture and its place, both in device pixels.
struct PlacedPicture {
    QPixmap picture;
    QPoint origin;

    QRect rect() const { return {origin, picture.size()}; }
};

QRect rectAround(const std::vector<PlacedPicture>& pictures)
{
    QRect all;
    for (const PlacedPicture& part : pictures)
        all |= part.rect();
    return all;
}

QPixmap composed(std::vector<PlacedPicture> pictures, const QRect& area)
{
    // As it is, without a copy: nor may the pixmap be another's, too, when it is given its ratio.
    if (pictures.size() == 1 && pictures.front().rect() == area)
        return std::move(pictures.front().picture);
    QPixmap whole(area.size());
    if (whole.isNull())
        return {};
    whole.fill(Qt::black);
    QPainter painter(&whole);
    for (const PlacedPicture& part : pictures)
        painter.drawPixmap(part.origin - area.topLeft(), part.picture);
    return whole;
}

}

DesktopGrab::ScreenGrab::ScreenGrab(QScreen& grabbed)
    : screen(&grabbed)
    , topLeft(grabbed.geometry().topLeft())
    , direct(grabbed)
{
}

void DesktopGrab::ScreenGrab::begin()
{
    direct.begin();
    if (!direct.isPossible())
        grabIndirectly();
}

void DesktopGrab::ScreenGrab::secure()
{
    if (!direct.secure())
        grabIndirectly();
}

void DesktopGrab::ScreenGrab::grabIndirectly()
{
    // A grab without a size ends exactly at the screen's edge. One with a size is rounded from logical
    // pixels and can miss the last column at a fractional ratio.
    if (screen && indirect.isNull())
        indirect = screen->grabWindow(0);
}

QPixmap DesktopGrab::ScreenGrab::take()
{
    QImage fetched = direct.take();
    if (!fetched.isNull())
        return QPixmap::fromImage(std::move(fetched), Qt::NoFormatConversion);
    indirect.setDevicePixelRatio(1.0);
    return indirect;
}

DesktopGrab::DesktopGrab(const QList<QScreen*>& screens, std::optional<QRect> wanted,
                         qreal devicePixelRatio)
    : area(wanted)
    , ratio(devicePixelRatio)
{
    for (QScreen* screen : screens)
        parts.emplace_back(*screen);
}

DesktopGrab DesktopGrab::ofArea(const QRect& area, QScreen& screen)
{
    const qreal ratio = screen.devicePixelRatio();
    if (area == osUtils::System::coveringGeometry(screen))
        return {{&screen}, std::nullopt, ratio};
    return {QGuiApplication::screens(), deviceRect(area, screen.geometry().topLeft(), ratio),
            ratio};
}

DesktopGrab DesktopGrab::ofDesktop(const QScreen& screen)
{
    return {QGuiApplication::screens(), std::nullopt, screen.devicePixelRatio()};
}

void DesktopGrab::begin()
{
    for (ScreenGrab& part : parts)
        part.begin();
}

void DesktopGrab::secure()
{
    begin();
    for (ScreenGrab& part : parts)
        part.secure();
}

osUtils::System::SharedPixels DesktopGrab::pixels() const
{
    return isOneScreen() ? parts.front().pixels() : osUtils::System::SharedPixels();
}

QImage DesktopGrab::draft() const
{
    if (!isOneScreen())
        return {};
    QImage picture = parts.front().draft();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void DesktopGrab::complete()
{
    for (ScreenGrab& part : parts)
        part.complete();
}

QPixmap DesktopGrab::take()
{
    secure();
    std::vector<PlacedPicture> pictures;
    for (ScreenGrab& part : parts) {
        PlacedPicture placed{part.take(), part.origin()};
        if (!placed.picture.isNull())
            pictures.push_back(std::move(placed));
    }
    if (pictures.empty())
        return {};
    const QRect whole = area.value_or(rectAround(pictures));
    QPixmap picture = composed(std::move(pictures), whole);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

}

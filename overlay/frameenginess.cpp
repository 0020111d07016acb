#include "overlay/frameenginess.h"

#include "overlay/transparentframe.h"
#include "windowsystem/screengeometry.h"
#include "windowsystem/windowsystem.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace Helpers::NQt {

namespace {

// On the screen with this number the picture shows the whole desktop, from its top-left corner.
constexpr int wholeDesktopScreen = 1;

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

/// Black where there is no screen.
/// @param wanted  no value means the area of all pictures
QPixmap composed(std::vector<PlacedPicture> pictures, std::optional<QRect> wanted)
{
    if (pictures.empty())
        return {};
    const QRect area = wanted.value_or(rectAround(pictures));
    // Moved, not copied: setting the ratio of a pixmap that somebody else holds too would copy it.
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

FrameEngineSS::FrameEngineSS(TransparentFrame* owner, int screenNumber)
    : FrameEngine(owner)
    , screen(screenNumber)
{
}

void FrameEngineSS::init()
{
    frame->setAttribute(Qt::WA_OpaquePaintEvent);
    printScreen();
}

void FrameEngineSS::printScreen()
{
    const auto& system = Windowing::WindowSystem::ofSession();
    QScreen* const home =
        QGuiApplication::screens().value(screen, QGuiApplication::primaryScreen());
    pixmap = QPixmap();
    captures.clear();
    area.reset();
    isTaken = !home;
    if (!home)
        return;
    ratio = home->devicePixelRatio();
    const QRect place = frame->geometry();
    if (screen != wholeDesktopScreen && place == system.coveringGeometry(*home)) {
        captures.push_back(system.capture(*home));
        return;
    }
    for (QScreen* part : QGuiApplication::screens())
        captures.push_back(system.capture(*part));
    if (screen != wholeDesktopScreen)
        area = Windowing::deviceRect(place, home->geometry().topLeft(), ratio);
}

QPixmap* FrameEngineSS::background()
{
    if (!isTaken) {
        secureBackground();
        pixmap = picture();
        isTaken = true;
    }
    return &pixmap;
}

QPixmap FrameEngineSS::picture()
{
    std::vector<PlacedPicture> parts;
    for (const auto& capture : captures) {
        QImage image = capture->image();
        if (!image.isNull())
            parts.push_back(
                {QPixmap::fromImage(std::move(image), Qt::NoFormatConversion), capture->origin()});
    }
    QPixmap whole = composed(std::move(parts), area);
    whole.setDevicePixelRatio(ratio);
    return whole;
}

void FrameEngineSS::fetchBackground()
{
    for (const auto& capture : captures)
        capture->begin();
}

void FrameEngineSS::secureBackground()
{
    fetchBackground();
    for (const auto& capture : captures)
        capture->secure();
}

bool FrameEngineSS::showBackground(const QWindow& window, const QRegion& region)
{
    // show() refuses a picture that a tool has put into the pixmap: it does not lie in the shared
    // memory.
    return FrameEngine::drawBack && isOneScreen()
        && captures.front()->show(isTaken ? pixmap.toImage() : QImage(), window,
                                  Windowing::deviceRegion(region, window.devicePixelRatio()));
}

QImage FrameEngineSS::draft() const
{
    QImage draft = !isTaken && isOneScreen() ? captures.front()->draft() : QImage();
    draft.setDevicePixelRatio(ratio);
    return draft;
}

void FrameEngineSS::paint(QPaintDevice* device)
{
    if (FrameEngine::drawBack)
        drawBack(device, QPoint(0, 0), frame->rect());
    frame->draw(device);
    // Queued, so that the first paint reaches the screen before the capture is completed.
    if (!draft().isNull())
        QMetaObject::invokeMethod(
            frame, [this] { completePicture(); }, Qt::QueuedConnection);
}

void FrameEngineSS::completePicture()
{
    if (isOneScreen())
        captures.front()->complete();
}

void FrameEngineSS::drawBack(QPaintDevice* device, QPoint at, QRect source)
{
    QPainter painter(device);
    drawBack(&painter, at, source);
}

void FrameEngineSS::drawBack(QPainter* painter, QPoint at, QRect source)
{
    drawBack(painter, at, QRectF(source));
}

void FrameEngineSS::drawBack(QPainter* painter, QPoint at, QRectF source)
{
    // The whole picture, clipped: a part cut out at a fractional ratio would begin between two of
    // the picture's pixels and be resampled.
    const QPointF origin = QPointF(at) - source.topLeft();
    painter->save();
    painter->setClipRect(source.translated(origin), Qt::IntersectClip);
    // A draft lacks the opacity, which matters on a translucent window and on any other paint
    // device.
    const bool isOpaque =
        painter->device() == frame && !frame->testAttribute(Qt::WA_TranslucentBackground);
    if (const QImage early = isOpaque ? draft() : QImage(); !early.isNull())
        painter->drawImage(origin, early);
    else
        painter->drawPixmap(origin, *background());
    painter->restore();
}

}

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

// On the screen of this number the picture is that of the whole desktop, shown from its top-left
// corner.
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
/// @param wanted  without a value as much as the pictures take
QPixmap composed(std::vector<PlacedPicture> pictures, std::optional<QRect> wanted)
{
    if (pictures.empty())
        return {};
    const QRect area = wanted.value_or(rectAround(pictures));
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
    // A tool that puts another picture in the pixmap's place has left the memory.
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
    // The first picture is on the screen before the captured one is complete.
    if (!isTaken && isOneScreen())
        QMetaObject::invokeMethod(
            frame, [this] { completePicture(); }, Qt::QueuedConnection);
}

void FrameEngineSS::completePicture()
{
    if (!isTaken && isOneScreen())
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
    // The whole picture behind a clip: a part cut out at a fractional ratio would begin between two
    // of the picture's pixels and be resampled.
    const QPointF origin = QPointF(at) - source.topLeft();
    painter->save();
    painter->setClipRect(source.translated(origin), Qt::IntersectClip);
    // What a draft lacks stands for the opacity, which a window has that lets others through, and a picture of a
    // tool's own.
    const bool isOpaque =
        painter->device() == frame && !frame->testAttribute(Qt::WA_TranslucentBackground);
    if (const QImage early = isOpaque ? draft() : QImage(); !early.isNull())
        painter->drawImage(origin, early);
    else
        painter->drawPixmap(origin, *background());
    painter->restore();
}

}

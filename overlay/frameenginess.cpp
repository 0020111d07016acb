#include "overlay/frameenginess.h"

#include "overlay/screengeometry.h"
#include "overlay/transparentframe.h"
#include "overlay/windowplatform.h"

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
    QScreen* const home =
        QGuiApplication::screens().value(screen, QGuiApplication::primaryScreen());
    pixmap = QPixmap();
    pixels = {};
    draft = {};
    coming.reset();
    if (!home)
        return;
    coming = screen == wholeDesktopScreen ? DesktopGrab::ofDesktop(*home)
                                          : DesktopGrab::ofArea(frame->geometry(), *home);
}

QPixmap* FrameEngineSS::background()
{
    secureBackground();
    draft = {};
    if (coming)
        pixmap = std::exchange(coming, std::nullopt)->take();
    return &pixmap;
}

void FrameEngineSS::fetchBackground()
{
    if (coming)
        coming->begin();
}

void FrameEngineSS::secureBackground()
{
    if (!coming)
        return;
    coming->secure();
    pixels = coming->pixels();
    draft = coming->draft();
}

bool FrameEngineSS::showBackground(const QWindow& window, const QRegion& region)
{
    return FrameEngine::drawBack && isInSharedMemory()
        && windowPlatform(QGuiApplication::platformName())
               .showPixels(window, pixels, deviceRegion(region, window.devicePixelRatio()));
}

bool FrameEngineSS::isInSharedMemory() const
{
    // A tool that puts another picture in its place has left the memory.
    return pixels.memory && (coming || pixmap.toImage().constBits() == pixels.memory->data());
}

void FrameEngineSS::paint(QPaintDevice* device)
{
    if (FrameEngine::drawBack)
        drawBack(device, QPoint(0, 0), frame->rect());
    frame->draw(device);
    if (!draft.isNull())
        QMetaObject::invokeMethod(
            frame, [this] { completePicture(); }, Qt::QueuedConnection);
}

void FrameEngineSS::completePicture()
{
    draft = {};
    if (coming)
        coming->complete();
}

bool FrameEngineSS::showsDraft(const QPainter& painter) const
{
    // The byte that is still anything stands for the opacity, which a window has that lets others through, and a
    // picture of a tool's own.
    return !draft.isNull() && painter.device() == frame
        && !frame->testAttribute(Qt::WA_TranslucentBackground);
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
    if (showsDraft(*painter))
        painter->drawImage(origin, draft);
    else
        painter->drawPixmap(origin, *background());
    painter->restore();
}

}

#include "overlay/frameenginess.h"

#include "overlay/transparentframe.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

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
    coming.reset();
    if (!home)
        return;
    coming = screen == wholeDesktopScreen ? DesktopGrab::ofDesktop(*home)
                                          : DesktopGrab::ofArea(frame->geometry(), *home);
}

QPixmap* FrameEngineSS::background()
{
    if (coming)
        pixmap = std::exchange(coming, std::nullopt)->take();
    return &pixmap;
}

void FrameEngineSS::fetchBackground()
{
    if (coming)
        coming->begin();
}

void FrameEngineSS::paint(QPaintDevice* device)
{
    if (FrameEngine::drawBack)
        drawBack(device, QPoint(0, 0), frame->rect());
    frame->draw(device);
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
    painter->drawPixmap(origin, *background());
    painter->restore();
}

}

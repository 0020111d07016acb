#include "overlay/transparentframe.h"

#include "overlay/backgroundexposure.h"
#include "overlay/drawnregioncheck.h"
#include "overlay/frameenginert.h"
#include "overlay/frameenginess.h"
#include "windowsystem/windowsystem.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPalette>
#include <QScreen>

namespace Helpers::NQt {

namespace {

std::unique_ptr<FrameEngine> makeEngine(int engineType, TransparentFrame* frame, int screen)
{
    if (engineType == TransparentFrame::LiveEngine)
        return std::make_unique<FrameEngineRT>(frame);
    return std::make_unique<FrameEngineSS>(frame, screen);
}

/// The palette with the colours of the active window used for inactive windows, too.
QPalette alwaysActive(QPalette palette)
{
    for (int number = 0; number < QPalette::NColorRoles; ++number) {
        const auto role = static_cast<QPalette::ColorRole>(number);
        const QBrush& brush = palette.brush(QPalette::Active, role);
        if (palette.brush(QPalette::Inactive, role) != brush)
            palette.setBrush(QPalette::Inactive, role, brush);
    }
    return palette;
}

}

TransparentFrame::TransparentFrame(QWidget* parent, int engineType, int width, int height)
    : QMainWindow(parent)
{
    const int screen = Windowing::WindowSystem::ofSession().pointerScreen();
    engine = makeEngine(engineType, this, screen);
    exposure = std::make_unique<BackgroundExposure>(*this, *engine);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlags(Qt::FramelessWindowHint);
    coverScreen(screen, QSize(width, height));
    // Makes the frame look the same with and without the keyboard: Qt would otherwise repaint the
    // whole screen when the frame gets it.
    setPalette(alwaysActive(palette()));
    setAttribute(Qt::WA_MouseTracking);
    // Qt merges queued motion events, which turns a fast stroke into a polygon. The platform
    // plug-in sets the attribute on start, so it can be cleared only after that.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    engine->init();
    QMetaObject::invokeMethod(this, &TransparentFrame::fetchBackground, Qt::QueuedConnection);
}

TransparentFrame::~TransparentFrame() = default;

void TransparentFrame::coverScreen(int screen, QSize size)
{
    QScreen* const home =
        QGuiApplication::screens().value(screen, QGuiApplication::primaryScreen());
    if (!home)
        return;
    // Before the native window exists: it takes the device pixel ratio of this screen when created.
    setScreen(home);
    const QRect geometry = Windowing::WindowSystem::ofSession().coveringGeometry(*home);
    const bool explicitSize = size.width() != 0 && size.height() != 0;
    resize(explicitSize ? size : geometry.size());
    move(geometry.topLeft());
}

void TransparentFrame::updateCursor() { }

void TransparentFrame::draw(QPaintDevice* /*device*/) { }

QRegion TransparentFrame::drawnRegion() const
{
    return tellsDrawnRegion() ? toldRegion() : rect();
}

bool TransparentFrame::tellsDrawnRegion() const
{
    return *toldBy == typeid(*this);
}

bool TransparentFrame::getDrawBack() const
{
    return engine->drawBack;
}

void TransparentFrame::setDrawBack(bool drawBack)
{
    engine->setDrawBack(drawBack);
}

QPixmap* TransparentFrame::background()
{
    return engine->background();
}

void TransparentFrame::fetchBackground()
{
    engine->fetchBackground();
}

QPaintDevice* TransparentFrame::paintDevice()
{
    return engine->background();
}

void TransparentFrame::mousePressEvent(QMouseEvent* /*event*/)
{
    updateCursor();
}

void TransparentFrame::showEvent(QShowEvent* event)
{
    // From here on the frame would be in any picture of the screen.
    engine->secureBackground();
    if (windowHandle())
        Windowing::WindowSystem::ofSession().reportPointerOnce(*windowHandle());
    QMainWindow::showEvent(event);
}

void TransparentFrame::paintEvent(QPaintEvent* event)
{
    engine->paint(this);
    event->accept();
    if constexpr (KORVEL_DEVELOPER)
        warnOfPaintOutside(*this);
}

void TransparentFrame::resizeEvent(QResizeEvent* /*event*/)
{
    engine->init();
    engine->fetchBackground();
}

}

#include "action/frame/actionframe.h"

#include "action/frame/quitguard.h"
#include "action/frame/repaintpace.h"
#include "action/toolbar/actiontoolbar.h"
#include "action/toolbar/palettegeometry.h"
#include "os/presentationmode.h"
#include "overlay/windowutils.h"
#include "windowsystem/nativewindow.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineF>
#include <QWindow>

#include <utility>

namespace VcAction::Frame {

namespace {

constexpr int allHiddenMode = 3;
/// From here on one rectangle around all is painted sooner than each by itself.
constexpr int manyRectangles = 50;

}

ActionFrame::ActionFrame(QWidget* parent, int engineType, int width, int height)
    : TransparentFrame(parent, engineType, width, height)
    , movePace(new RepaintPace([this] { repaintDirty(); }, [this] { awaitTransfer(); }, this))
{
    QuitGuard::guard(*QCoreApplication::instance());
    connect(QCoreApplication::instance(), SIGNAL(aboutToQuit()), QCoreApplication::instance(),
            SLOT(quit()));
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_QuitOnClose, true);
    // Whoever goes on drawing has left the palette: keys no longer step its lists.
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(tr("Drawing area"));
    Helpers::NQt::Utils::setWindowShadow(this, false);
    osUtils::System::setSystemUIMode(allHiddenMode, 0);
}

void ActionFrame::setToolbar(VcAction::Toolbar::ActionToolbar* palette)
{
    toolbar = palette;
    if (!toolbar)
        return;
    toolbar->move(VcAction::Toolbar::cornerPosition(frameGeometry().size(), toolbar->size()));
    // Else nobody could open its shutter again.
    Windowing::NativeWindow::of(*this).goOnCatchingMouseOver(*toolbar);
}

void ActionFrame::start(bool withraise)
{
    // Else Qt gives the keyboard to the palette's first control, where letters step a list.
    setFocus();
    repaint();
    setVisible(true);
    if (withraise) {
        activateWindow();
        raise();
        // Not every window manager takes the keyboard from a full-screen program for a new window,
        // and Qt asks one that has crashed.
        Windowing::NativeWindow::of(*this).takeKeyboard();
    }
    if (toolbar)
        toolbar->start();
}

void ActionFrame::switchMouseTransMode()
{
    mouseTransparent = !mouseTransparent;
    Helpers::NQt::Utils::setIgnoresMouseEvents(this, mouseTransparent);
    // The keyboard may have gone to a window below, and Escape with it.
    if (!mouseTransparent)
        activateWindow();
}

void ActionFrame::closeAction()
{
    if (toolbar)
        toolbar->close();
    QCoreApplication::quit();
}

void ActionFrame::mousePressEvent(QMouseEvent* /*event*/)
{
    // Qt asks for it only if it knows that the frame has lost the keyboard, which it learns
    // a tenth of a second after the fact.
    activateWindow();
    if (toolbar)
        toolbar->fadeOut();
    updateCursor();
    repaintDirty();
}

void ActionFrame::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        QCoreApplication::quit();
    else
        event->ignore();
}

void ActionFrame::enterEvent(QEnterEvent* /*event*/)
{
    if (!toolbar || toolbar->hasCBFocus())
        return;
    toolbar->fadeOut();
    updateCursor();
    repaintDirty();
}

// The base's handlers would paint the whole screen once more, although nothing on the frame shows
// whether it has the keys.
void ActionFrame::focusInEvent(QFocusEvent* /*event*/) { }

void ActionFrame::focusOutEvent(QFocusEvent* /*event*/) { }

void ActionFrame::resizeEvent(QResizeEvent* /*event*/)
{
    // The base's handler stays out: it would take a new picture, and of the frame itself once
    // shown.
    if (!toolbar)
        return;
    toolbar->hide();
    toolbar->repaint();
    repaint();
    toolbar->show();
    toolbar->repaint();
    repaint();
}

QPointF ActionFrame::exactPosition(const QMouseEvent& event)
{
    // The frame is a window: its coordinates are the scene's. But the first move after the pointer
    // has left a child widget has none (seen in Qt 6.4.2).
    const QPointF exact = event.scenePosition();
    const QPointF rounded = event.position();
    return QLineF(exact, rounded).length() < 1 ? exact : rounded;
}

void ActionFrame::trackDirtyRegion()
{
    // In a constructor that is the class whose constructor it is.
    dirtyRegionTracker = &typeid(*this);
}

void ActionFrame::markDirty(const QRegion& region)
{
    dirtyRegion += region;
    if (dirtyRegion.rectCount() > manyRectangles)
        dirtyRegion = dirtyRegion.boundingRect();
}

void ActionFrame::repaintDirty()
{
    movePace->allRepainted();
    if (*dirtyRegionTracker != typeid(*this)) {
        dirtyRegion = {};
        repaint();
        return;
    }
    lastRepainted = dirtyRegion.boundingRect();
    repaint(std::exchange(dirtyRegion, {}));
}

void ActionFrame::awaitTransfer()
{
    // Qt paints in memory that the window system reads. Before it paints again where it has shown
    // something last, it asks whether that has been read, which takes as long as the paint. Begun
    // now, between two moves of the hand, the next one need not wait for it. (Where the frame is
    // translucent, to begin a paint is to clear.)
    if (!backingStore() || lastRepainted.isEmpty() || testAttribute(Qt::WA_TranslucentBackground))
        return;
    backingStore()->beginPaint(lastRepainted & rect());
    backingStore()->endPaint();
}

void ActionFrame::repaintMove(const QMouseEvent& move)
{
    // Only those of the window system queue up.
    if (move.spontaneous())
        movePace->ask();
    else
        repaintDirty();
}

bool ActionFrame::isPointerOverToolbar() const
{
    return toolbar && toolbar->geometry().contains(mapFromGlobal(QCursor::pos()));
}

}

#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest/qtestspontaneevent.h>

/// Input events handed to a widget, as those of the window system are. Positions are in the
/// widget's coordinates, logical pixels.
///
/// Each function tells whether the event was accepted. What a widget leaves alone is passed up to
/// its parents, as Qt does it.
namespace TestSupport {

inline bool sendMouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button,
                      Qt::MouseButtons held)
{
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
    return event.isAccepted();
}

inline bool press(QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseButtonPress, at, button, button);
}

inline bool moveTo(QWidget& widget, QPointF at, Qt::MouseButtons held = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, held);
}

inline bool hoverTo(QWidget& widget, QPointF at)
{
    return moveTo(widget, at, Qt::NoButton);
}

inline bool release(QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

/// @param angle  in eighths of a degree, y for a vertical wheel
/// @param pixels  as told by devices that scroll by pixels
inline bool turnWheel(QWidget& widget, QPointF at, QPoint angle, QPoint pixels = QPoint())
{
    QWheelEvent event(at, widget.mapToGlobal(at), pixels, angle, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

inline bool pressKey(QWidget& widget, Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

inline void enter(QWidget& widget, QPointF at)
{
    QEnterEvent event(at, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &event);
}

inline void leave(QWidget& widget)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

/// Puts the pointer somewhere on the screen, once and for all: what the move causes is done.
inline void putPointer(QPoint global)
{
    QCursor::setPos(global);
    QCoreApplication::processEvents();
}

}

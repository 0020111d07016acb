#include "tests/desktop/harness/pointer.h"

#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/xconnection.h"

#include <QLineF>

#include <xcb/xtest.h>

void Pointer::send(int type, int detail, QPoint point) const
{
    xcb_test_fake_input(x.raw(), static_cast<uint8_t>(type), static_cast<uint8_t>(detail),
                        XCB_CURRENT_TIME, x.root(), static_cast<int16_t>(point.x()),
                        static_cast<int16_t>(point.y()), 0);
    x.synchronise(); // one by one, or the server could merge moves
}

void Pointer::moveTo(QPoint point) const
{
    constexpr int absolute = 0;
    send(XCB_MOTION_NOTIFY, absolute, point);
    // A window manager may hold the pointer for a moment after a press, to look at it first. Moves
    // that arrive meanwhile would lose their places.
    static_cast<void>(eventually([&] { return position() == point; }));
}

void Pointer::press(Button button) const
{
    send(XCB_BUTTON_PRESS, static_cast<int>(button));
}

void Pointer::release(Button button) const
{
    send(XCB_BUTTON_RELEASE, static_cast<int>(button));
    // For the same reason: a move that arrived before the window manager had let go would come
    // before the release.
    static_cast<void>(eventually([&] { return !isHeld(button); }));
}

void Pointer::click(QPoint point, Button button) const
{
    drag({point}, button);
}

void Pointer::drag(const QList<QPoint>& path, Button button) const
{
    moveTo(path.first());
    press(button);
    for (const QPoint& point : path.mid(1))
        moveTo(point);
    release(button);
}

void Pointer::turn(Wheel direction, int notches) const
{
    // To the server a notch is a click of a button with a higher number.
    for (int notch = 0; notch < notches; ++notch) {
        send(XCB_BUTTON_PRESS, static_cast<int>(direction));
        send(XCB_BUTTON_RELEASE, static_cast<int>(direction));
    }
}

bool Pointer::isHeld(Button button) const
{
    const auto cookie = xcb_query_pointer(x.raw(), x.root());
    const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(x.raw(), cookie, nullptr));
    const int firstButton = XCB_KEY_BUT_MASK_BUTTON_1;
    return reply && (reply->mask & (firstButton << (static_cast<int>(button) - 1))) != 0;
}

QPoint Pointer::position() const
{
    const auto cookie = xcb_query_pointer(x.raw(), x.root());
    const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(x.raw(), cookie, nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

QList<QPoint> line(QPoint from, QPoint to, int step)
{
    const QLineF whole(from, to);
    const int parts = qMax(1, qRound(whole.length() / step));
    QList<QPoint> points;
    for (int part = 0; part <= parts; ++part)
        points.append(whole.pointAt(static_cast<qreal>(part) / parts).toPoint());
    return points;
}

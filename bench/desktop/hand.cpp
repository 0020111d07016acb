#include "bench/desktop/hand.h"

#include "bench/desktop/clock.h"
#include "tests/desktop/harness/xconnection.h"

#include <xcb/xtest.h>

#include <thread>

namespace Bench {

namespace {

constexpr int LeftButton = 1;

}

void Hand::send(int type, int detail, QPoint point) const
{
    xcb_test_fake_input(x.raw(), static_cast<uint8_t>(type), static_cast<uint8_t>(detail),
                        XCB_CURRENT_TIME, x.root(), static_cast<int16_t>(point.x()),
                        static_cast<int16_t>(point.y()), 0);
    xcb_flush(x.raw());
}

void Hand::moveTo(QPoint point) const
{
    constexpr int absolute = 0;
    send(XCB_MOTION_NOTIFY, absolute, point);
}

void Hand::press() const
{
    send(XCB_BUTTON_PRESS, LeftButton);
}

void Hand::release() const
{
    send(XCB_BUTTON_RELEASE, LeftButton);
}

void Hand::turn(Wheel direction) const
{
    send(XCB_BUTTON_PRESS, static_cast<int>(direction));
    send(XCB_BUTTON_RELEASE, static_cast<int>(direction));
}

void Hand::rush(const QList<QPoint>& points) const
{
    for (const QPoint point : points)
        moveTo(point);
}

void Hand::sweep(const QList<QPoint>& points, int rate) const
{
    const auto interval = std::chrono::nanoseconds(std::chrono::seconds(1)) / rate;
    Clock::time_point due = Clock::now();
    for (const QPoint point : points) {
        std::this_thread::sleep_until(due);
        moveTo(point);
        due += interval;
    }
}

}

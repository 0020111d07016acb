#include "tests/desktop/harness/inputdevice.h"

#include "tests/desktop/harness/eventually.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>

InputDevice::InputDevice(const QByteArray& socket, QSize screenSize)
    : connection(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    , screen(screenSize)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy_n(socket.begin(), std::min<size_t>(socket.size(), sizeof address.sun_path - 1),
                address.sun_path);
    const auto* generic = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(connection.number(), generic, sizeof address) != 0)
        return;
    send(xf86ITEventClientVersion{{}, XF86IT_PROTOCOL_VERSION_MAJOR, XF86IT_PROTOCOL_VERSION_MINOR},
         XF86IT_EVENT_CLIENT_VERSION);
    connected = readAnswer(XF86IT_RESPONSE_SERVER_VERSION);
}

void InputDevice::moveBy(QPoint distance)
{
    xf86ITEventMotion event{};
    set(event.valuators, X, distance.x());
    set(event.valuators, Y, distance.y());
    send(event, XF86IT_EVENT_MOTION);
    synchronise();
}

void InputDevice::scroll(QPointF distance)
{
    xf86ITEventMotion event{};
    set(event.valuators, HorizontalScroll, distance.x());
    set(event.valuators, VerticalScroll, distance.y());
    send(event, XF86IT_EVENT_MOTION);
    synchronise();
}

void InputDevice::comeNear(bool isNear)
{
    xf86ITEventProximity event{};
    event.is_prox_in = isNear;
    send(event, XF86IT_EVENT_PROXIMITY);
    synchronise();
}

void InputDevice::penMove(QPoint place, double pressure)
{
    xf86ITEventMotion event{};
    event.is_absolute = 1;
    setPlace(event.valuators, place);
    set(event.valuators, Pressure, pressure);
    send(event, XF86IT_EVENT_MOTION);
    synchronise();
}

void InputDevice::penTip(bool isDown)
{
    xf86ITEventButton event{};
    event.is_absolute = 1;
    event.button = 1;
    event.is_press = isDown;
    send(event, XF86IT_EVENT_BUTTON);
    synchronise();
}

void InputDevice::touch(TouchType type, QPoint place)
{
    xf86ITEventTouch event{};
    event.touchid = 1;
    event.touch_type = type;
    setPlace(event.valuators, place);
    send(event, XF86IT_EVENT_TOUCH);
    synchronise();
}

void InputDevice::set(xf86ITValuatorData& data, Axis axis, double value)
{
    data.mask[0] |= static_cast<uint8_t>(1U << axis);
    data.valuators[axis] = value;
}

void InputDevice::setPlace(xf86ITValuatorData& data, QPoint place) const
{
    constexpr double range = 65536; // of the driver's axes
    set(data, X, place.x() * range / screen.width());
    set(data, Y, place.y() * range / screen.height());
}

template <typename Event> void InputDevice::send(Event event, xf86ITEventType type)
{
    event.header = {sizeof event, type};
    static_cast<void>(::write(connection.number(), &event, sizeof event));
}

void InputDevice::synchronise()
{
    send(xf86ITEventWaitForSync{}, XF86IT_EVENT_WAIT_FOR_SYNC);
    connected = readAnswer(XF86IT_RESPONSE_SYNC_FINISHED);
}

bool InputDevice::readAnswer(xf86ITResponseType type)
{
    xf86ITResponseAny answer{};
    pollfd readable{connection.number(), POLLIN, 0};
    if (::poll(&readable, 1, static_cast<int>(patience().count())) != 1)
        return false;
    const ssize_t length = ::read(connection.number(), &answer, sizeof answer);
    return length >= ssize_t(sizeof answer.header) && answer.header.type == type;
}

#pragma once

#include "windowsystem/filedescriptor.h"

#include <QByteArray>
#include <QPoint>
#include <QSize>

#include <xorg/xf86-input-inputtest-protocol.h>

/// An input device of a MonitorServer, played by the test. Every step has reached the server before
/// its function returns; what a program makes of it is to be waited for. Coordinates are the
/// screen's, in device pixels.
class InputDevice {
public:
    /// @param socket  where the device's driver listens
    /// @param screen  size of the whole desktop, over which devices with places of their own are
    ///                spread
    InputDevice(const QByteArray& socket, QSize screen);

    /// Whether the driver has answered.
    [[nodiscard]] bool isConnected() const { return connected; }

    /// One finger on a touchpad moves the pointer, the farther the faster.
    void moveBy(QPoint distance);
    /// Two fingers on a touchpad.
    /// @param distance  to the right and towards the user; 120 is a notch of a wheel
    void scroll(QPointF distance);

    /// One finger on a touch screen.
    void touchDown(QPoint place) { touch(XI_TouchBegin, place); }
    void touchMove(QPoint place) { touch(XI_TouchUpdate, place); }
    void touchUp(QPoint place) { touch(XI_TouchEnd, place); }

    /// A tablet's pen: near the surface or not, moved with a pressure, its tip put down or lifted.
    void comeNear(bool isNear);
    void penMove(QPoint place, double pressure);
    void penTip(bool isDown);

private:
    enum Axis { X, Y, HorizontalScroll, VerticalScroll, Pressure };
    // The numbers of the X Input extension's events.
    enum TouchType { XI_TouchBegin = 18, XI_TouchUpdate = 19, XI_TouchEnd = 20 };

    void touch(TouchType type, QPoint place);
    static void set(xf86ITValuatorData& data, Axis axis, double value);
    void setPlace(xf86ITValuatorData& data, QPoint place) const;
    template <typename Event> void send(Event event, xf86ITEventType type);
    void synchronise();
    [[nodiscard]] bool readAnswer(xf86ITResponseType type);

    osUtils::FileDescriptor connection;
    const QSize screen;
    bool connected = false;
};

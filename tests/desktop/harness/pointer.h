#pragma once

#include <QList>
#include <QPoint>

class XConnection;

/// The mouse, moved and clicked as if by hand. Every step has reached the server before its
/// function returns; what a program makes of it is to be waited for. Coordinates are the screen's,
/// in device pixels.
class Pointer {
public:
    enum class Button { Left = 1, Middle = 2, Right = 3 };
    enum class Wheel { AwayFromUser = 4, TowardsUser = 5, Left = 6, Right = 7 };

    explicit Pointer(const XConnection& connection)
        : x(connection)
    {
    }

    void moveTo(QPoint point) const;
    void press(Button button = Button::Left) const;
    void release(Button button = Button::Left) const;

    void click(QPoint point, Button button = Button::Left) const;
    /// Presses at the first point, moves through all others, releases at the last.
    void drag(const QList<QPoint>& path, Button button = Button::Left) const;
    void turn(Wheel direction, int notches = 1) const;

    [[nodiscard]] QPoint position() const;

private:
    [[nodiscard]] bool isHeld(Button button) const;
    void send(int type, int detail, QPoint point = {}) const;

    const XConnection& x;
};

/// Points on the straight line between two points, both included.
/// @param step  distance of neighbours, device pixels
[[nodiscard]] QList<QPoint> line(QPoint from, QPoint to, int step = 20);

#pragma once

#include <QList>
#include <QPoint>

class XConnection;

namespace Bench {

/// A hand with the mouse that is as fast as wanted: its events are on their way when a function
/// returns, and nobody waits for what becomes of them. Coordinates are the screen's, in device
/// pixels.
class Hand {
public:
    enum class Wheel { AwayFromUser = 4, TowardsUser = 5 };

    explicit Hand(const XConnection& connection)
        : x(connection)
    {
    }

    void moveTo(QPoint point) const;
    void press() const;
    void release() const;
    void turn(Wheel direction) const;

    /// Moves through all points as fast as the server takes them.
    void rush(const QList<QPoint>& points) const;
    /// Moves through all points at an even pace; returns when the last has been sent.
    /// @param rate  points in a second
    void sweep(const QList<QPoint>& points, int rate) const;

private:
    void send(int type, int detail, QPoint point = {}) const;

    const XConnection& x;
};

}

#pragma once

#include "bench/desktop/clock.h"

#include <QPoint>
#include <QRgb>

class XConnection;

namespace Bench {

/// Watches single pixels of the screen as fast as the server answers. Coordinates in device pixels.
class PixelProbe {
public:
    explicit PixelProbe(const XConnection& connection)
        : x(connection)
    {
    }

    [[nodiscard]] QRgb colourAt(QPoint point) const;
    [[nodiscard]] bool isInk(QPoint point) const;

    /// When ink was first seen there. Throws Failure if none comes.
    Clock::time_point waitForInk(QPoint point) const;
    /// Whether ink comes within a time.
    [[nodiscard]] bool seesInk(QPoint point, Clock::duration limit) const;
    /// Returns when the pixel has kept its colour for the time, and tells when it took it on.
    Clock::time_point waitForRest(QPoint point, Clock::duration restfulTime) const;

private:
    const XConnection& x;
};

/// Whether a colour is that of the programs' pens, red and up to a quarter transparent, on white
/// paper.
[[nodiscard]] constexpr bool isInk(QRgb colour)
{
    return qRed(colour) > 150 && qGreen(colour) < 128;
}

}

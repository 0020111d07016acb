#pragma once

#include <QImage>
#include <QPoint>

class XConnection;

/// The mouse cursor as the screen shows it now.
struct CursorImage {
    QImage picture;
    QPoint hotSpot; ///< in the picture's pixels

    [[nodiscard]] static CursorImage current(const XConnection& x);
};

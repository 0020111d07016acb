#pragma once

#include <QImage>

class XConnection;

/// What lies behind all windows: the root window's background.
class Backdrop {
public:
    explicit Backdrop(const XConnection& connection)
        : x(connection)
    {
    }

    /// Covers the screen with one colour.
    void fill(QColor colour) const;
    /// Covers the screen with a picture in which no two pixels are alike.
    void paintPattern() const;

    /// The picture that paintPattern() shows: each pixel's colour tells its own coordinates.
    [[nodiscard]] static QImage pattern(QSize size);

private:
    const XConnection& x;
};

#pragma once

#include <QImage>

class XConnection;

/// Reads what the user would see, from the root window. The mouse cursor is not part of it.
/// All coordinates are the screen's, in device pixels.
class Screen {
public:
    explicit Screen(const XConnection& connection)
        : x(connection)
    {
    }

    [[nodiscard]] QRect area() const;
    [[nodiscard]] QImage grab() const { return grab(area()); }
    [[nodiscard]] QImage grab(QRect part) const;
    [[nodiscard]] QColor colourAt(QPoint point) const;

private:
    const XConnection& x;
};

/// The picture with some areas painted over, for comparing the rest.
[[nodiscard]] QImage blanked(QImage picture, const QList<QRect>& areas);

/// The smallest rectangle that holds every pixel in which two pictures of the same size differ;
/// empty if there is none.
[[nodiscard]] QRect difference(const QImage& one, const QImage& other);

/// The same without some areas.
[[nodiscard]] QRect difference(const QImage& one, const QImage& other, const QList<QRect>& ignored);

/// Whether any pixel has exactly this colour.
[[nodiscard]] bool contains(const QImage& picture, QColor colour);

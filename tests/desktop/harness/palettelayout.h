#pragma once

#include <QRect>
#include <QSize>

/// Where the palette and its controls lie after the start, in screen coordinates, device pixels.
class PaletteLayout {
public:
    /// @param screen  size in device pixels     @param scale  device pixels to a logical pixel
    /// @param palette  size in logical pixels
    explicit PaletteLayout(QSize screen, qreal scale = 1, QSizeF palette = {305, 85});

    /// The same palette, moved by hand.
    [[nodiscard]] PaletteLayout movedBy(QPoint distance) const;

    [[nodiscard]] QRect area() const;
    /// A place on the palette, given in its own logical coordinates.
    [[nodiscard]] QPoint at(QPointF inside) const;

    [[nodiscard]] QPoint handle() const { return at({20, 26}); }
    [[nodiscard]] QPoint sizeBox() const { return at({80, 46}); }
    [[nodiscard]] QPoint colourBox() const { return at({165, 46}); }
    [[nodiscard]] QPoint transparentBox() const { return at({213, 59}); }
    [[nodiscard]] QPoint closeButton() const { return at({276, 20}); }
    /// Right of the handle, between two controls.
    [[nodiscard]] QPoint background() const { return at({122, 60}); }
    /// In the black disc or square that the size box shows.
    [[nodiscard]] QPoint sizeIcon() const { return at({71, 46}); }
    /// In the middle of the colour box's swatch, which shows the pen colour.
    [[nodiscard]] QPoint swatch() const { return at({156, 46}); }

private:
    qreal scale;
    QSizeF size;
    QPointF corner;
};

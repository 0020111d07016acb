#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QWidget>

#include <cstdlib>

/// Pictures of widgets and what is on them. Images are in device pixels and know their ratio;
/// positions and areas are in logical pixels.
namespace TestSupport {

/// The widget with its children, painted anew.
inline QImage painted(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

/// A picture as large as the widget, of one colour.
inline QPixmap plainPicture(const QWidget& widget, const QColor& colour)
{
    QPixmap picture(widget.size() * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    picture.fill(colour);
    return picture;
}

/// The colour at the middle of a logical pixel.
inline QColor colourAt(const QImage& image, QPoint at)
{
    const QPointF middle = (QPointF(at) + QPointF(0.5, 0.5)) * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(middle.x()), static_cast<int>(middle.y()));
}

inline bool areClose(const QColor& first, const QColor& second, int tolerance)
{
    return std::abs(first.red() - second.red()) <= tolerance
        && std::abs(first.green() - second.green()) <= tolerance
        && std::abs(first.blue() - second.blue()) <= tolerance
        && std::abs(first.alpha() - second.alpha()) <= tolerance;
}

/// The device pixels at which two images of the same size differ, as a box; empty if there are
/// none.
inline QRect differingBox(const QImage& first, const QImage& second)
{
    const QImage one = first.convertToFormat(QImage::Format_ARGB32);
    const QImage other = second.convertToFormat(QImage::Format_ARGB32);
    QRect box;
    for (int y = 0; y < one.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(one.constScanLine(y));
        const auto* otherRow = reinterpret_cast<const QRgb*>(other.constScanLine(y));
        for (int x = 0; x < one.width(); ++x) {
            if (row[x] != otherRow[x])
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

/// The area outside which everything is of the paper's colour; empty for a blank image.
inline QRectF inkBox(const QImage& image, const QColor& paper)
{
    QImage blank(image.size(), QImage::Format_ARGB32);
    blank.fill(paper);
    const QRect box = differingBox(image, blank);
    const qreal ratio = image.devicePixelRatio();
    return QRectF(QPointF(box.topLeft()) / ratio, QSizeF(box.size()) / ratio);
}

}

#include "tests/desktop/harness/screen.h"

#include "tests/desktop/harness/xconnection.h"

#include <QColor>

QRect Screen::area() const
{
    return {QPoint(0, 0), x.size()};
}

QImage Screen::grab(QRect part) const
{
    const auto cookie =
        xcb_get_image(x.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(), static_cast<int16_t>(part.x()),
                      static_cast<int16_t>(part.y()), static_cast<uint16_t>(part.width()),
                      static_cast<uint16_t>(part.height()), ~0U);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(x.raw(), cookie, nullptr));
    if (!reply)
        return {};
    // Depth 24 comes as 32 bits a pixel, which is what this format holds.
    const QImage view(xcb_get_image_data(reply.get()), part.width(), part.height(),
                      part.width() * 4, QImage::Format_RGB32);
    // The server leaves the unused byte as it likes; comparisons should not see it.
    return view.convertToFormat(QImage::Format_RGB888).convertToFormat(QImage::Format_RGB32);
}

QColor Screen::colourAt(QPoint point) const
{
    return grab({point, QSize(1, 1)}).pixelColor(0, 0);
}

QImage blanked(QImage picture, const QList<QRect>& areas)
{
    for (const QRect& area : areas) {
        const QRect inside = area & picture.rect();
        for (int row = inside.top(); row <= inside.bottom(); ++row) {
            for (int column = inside.left(); column <= inside.right(); ++column)
                picture.setPixel(column, row, qRgb(0, 0, 0));
        }
    }
    return picture;
}

QRect difference(const QImage& one, const QImage& other)
{
    QRect result;
    for (int row = 0; row < one.height(); ++row) {
        for (int column = 0; column < one.width(); ++column) {
            if (one.pixel(column, row) != other.pixel(column, row))
                result |= QRect(column, row, 1, 1);
        }
    }
    return result;
}

bool contains(const QImage& picture, QColor colour)
{
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            if (picture.pixelColor(column, row) == colour)
                return true;
        }
    }
    return false;
}

QRect difference(const QImage& one, const QImage& other, const QList<QRect>& ignored)
{
    return difference(blanked(one, ignored), blanked(other, ignored));
}

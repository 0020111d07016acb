#include "overlay/layerpixmap.h"

#include <QImage>
#include <QtMath>

#include <cstdlib>

namespace Helpers::NQt {

namespace {

// Of memory that the system hands out zeroed and provides on first use: a layer as large as the screen
// takes neither time nor memory where nothing is painted on it.
QPixmap transparentPixmap(QSize pixels)
{
    constexpr size_t bytesPerPixel = 4;
    const auto width = static_cast<size_t>(pixels.width());
    const auto height = static_cast<size_t>(pixels.height());
    auto* const zeroed = static_cast<uchar*>(std::calloc(height, width * bytesPerPixel));
    if (!zeroed)
        return {};
    QImage image(zeroed, pixels.width(), pixels.height(),
                 static_cast<qsizetype>(width * bytesPerPixel), QImage::Format_ARGB32_Premultiplied,
                 std::free, zeroed);
    // Without a look at the pixels, which would touch them all.
    return QPixmap::fromImage(std::move(image), Qt::NoFormatConversion);
}

}

QPixmap layerPixmap(QSize size, qreal ratio, const QColor& fill)
{
    const QSize pixels(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    QPixmap layer = fill == QColor(Qt::transparent) && !pixels.isEmpty() ? transparentPixmap(pixels)
                                                                         : QPixmap(pixels);
    layer.setDevicePixelRatio(ratio);
    if (fill != QColor(Qt::transparent))
        layer.fill(fill);
    return layer;
}

}

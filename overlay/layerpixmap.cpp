#include "overlay/layerpixmap.h"

#include <QImage>
#include <QtMath>

#include <cstdlib>
#include <utility>

namespace Helpers::NQt {

namespace {

/// Often as large as the screen and never painted on: zeroed memory from the system is only taken
/// up where it is written to.
QPixmap transparentPixmap(QSize pixels)
{
    const qsizetype rowBytes = pixels.width() * qsizetype{sizeof(QRgb)};
    void* const memory = pixels.isEmpty() ? nullptr : std::calloc(pixels.height(), rowBytes);
    if (!memory)
        return {};
    QImage image(static_cast<uchar*>(memory), pixels.width(), pixels.height(), rowBytes,
                 QImage::Format_ARGB32_Premultiplied, std::free, memory);
    return QPixmap::fromImage(std::move(image), Qt::NoFormatConversion);
}

}

QPixmap layerPixmap(QSize size, qreal ratio, const QColor& fill)
{
    const QSize pixels(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    QPixmap layer = fill.alpha() == 0 ? transparentPixmap(pixels) : QPixmap(pixels);
    if (fill.alpha() != 0)
        layer.fill(fill);
    layer.setDevicePixelRatio(ratio);
    return layer;
}

}

#include "overlay/layerpixmap.h"

#include "os/uniformmemory.h"

#include <QImage>
#include <QtMath>

#include <memory>
#include <utility>

namespace Helpers::NQt {

namespace {

using osUtils::System::UniformMemory;

constexpr qsizetype bytesPerPixel = 4;
/// From here on mapping memory costs less than filling it.
constexpr qsizetype largeBytes = 1 << 20;

void release(void* memory)
{
    const std::unique_ptr<UniformMemory> owned(static_cast<UniformMemory*>(memory));
    osUtils::System::releaseMemory(*owned);
}

// As large as the screen, and mostly never looked at: where nothing is painted on it, it shall take
// neither time nor memory.
QPixmap largePixmap(QSize pixels, const QColor& fill)
{
    const qsizetype bytesPerLine = pixels.width() * bytesPerPixel;
    const UniformMemory memory = osUtils::System::uniformMemory(
        static_cast<size_t>(bytesPerLine * pixels.height()), qPremultiply(fill.rgba()));
    if (!memory.values)
        return {};
    QImage image(reinterpret_cast<uchar*>(memory.values), pixels.width(), pixels.height(),
                 bytesPerLine, QImage::Format_ARGB32_Premultiplied, release,
                 new UniformMemory(memory));
    // Without a look at the pixels, which would touch them all.
    return QPixmap::fromImage(std::move(image), Qt::NoFormatConversion);
}

QPixmap smallPixmap(QSize pixels, const QColor& fill)
{
    QPixmap pixmap(pixels);
    pixmap.fill(fill);
    return pixmap;
}

}

QPixmap layerPixmap(QSize size, qreal ratio, const QColor& fill)
{
    const QSize pixels(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    const qsizetype bytes = bytesPerPixel * pixels.width() * pixels.height();
    QPixmap layer = bytes < largeBytes ? smallPixmap(pixels, fill) : largePixmap(pixels, fill);
    layer.setDevicePixelRatio(ratio);
    return layer;
}

}

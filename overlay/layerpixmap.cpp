#include "overlay/layerpixmap.h"

#include <QtMath>

namespace Helpers::NQt {

QPixmap layerPixmap(QSize size, qreal ratio, const QColor& fill)
{
    QPixmap layer(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    layer.setDevicePixelRatio(ratio);
    layer.fill(fill);
    return layer;
}

}

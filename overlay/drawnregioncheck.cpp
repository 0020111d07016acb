#include "overlay/drawnregioncheck.h"

#include "overlay/transparentframe.h"

#include <QImage>
#include <QPainter>

#include <cstdlib>
#include <memory>
#include <typeinfo>

#include <cxxabi.h>

namespace Helpers::NQt {

namespace {

/// The name as written in the source, even of a class without Q_OBJECT.
QString className(const std::type_info& type)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return QString::fromUtf8(name ? name.get() : type.name());
}

}

void warnOfPaintOutside(TransparentFrame& frame)
{
    const QRegion told = frame.drawnRegion();
    if (QRegion(frame.rect()).subtracted(told).isEmpty())
        return;
    const qreal ratio = frame.devicePixelRatioF();
    QImage ink((QSizeF(frame.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    ink.setDevicePixelRatio(ratio);
    ink.fill(Qt::transparent);
    frame.draw(&ink);
    QPainter painter(&ink);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    for (const QRect& rectangle : told)
        painter.fillRect(rectangle.adjusted(-1, -1, 1, 1), Qt::transparent);
    painter.end();
    QImage blank = ink;
    blank.fill(Qt::transparent);
    if (ink != blank)
        qWarning("%s draws outside of the region that it tells by paintOnly()",
                 qPrintable(className(typeid(frame))));
}

}

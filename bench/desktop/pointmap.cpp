#include "bench/desktop/pointmap.h"

#include "bench/desktop/pixelprobe.h"

#include <cmath>
#include <limits>

namespace Bench {

PointMap::PointMap(QSize size)
    : marks(size, QImage::Format_Indexed8)
{
    marks.setColorCount(2);
    marks.fill(0);
}

PointMap PointMap::inkOf(const QImage& picture)
{
    PointMap result(picture.size());
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            if (isInk(picture.pixel(column, row)))
                result.add({column, row});
        }
    }
    return result;
}

bool PointMap::contains(QPoint point) const
{
    return marks.rect().contains(point) && marks.pixelIndex(point) == 1;
}

QList<QPoint> PointMap::points() const
{
    QList<QPoint> found;
    for (int row = 0; row < marks.height(); ++row) {
        for (int column = 0; column < marks.width(); ++column) {
            if (contains({column, row}))
                found.append({column, row});
        }
    }
    return found;
}

double PointMap::distanceFrom(QPoint point) const
{
    const int limit = marks.width() + marks.height();
    double nearest = std::numeric_limits<double>::infinity();
    const auto look = [&](int dx, int dy) {
        if (contains(point + QPoint(dx, dy)))
            nearest = std::min(nearest, std::hypot(dx, dy));
    };
    // Squares of growing size around the point, until none can hold a nearer one.
    for (int reach = 0; reach < limit && reach < nearest; ++reach) {
        for (int along = -reach; along <= reach; ++along) {
            look(along, -reach);
            look(along, reach);
            look(-reach, along);
            look(reach, along);
        }
    }
    return nearest;
}

double PointMap::furthest(const QList<QPoint>& from) const
{
    double distance = 0;
    for (const QPoint point : from)
        distance = std::max(distance, distanceFrom(point));
    return distance;
}

}

#include "bench/desktop/pointmap.h"

#include "bench/desktop/pixelprobe.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Bench {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

}

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

/// For each pixel, row by row, the distance to the nearest mark above, below or on it.
QList<double> PointMap::distancesInColumns() const
{
    const int width = marks.width();
    QList<double> distances(qsizetype(width) * marks.height(), infinite);
    for (int column = 0; column < width; ++column) {
        const auto sweep = [&](int first, int last, int step) {
            double distance = infinite;
            for (int row = first; row != last + step; row += step) {
                distance = contains({column, row}) ? 0 : distance + 1;
                double& known = distances[qsizetype(row) * width + column];
                known = std::min(known, distance);
            }
        };
        sweep(0, marks.height() - 1, 1);
        sweep(marks.height() - 1, 0, -1);
    }
    return distances;
}

double PointMap::furthest(const QList<QPoint>& from) const
{
    const int width = marks.width();
    const QList<double> inColumn = distancesInColumns();
    double distance = 0;
    for (const QPoint point : from) {
        double nearest = infinite;
        for (int column = 0; column < width; ++column) {
            const double down = inColumn.at(qsizetype(point.y()) * width + column);
            const double across = column - point.x();
            nearest = std::min(nearest, down * down + across * across);
        }
        distance = std::max(distance, std::sqrt(nearest));
    }
    return distance;
}

}

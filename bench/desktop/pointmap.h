#pragma once

#include <QImage>
#include <QList>
#include <QPoint>

namespace Bench {

/// Some of the pixels of a picture, to find how far others are from them.
class PointMap {
public:
    explicit PointMap(QSize size);

    /// Those that are ink.
    [[nodiscard]] static PointMap inkOf(const QImage& picture);

    void add(QPoint point) { marks.setPixel(point, 1); }
    [[nodiscard]] bool contains(QPoint point) const;
    [[nodiscard]] QList<QPoint> points() const;

    /// How far the furthest of some pixels is from the nearest of these, centre to centre. Infinite
    /// if there are none.
    [[nodiscard]] double furthest(const QList<QPoint>& from) const;

private:
    [[nodiscard]] QList<double> distancesInColumns() const;

    QImage marks;
};

}

#include "bench/desktop/paths.h"

#include "tests/desktop/harness/pointer.h"

#include <cmath>

namespace Bench {

namespace {

constexpr int linePitch = 10;
constexpr QSize strokeCell(28, 9);

}

QRect paperOn(QSize screen)
{
    return {100, 100, screen.width() - 200, screen.height() - 300};
}

QList<QPoint> lines(QRect paper, int count, int step)
{
    const int columns = paper.width() / step;
    QList<QPoint> points;
    for (int number = 0; number < count; ++number) {
        const int row = number / columns;
        const int column = row % 2 == 0 ? number % columns : columns - 1 - number % columns;
        points.append(paper.topLeft() + QPoint(column * step, row * linePitch));
    }
    return points;
}

QList<QPoint> spiral(QPoint centre, int count)
{
    constexpr double turns = 4;
    constexpr double waves = 40;
    QList<QPoint> points;
    for (int number = 1; number <= count; ++number) {
        const double part = static_cast<double>(number) / count;
        const double radius = 30 + 250 * part + 12 * std::sin(2 * M_PI * waves * part);
        const double angle = 2 * M_PI * turns * part;
        points.append(centre
                      + QPointF(radius * std::cos(angle), radius * std::sin(angle)).toPoint());
    }
    return points;
}

QList<QPoint> withoutGaps(const QList<QPoint>& points)
{
    QList<QPoint> all;
    for (qsizetype next = 1; next < points.size(); ++next)
        all += line(points.at(next - 1), points.at(next), 1);
    return all;
}

QPoint strokeStart(QRect paper, int number)
{
    const int columns = paper.width() / strokeCell.width();
    const int rows = paper.height() / strokeCell.height();
    const int row = number / columns % rows;
    return paper.topLeft()
        + QPoint(number % columns * strokeCell.width(), row * strokeCell.height());
}

}

#include "tests/desktop/harness/ink.h"

#include <utility>

Ink::Ink(QImage taken, QColor paperColour, QColor inkColour)
    : picture(std::move(taken))
    , paper(paperColour)
    , ink(inkColour)
{
}

qreal Ink::coverage(QPoint point) const
{
    const QColor seen = picture.pixelColor(point);
    const auto along = [&](QColor colour) {
        return (colour.red() - paper.red()) * (ink.red() - paper.red())
            + (colour.green() - paper.green()) * (ink.green() - paper.green())
            + (colour.blue() - paper.blue()) * (ink.blue() - paper.blue());
    };
    return qreal(along(seen)) / along(ink);
}

qreal Ink::acrossColumn(int column) const
{
    qreal sum = 0;
    for (int row = 0; row < picture.height(); ++row)
        sum += coverage({column, row});
    return sum;
}

qreal Ink::acrossRow(int row) const
{
    qreal sum = 0;
    for (int column = 0; column < picture.width(); ++column)
        sum += coverage({column, row});
    return sum;
}

qreal Ink::total() const
{
    qreal sum = 0;
    for (int row = 0; row < picture.height(); ++row)
        sum += acrossRow(row);
    return sum;
}

QPointF Ink::middle() const
{
    QPointF sum;
    for (int column = 0; column < picture.width(); ++column)
        sum.rx() += (column + 0.5) * acrossColumn(column);
    for (int row = 0; row < picture.height(); ++row)
        sum.ry() += (row + 0.5) * acrossRow(row);
    return sum / total();
}

QRect Ink::bounds() const
{
    QRect result;
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            if (coverage({column, row}) >= 0.5)
                result |= QRect(column, row, 1, 1);
        }
    }
    return result;
}

bool fitsPen(qreal across, int size)
{
    constexpr qreal rounding = 0.2;
    const int overlap = size % 2 == 0 ? 0 : 1;
    return across > size - rounding && across < size + overlap + rounding;
}

QColor mixed(QColor paper, QColor ink, qreal inkShare)
{
    const auto mix = [inkShare](int a, int b) { return qRound(a * (1 - inkShare) + b * inkShare); };
    return {mix(paper.red(), ink.red()), mix(paper.green(), ink.green()),
            mix(paper.blue(), ink.blue())};
}

QImage mixed(QColor paper, const QImage& picture, qreal pictureShare)
{
    QImage result(picture.size(), QImage::Format_RGB32);
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            const QColor colour = picture.pixelColor(column, row);
            result.setPixelColor(column, row, mixed(paper, colour, pictureShare));
        }
    }
    return result;
}

bool isClose(QColor one, QColor other, int tolerance)
{
    return qAbs(one.red() - other.red()) <= tolerance
        && qAbs(one.green() - other.green()) <= tolerance
        && qAbs(one.blue() - other.blue()) <= tolerance;
}

bool isClose(const QImage& one, const QImage& other, int tolerance)
{
    for (int row = 0; row < one.height(); ++row) {
        for (int column = 0; column < one.width(); ++column) {
            if (!isClose(one.pixelColor(column, row), other.pixelColor(column, row), tolerance))
                return false;
        }
    }
    return one.size() == other.size();
}

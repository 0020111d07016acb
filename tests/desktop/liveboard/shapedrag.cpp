#include "tests/desktop/liveboard/shapedrag.h"

#include "tests/desktop/harness/ink.h"

#include <cmath>

namespace {

/// Of the shape's box.
qreal shareFilledBy(ShapeEntry shape)
{
    // Of the round rectangle's corners a quarter of each half side is rounded.
    constexpr qreal rounded = 0.25;
    switch (shape) {
    case EllipseEntry:
        return M_PI / 4;
    case RectangleEntry:
        return 1;
    case RoundRectEntry:
        return 1 - rounded * rounded * (1 - M_PI / 4);
    }
    return 0;
}

}

void addShapeDrags(QRect box)
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");

    const char* names[] = {"ellipse", "rectangle", "round rectangle"};
    for (const int entry : {EllipseEntry, RectangleEntry, RoundRectEntry}) {
        const QByteArray shape = names[entry];
        QTest::newRow(shape + ", down right") << entry << box.topLeft() << box.bottomRight();
        QTest::newRow(shape + ", down left") << entry << box.topRight() << box.bottomLeft();
        QTest::newRow(shape + ", up right") << entry << box.bottomLeft() << box.topRight();
        QTest::newRow(shape + ", up left") << entry << box.bottomRight() << box.topLeft();
    }
}

void addShapes()
{
    QTest::addColumn<int>("entry");

    QTest::newRow("ellipse") << int(EllipseEntry);
    QTest::newRow("rectangle") << int(RectangleEntry);
    QTest::newRow("round rectangle") << int(RoundRectEntry);
}

bool isSameInside(const QImage& one, const QImage& other)
{
    for (int y = 1; y + 1 < one.height(); ++y) {
        for (int x = 1; x + 1 < one.width(); ++x) {
            const QRgb here = one.pixel(x, y);
            const bool isInside = here == one.pixel(x - 1, y) && here == one.pixel(x + 1, y)
                && here == one.pixel(x, y - 1) && here == one.pixel(x, y + 1);
            if (isInside && !isClose(QColor(here), other.pixelColor(x, y)))
                return false;
        }
    }
    return true;
}

int countOf(const QImage& picture, QColor colour)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += isClose(picture.pixelColor(x, y), colour) ? 1 : 0;
    }
    return count;
}

bool fillsAs(ShapeEntry shape, const QImage& picture, QColor colour, QSize box)
{
    constexpr qreal edges = 0.05;
    const qreal expected = shareFilledBy(shape) * box.width() * box.height();
    return qAbs(countOf(picture, colour) - expected) < edges * expected;
}

#pragma once

#include <QColor>
#include <QImage>

/// Measures ink on paper of one colour, in device pixels. Partly covered pixels count by how much.
class Ink {
public:
    Ink(QImage picture, QColor paper, QColor ink);

    /// 0 for paper, 1 for ink, between them for an edge.
    [[nodiscard]] qreal coverage(QPoint point) const;
    /// How much ink a straight cut meets: the sum over one column or row of the picture.
    [[nodiscard]] qreal acrossColumn(int column) const;
    [[nodiscard]] qreal acrossRow(int row) const;
    [[nodiscard]] qreal total() const;
    /// The ink's centre of mass; pixel 0 reaches from 0 to 1.
    [[nodiscard]] QPointF middle() const;
    /// The smallest rectangle that holds every pixel at least half covered.
    [[nodiscard]] QRect bounds() const;

private:
    QImage picture;
    QColor paper;
    QColor ink;
};

/// Whether a cut straight across a stroke is that of a pen of this size, in device pixels. Exact
/// for even sizes, whose edges fall between pixels. The half-covered edge pixels of odd sizes
/// darken where the segments of a stroke overlap.
[[nodiscard]] bool fitsPen(qreal across, int size);

/// The colour that half-transparent ink gives on the paper; eight-bit rounding may put it one off.
[[nodiscard]] QColor mixed(QColor paper, QColor ink, qreal inkShare);
/// The same for a picture on paper of one colour.
[[nodiscard]] QImage mixed(QColor paper, const QImage& picture, qreal pictureShare);

/// Whether no channel differs by more than the tolerance.
[[nodiscard]] bool isClose(QColor one, QColor other, int tolerance = 2);
/// Whether that holds for every pixel of two pictures of the same size.
[[nodiscard]] bool isClose(const QImage& one, const QImage& other, int tolerance);

#pragma once

#include "pen/penframe.h"
#include "tests/support/input.h"
#include "tests/support/pixels.h"

#include <QTest>

/// What the tests of the pen frame share.
namespace PenTest {

enum Style { Freehand = 0, Ellipse = 1, Rectangle = 2, RoundRect = 3 };

const QColor paper(Qt::white);

/// A pen frame over a white picture. The offscreen platform has no picture to take.
class Canvas {
public:
    explicit Canvas(int size = 10, const QColor& colour = Qt::red, int style = Freehand,
                    bool transparent = false)
        : frame(nullptr, size, colour, style, transparent)
    {
        *frame.background() = TestSupport::plainPicture(frame, paper);
    }

    /// Shows the frame and lets all that this causes happen.
    [[nodiscard]] bool show()
    {
        frame.show();
        const bool exposed = QTest::qWaitForWindowExposed(&frame);
        TestSupport::putPointer(frame.mapToGlobal(QPoint(2, 2)));
        return exposed;
    }

    /// The lasting picture without what is under way.
    [[nodiscard]] QImage picture()
    {
        return frame.background()->toImage().convertToFormat(QImage::Format_ARGB32);
    }
    [[nodiscard]] QColor inPicture(int x, int y)
    {
        return TestSupport::colourAt(picture(), QPoint(x, y));
    }
    [[nodiscard]] QRectF inkInPicture() { return TestSupport::inkBox(picture(), paper); }

    /// What the user sees.
    [[nodiscard]] QImage screen() { return TestSupport::painted(frame); }
    [[nodiscard]] QColor onScreen(int x, int y)
    {
        return TestSupport::colourAt(screen(), QPoint(x, y));
    }
    [[nodiscard]] QRectF inkOnScreen() { return TestSupport::inkBox(screen(), paper); }

    void press(QPointF at, Qt::MouseButton button = Qt::LeftButton)
    {
        TestSupport::press(frame, at, button);
    }
    void moveTo(QPointF at) { TestSupport::moveTo(frame, at); }
    void hoverTo(QPointF at) { TestSupport::hoverTo(frame, at); }
    void release(QPointF at, Qt::MouseButton button = Qt::LeftButton)
    {
        TestSupport::release(frame, at, button);
    }
    /// Lets the turn of the event loop end that the moves so far belong to.
    static void endTurn() { QCoreApplication::processEvents(); }
    /// A whole stroke through the points.
    void draw(const QList<QPointF>& points)
    {
        press(points.first());
        for (const QPointF point : points.mid(1))
            moveTo(point);
        release(points.last());
    }

    VcAction::Frame::PenFrame frame;
};

/// Whether an area is as expected but for a pixel on each side.
inline bool isAbout(const QRectF& area, const QRectF& expected)
{
    return expected.adjusted(-1, -1, 1, 1).contains(area)
        && area.adjusted(-1, -1, 1, 1).contains(expected);
}

}

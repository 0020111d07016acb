#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/inputwatch.h"
#include "tests/desktop/liveboard/boardtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The shutter: closed, the desktop can be worked on under the drawing.
class BoardShutterTest : public BoardTest {
    Q_OBJECT

private slots:
    void closedItIsAsWideAsItsHandle();
    void closedItLetsClicksAndKeysThroughTenTimesInARow_data();
    void closedItLetsClicksAndKeysThroughTenTimesInARow();
    void belowTheClosedStripClicksGoThrough();
    void openedAgainTheBoardEndsOnEscape();

private:
    /// A place on the palette, wherever it was dragged.
    [[nodiscard]] QPoint onPalette(QPointF inside) const
    {
        return palette().movedBy(dragged).at(inside);
    }
    /// The window manager needs a moment for the window's new shape.
    [[nodiscard]] bool letsTheMouseThrough() const
    {
        return desktop->windows.at(drawn) == paper->id();
    }
    /// To the end: right beside the handle.
    [[nodiscard]] bool isClosed() const
    {
        return colourAt(onPalette({45, 60})) == Paper && letsTheMouseThrough();
    }
    [[nodiscard]] bool isOpen() const
    {
        return !isClose(colourAt(onPalette({280, 60})), Paper, 20) && !letsTheMouseThrough();
    }
    void pullShutter() const { desktop->pointer.click(onPalette(ShutterHandle)); }

    const QPoint drawn{100, 100};
    QPoint dragged;
};

void BoardShutterTest::closedItIsAsWideAsItsHandle()
{
    // given
    dragged = {};
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    QVERIFY(wakePalette());
    const QRect strip(palette().at({0, 0}), palette().at({36, 56}));
    const QImage open = settledPicture().copy(strip);

    // when
    pullShutter();
    EVENTUALLY(isClosed());

    // then
    const QImage seen = settledPicture();
    QVERIFY(isClose(seen.copy(strip), open, 2));
    const QRect beside(palette().at({41, -4}), palette().at({310, 122}));
    const QRect below(palette().at({-4, 86}), palette().at({41, 122}));
    for (const QRect& place : {beside, below}) {
        QImage bare(place.size(), QImage::Format_RGB32);
        bare.fill(Paper);
        QCOMPARE(seen.copy(place), bare);
    }
}

void BoardShutterTest::closedItLetsClicksAndKeysThroughTenTimesInARow_data()
{
    QTest::addColumn<QPoint>("distance");

    QTest::newRow("where it is at first") << QPoint();
    QTest::newRow("dragged elsewhere") << QPoint(-260, -290);
}

void BoardShutterTest::closedItLetsClicksAndKeysThroughTenTimesInARow()
{
    // given
    QFETCH(QPoint, distance);
    dragged = {};
    InputWatch input(desktop->display, paper->id());
    Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    desktop->pointer.drag({onPalette({20, 20}), onPalette({20, 20}) + distance});
    dragged = distance;
    EVENTUALLY(isOpen());
    desktop->pointer.drag(line(drawn, drawn + QPoint(100, 0)));
    EVENTUALLY_COMPARE(colourAt(drawn), QColor(Qt::yellow));

    for (int round = 1; round <= 10; ++round) {
        // when
        pullShutter();
        EVENTUALLY(isClosed());
        desktop->pointer.click(drawn);
        EVENTUALLY_COMPARE(desktop->windows.focused(), paper->id());
        desktop->keyboard.strike(XK_a);

        // then
        EVENTUALLY_COMPARE(input.presses(), round);
        EVENTUALLY_COMPARE(input.keys(), round);
        QCOMPARE(colourAt(drawn), QColor(Qt::yellow));

        // when
        pullShutter();
        EVENTUALLY(isOpen());
        const QPoint dot = drawn + QPoint(0, 30 + 20 * round);
        desktop->pointer.click(dot);

        // then
        EVENTUALLY_COMPARE(colourAt(dot), QColor(Qt::yellow));
        QCOMPARE(input.presses(), round);
    }
}

void BoardShutterTest::belowTheClosedStripClicksGoThrough()
{
    // given
    dragged = {};
    InputWatch input(desktop->display, paper->id());
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    pullShutter();
    EVENTUALLY(isClosed());

    for (const QPointF corner : {QPointF(2, 88), QPointF(37, 115)}) {
        // when
        EVENTUALLY_COMPARE(desktop->windows.at(onPalette(corner)), paper->id());
        desktop->pointer.click(onPalette(corner));
    }

    // then
    EVENTUALLY_COMPARE(input.presses(), 2);
}

void BoardShutterTest::openedAgainTheBoardEndsOnEscape()
{
    // given
    dragged = {};
    Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    pullShutter();
    EVENTUALLY(isClosed());
    desktop->pointer.click(drawn);
    EVENTUALLY_COMPARE(desktop->windows.focused(), paper->id());

    // when
    pullShutter();
    EVENTUALLY(program.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(program.status(), 0);
}

REGISTER_TEST(BoardShutterTest, QCoreApplication)
#include "boardshuttertest.moc"

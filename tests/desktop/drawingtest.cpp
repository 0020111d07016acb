#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

/// The life of a stroke, from the first move to the finished ink, and of the dot that shows the pen
/// between strokes.
class DrawingTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aStrokeShowsBeforeTheButtonIsReleased();
    void aFinishedStrokeStays();
    void aTransparentStrokeIsBlendedOnceWhereItCrossesItself();
    void twoTransparentStrokesBlendTwice();
    void theDotFollowsThePointerAndLeavesNoTrace();
    void onlyTheLeftButtonDraws_data();
    void onlyTheLeftButtonDraws();
    void noPointOfAFastStrokeIsLost();

private:
    static constexpr int PenSize = 20;
    static constexpr QPoint Away{100, 700};

    [[nodiscard]] static Launch blackPen(int size = PenSize)
    {
        return {.arguments = {QByteArray::number(size), "0", "0", "0"}};
    }
    [[nodiscard]] static Launch transparentBluePen()
    {
        return {.arguments = {QByteArray::number(PenSize), "0", "0", "255", "1"}};
    }
    [[nodiscard]] Ink ink(QRect part) const
    {
        return {desktop->screen.grab(part), Qt::white, Qt::black};
    }
};

void DrawingTest::aStrokeShowsBeforeTheButtonIsReleased()
{
    // given
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.moveTo({200, 200});
    desktop->pointer.press();
    for (const QPoint& point : line({200, 200}, {600, 200}))
        desktop->pointer.moveTo(point);

    // then
    EVENTUALLY_COMPARE(desktop->screen.colourAt({600, 200}), QColor(Qt::black));
    const Ink whileDrawing = ink({200, 100, 400, 200});
    for (int column = 0; column < 400; ++column)
        QVERIFY(fitsPen(whileDrawing.acrossColumn(column), PenSize));
}

void DrawingTest::aFinishedStrokeStays()
{
    // given
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());
    desktop->pointer.drag({{200, 200}, {300, 300}, {400, 200}, {500, 250}});
    QVERIFY(parkPointer(Away, Qt::black));
    const QRect canvas(0, 0, 800, 600);
    const QImage before = desktop->screen.grab(canvas);

    // when
    {
        const ClientWindow passing(desktop->x, ClientWindow::Kind::Unmanaged, {0, 0, 1280, 800},
                                   Qt::green);
        QCOMPARE(desktop->screen.colourAt({300, 300}), QColor(Qt::green));
    }

    // then
    EVENTUALLY_COMPARE(desktop->screen.grab(canvas), before);
    QVERIFY(parkPointer({700, 700}, Qt::black));
    QCOMPARE(desktop->screen.grab(canvas), before);
}

void DrawingTest::aTransparentStrokeIsBlendedOnceWhereItCrossesItself()
{
    // given
    const QColor half = mixed(Qt::white, Qt::blue, 0.5);
    const Program korvel(*desktop, transparentBluePen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.moveTo({200, 300});
    desktop->pointer.press();
    for (const QPoint& point :
         line({200, 300}, {400, 300}) + line({400, 200}, {300, 200}) + line({300, 200}, {300, 400}))
        desktop->pointer.moveTo(point);

    // then
    EVENTUALLY(isClose(desktop->screen.colourAt({300, 400}), half, 1));
    const QColor whileDrawing = desktop->screen.colourAt({300, 300});
    desktop->pointer.release();
    desktop->pointer.moveTo(Away);
    EVENTUALLY(isClose(desktop->screen.colourAt(Away), half, 1));
    const QColor straight = desktop->screen.colourAt({230, 300});
    QVERIFY(isClose(straight, half, 1));
    QCOMPARE(desktop->screen.colourAt({300, 300}), straight);
    QCOMPARE(whileDrawing, straight);
}

void DrawingTest::twoTransparentStrokesBlendTwice()
{
    // given
    const QColor half = mixed(Qt::white, Qt::blue, 0.5);
    const Program korvel(*desktop, transparentBluePen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({200, 300}, {400, 300}));
    desktop->pointer.drag(line({300, 200}, {300, 400}));

    // then
    desktop->pointer.moveTo(Away);
    EVENTUALLY(isClose(desktop->screen.colourAt(Away), half, 1));
    QVERIFY(isClose(desktop->screen.colourAt({230, 300}), half, 1));
    QVERIFY(isClose(desktop->screen.colourAt({300, 230}), half, 1));
    QVERIFY(isClose(desktop->screen.colourAt({300, 300}), mixed(half, Qt::blue, 0.5)));
}

void DrawingTest::theDotFollowsThePointerAndLeavesNoTrace()
{
    // given
    desktop->backdrop.paintPattern();
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    for (const QPoint& point : line({10, 10}, {1270, 300}, 7) + line({1200, 200}, {5, 790}, 33))
        desktop->pointer.moveTo(point);

    // then
    QVERIFY(parkPointer({640, 400}, Qt::yellow));
    const QList<QRect> dotAndPalette{{620, 380, 40, 40}, desktop->palette.area()};
    QCOMPARE(blanked(desktop->screen.grab(), dotAndPalette),
             blanked(Backdrop::pattern(desktop->x.size()), dotAndPalette));
}

void DrawingTest::onlyTheLeftButtonDraws_data()
{
    QTest::addColumn<Pointer::Button>("button");

    QTest::newRow("right") << Pointer::Button::Right;
    QTest::newRow("middle") << Pointer::Button::Middle;
}

void DrawingTest::onlyTheLeftButtonDraws()
{
    // given
    QFETCH(Pointer::Button, button);
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({200, 200}, {600, 400}), button);

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    QCOMPARE(ink({0, 0, 800, 600}).total(), 0.0);
}

void DrawingTest::noPointOfAFastStrokeIsLost()
{
    // given
    Program korvel(*desktop, blackPen(2));
    EVENTUALLY(korvel.isReady());
    // Each point is a tip of its own, which no other part of the line touches.
    QList<QPoint> teeth;
    for (int tooth = 0; tooth < 300; ++tooth)
        teeth.append({200 + 3 * tooth, tooth % 2 == 0 ? 150 : 350});

    // when
    korvel.process().send(SIGSTOP); // held up, it finds all the events waiting at once
    desktop->pointer.drag(teeth);
    desktop->pointer.moveTo(Away);
    korvel.process().send(SIGCONT);

    // then
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Away), QColor(Qt::black));
    const Ink stroke = ink(desktop->screen.area());
    for (const QPoint& tip : teeth)
        QVERIFY2(stroke.coverage(tip) > 0.3, qPrintable(QString::number(tip.x())));
}

REGISTER_TEST(DrawingTest, QCoreApplication)
#include "drawingtest.moc"

#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

#include <cmath>

/// The shape of freehand strokes on white paper.
class StrokesTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aStrokeIsAsWideAsThePen_data();
    void aStrokeIsAsWideAsThePen();
    void aClickLeavesARoundDot_data();
    void aClickLeavesARoundDot();
    void strokesHaveRoundEnds();
    void aStrokeGoesOnToTheScreensEdge();
    void aStrokeStartsInTheVeryCorner();
    void aStrokePassesUnderThePalette();

private:
    static constexpr int PenSize = 20;
    static constexpr QPoint Away{100, 700};

    [[nodiscard]] static Launch blackPen(int size = PenSize)
    {
        return {.arguments = {QByteArray::number(size), "0", "0", "0"}};
    }
    [[nodiscard]] Ink ink(QRect part) const
    {
        return {desktop->screen.grab(part), Qt::white, Qt::black};
    }
};

void StrokesTest::aStrokeIsAsWideAsThePen_data()
{
    QTest::addColumn<int>("size");

    for (const int size : {1, 5, 8, 20, 32, 50})
        QTest::addRow("%d pixels", size) << size;
}

void StrokesTest::aStrokeIsAsWideAsThePen()
{
    // given
    QFETCH(int, size);
    const Program korvel(*desktop, blackPen(size));
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({200, 200}, {400, 200}));
    desktop->pointer.drag(line({600, 200}, {600, 400}));

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    const Ink horizontal = ink({250, 100, 100, 200});
    const Ink vertical = ink({500, 250, 200, 100});
    for (int at = 0; at < 100; ++at) {
        QVERIFY2(fitsPen(horizontal.acrossColumn(at), size),
                 qPrintable(QString::number(horizontal.acrossColumn(at))));
        QVERIFY2(fitsPen(vertical.acrossRow(at), size),
                 qPrintable(QString::number(vertical.acrossRow(at))));
    }
}

void StrokesTest::aClickLeavesARoundDot_data()
{
    QTest::addColumn<int>("size");

    for (const int size : {5, 8, 20, 32, 50})
        QTest::addRow("%d pixels", size) << size;
}

void StrokesTest::aClickLeavesARoundDot()
{
    // given
    QFETCH(int, size);
    const Program korvel(*desktop, blackPen(size));
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.click({400, 300});

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    const Ink dot = ink({340, 240, 120, 120});
    const QRect bounds = dot.bounds();
    QVERIFY(qAbs(bounds.width() - size) <= 1);
    QVERIFY(qAbs(bounds.height() - size) <= 1);
    QVERIFY(bounds.contains(60, 60));
    const qreal disc = M_PI * size * size / 4;
    QVERIFY2(qAbs(dot.total() - disc) < 0.05 * disc + 0.5,
             qPrintable(QString::number(dot.total())));
}

void StrokesTest::strokesHaveRoundEnds()
{
    // given
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({300, 300}, {500, 300}));

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    const Ink stroke = ink({250, 250, 300, 100});
    const qreal capsAndBar = M_PI * PenSize * PenSize / 4 + 200.0 * PenSize;
    QVERIFY2(qAbs(stroke.total() - capsAndBar) < 20, qPrintable(QString::number(stroke.total())));
    QVERIFY(qAbs(stroke.bounds().width() - (200 + PenSize)) <= 1);
    QVERIFY(stroke.coverage({50 - 9, 50 - 9}) < 0.1); // a square end would cover its corner
    QVERIFY(stroke.coverage({250 + 8, 50 + 8}) < 0.1);
}

void StrokesTest::aStrokeGoesOnToTheScreensEdge()
{
    // given
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({1100, 200}, {1279, 200}) + line({1279, 200}, {1279, 0}));

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    QCOMPARE(desktop->screen.colourAt({1279, 200}), QColor(Qt::black));
    QCOMPARE(desktop->screen.colourAt({1279, 0}), QColor(Qt::black));
    QCOMPARE(desktop->screen.colourAt({1190, 200}), QColor(Qt::black));
}

void StrokesTest::aStrokeStartsInTheVeryCorner()
{
    // given
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({0, 0}, {200, 0}));

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    QCOMPARE(desktop->screen.colourAt({0, 0}), QColor(Qt::black));
    QVERIFY(qAbs(ink({0, 0, 150, 100}).acrossColumn(75) - PenSize / 2.0) < 0.2);
}

void StrokesTest::aStrokePassesUnderThePalette()
{
    // given
    const Program korvel(*desktop, blackPen());
    EVENTUALLY(korvel.isReady());
    const QRect palette = desktop->palette.area();
    const QPoint left(palette.left() - 50, palette.center().y());
    const QPoint right(palette.right() + 40, palette.center().y());

    // when
    desktop->pointer.drag(line(left, right));
    desktop->pointer.drag({desktop->palette.handle(), desktop->palette.handle() - QPoint(0, 300)});

    // then
    QVERIFY(parkPointer(Away, Qt::black));
    const Ink stroke = ink({left, QSize(right.x() - left.x(), 80)});
    for (int column = 0; column < right.x() - left.x(); ++column)
        QVERIFY(qAbs(stroke.acrossColumn(column) - PenSize / 2.0) < 0.7);
}

REGISTER_TEST(StrokesTest, QCoreApplication)
#include "strokestest.moc"

#include "tests/desktop/harness/ink.h"
#include "tests/desktop/liveboard/boardtest.h"
#include "tests/desktop/liveboard/shapedrag.h"
#include "tests/support/testprogram.h"

/// Shapes drawn over the live desktop.
class BoardShapesTest : public BoardTest {
    Q_OBJECT

private slots:
    void aShapeIsWhatWasDraggedOut_data() { addShapeDrags(box); }
    void aShapeIsWhatWasDraggedOut();
    void aHalfTransparentShapeBlendsOnce_data() { addShapes(); }
    void aHalfTransparentShapeBlendsOnce();
    void aRoundRectangleTakesThePlaceOfTheInkBelow();
    void aHalfTransparentStrokeThatCrossesItselfBlendsOnce();

private:
    static constexpr QRect box{150, 120, 200, 160};

    /// Starts drawing a shape and waits for it, the button held.
    [[nodiscard]] bool dragOut(QPoint from, QPoint to, QColor middle) const;
};

bool BoardShapesTest::dragOut(QPoint from, QPoint to, QColor middle) const
{
    desktop->pointer.moveTo(from);
    desktop->pointer.press();
    for (const QPoint& point : line(from, {700, 500}, 120) + line({700, 500}, to, 40))
        desktop->pointer.moveTo(point);
    return eventually([&] {
        return isClose(colourAt(box.center()), middle) && colourAt({500, 400}) == Paper;
    });
}

void BoardShapesTest::aShapeIsWhatWasDraggedOut()
{
    // given
    QFETCH(int, entry);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    clickTab(1);
    desktop->pointer.click(palette().at(ShapeButton));
    QVERIFY(chooseShape(palette().at(ShapeBox), entry, program));

    // when
    QVERIFY(dragOut(from, to, Qt::yellow));
    const QImage preview = pictureAround(box);
    desktop->pointer.release();
    desktop->pointer.moveTo(Away);

    // then
    const QImage left = pictureAround(box);
    QVERIFY(isSameInside(preview, left));
    QVERIFY(fillsAs(ShapeEntry(entry), left, Qt::yellow, box.size()));
}

void BoardShapesTest::aHalfTransparentShapeBlendsOnce()
{
    // given
    QFETCH(int, entry);
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    desktop->pointer.click(palette().transparentBox());
    clickTab(1);
    desktop->pointer.click(palette().at(ShapeButton));
    QVERIFY(chooseShape(palette().at(ShapeBox), entry, program));

    // when
    const QColor once = mixed(Paper, Qt::yellow, 0.5);
    QVERIFY(dragOut(box.topLeft(), box.bottomRight(), once));
    const QImage preview = pictureAround(box);
    desktop->pointer.release();
    desktop->pointer.moveTo(Away);

    // then
    const QImage left = pictureAround(box);
    QVERIFY(isSameInside(preview, left));
    QVERIFY(isClose(colourAt(box.center()), once));
}

void BoardShapesTest::aRoundRectangleTakesThePlaceOfTheInkBelow()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    desktop->pointer.drag(line({100, 200}, {400, 200}));
    desktop->pointer.click(palette().transparentBox());
    clickTab(1);
    desktop->pointer.click(palette().at(ShapeButton));
    QVERIFY(chooseShape(palette().at(ShapeBox), RoundRectEntry, program));
    EVENTUALLY_COMPARE(colourAt({110, 200}), QColor(Qt::yellow));

    // when
    desktop->pointer.drag({box.topLeft(), box.center(), box.bottomRight()});
    desktop->pointer.moveTo(Away);

    // then
    EVENTUALLY(isClose(colourAt({250, 200}), mixed(Paper, Qt::yellow, 0.5)));
    QCOMPARE(colourAt({110, 200}), QColor(Qt::yellow));
}

void BoardShapesTest::aHalfTransparentStrokeThatCrossesItselfBlendsOnce()
{
    // given
    const Program program(*desktop, board());
    EVENTUALLY(isReady(program));
    desktop->pointer.click(palette().transparentBox());

    // when
    desktop->pointer.drag(line({100, 200}, {300, 200}) + line({300, 200}, {200, 300})
                          + line({200, 300}, {200, 100}));
    desktop->pointer.moveTo(Away);

    // then
    const QColor once = mixed(Paper, Qt::yellow, 0.5);
    EVENTUALLY(isClose(colourAt({200, 120}), once));
    QVERIFY(isClose(colourAt({200, 200}), once));
    QVERIFY(isClose(colourAt({120, 200}), once));
}

REGISTER_TEST(BoardShapesTest, QCoreApplication)
#include "boardshapestest.moc"

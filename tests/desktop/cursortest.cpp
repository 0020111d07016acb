#include "tests/desktop/harness/cursorimage.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

/// The mouse cursor: a pen in the pen's colour on the frame, others on the palette.
class CursorTest : public DesktopTest {
    Q_OBJECT

private slots:
    void thePenCursorTakesThePenColour_data();
    void thePenCursorTakesThePenColour();
    void thePenCursorFollowsTheWheel();
    void thePaletteHasCursorsOfItsOwn();
    void thePenCursorComesBackOnTheFrame();

private:
    [[nodiscard]] CursorImage cursor() const { return CursorImage::current(desktop->x); }
    [[nodiscard]] bool isPen(QColor colour) const
    {
        const CursorImage shown = cursor();
        return shown.hotSpot == PenTip && contains(shown.picture, colour);
    }
    [[nodiscard]] bool isPaletteCursor() const { return cursor().hotSpot == PaletteTip; }

    static constexpr QPoint PenTip{6, 29};
    static constexpr QPoint PaletteTip{4, 4};
};

void CursorTest::thePenCursorTakesThePenColour_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<QColor>("colour");

    using Arguments = QList<QByteArray>;
    QTest::newRow("yellow") << Arguments{} << QColor(255, 255, 0);
    QTest::newRow("its own") << Arguments{"8", "12", "200", "56"} << QColor(12, 200, 56);
    QTest::newRow("transparent ink") << Arguments{"8", "0", "0", "255", "1"} << QColor(0, 0, 255);
}

void CursorTest::thePenCursorTakesThePenColour()
{
    // given
    QFETCH(QList<QByteArray>, arguments);
    QFETCH(QColor, colour);

    // when
    const Program korvel(*desktop, {.arguments = arguments});
    EVENTUALLY(korvel.isReady());

    // then
    EVENTUALLY(isPen(colour));
    QCOMPARE(cursor().picture.size(), QSize(32, 32));
}

void CursorTest::thePenCursorFollowsTheWheel()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.turn(Pointer::Wheel::TowardsUser);

    // then
    EVENTUALLY(isPen(QColor(0, 255, 0)));
    QVERIFY(!contains(cursor().picture, QColor(255, 255, 0)));
}

void CursorTest::thePaletteHasCursorsOfItsOwn()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(isPaletteCursor());
    const QImage idle = cursor().picture;

    // when
    desktop->pointer.press();

    // then
    EVENTUALLY(isPaletteCursor() && cursor().picture != idle);
    desktop->pointer.release();
    EVENTUALLY_COMPARE(cursor().picture, idle);
}

void CursorTest::thePenCursorComesBackOnTheFrame()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.moveTo(desktop->palette.handle());
    EVENTUALLY(isPaletteCursor());

    // when
    desktop->pointer.moveTo({300, 300});

    // then
    EVENTUALLY(isPen(QColor(255, 255, 0)));
}

REGISTER_TEST(CursorTest, QCoreApplication)
#include "cursortest.moc"

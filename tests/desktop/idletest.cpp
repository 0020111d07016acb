#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/desktop/harness/sleep.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// While nothing happens the program does nothing.
class IdleTest : public DesktopTest {
    Q_OBJECT

private slots:
    void itSleepsAfterTheStart_data() { pens(); }
    void itSleepsAfterTheStart();
    void itSleepsAfterAFade_data() { pens(); }
    void itSleepsAfterAFade();
    void itSleepsAfterAStroke_data() { pens(); }
    void itSleepsAfterAStroke();
    void itSleepsWithThePointerOnThePalette();
    void itSleepsAfterAListWasOpen();

private:
    static void pens()
    {
        QTest::addColumn<QList<QByteArray>>("arguments");

        QTest::newRow("as usual") << QList<QByteArray>();
        QTest::newRow("the finest") << QList<QByteArray>{"1", "255", "0", "0"};
        QTest::newRow("larger than the palette") << QList<QByteArray>{"120", "255", "0", "0"};
    }
    [[nodiscard]] QColor paletteColour() const
    {
        return desktop->screen.colourAt(desktop->palette.handle());
    }
};

void IdleTest::itSleepsAfterTheStart()
{
    QFETCH(QList<QByteArray>, arguments);
    const Program korvel(*desktop, {.arguments = arguments});

    EVENTUALLY(korvel.isReady());

    EVENTUALLY(sleeps(korvel.pid()));
}

void IdleTest::itSleepsAfterAFade()
{
    // given
    QFETCH(QList<QByteArray>, arguments);
    const Program korvel(*desktop, {.arguments = arguments});
    EVENTUALLY(korvel.isReady());
    const QColor faint = settledPicture().pixelColor(desktop->palette.handle());
    desktop->pointer.moveTo(desktop->palette.at({20, 40}));
    EVENTUALLY(paletteColour() != faint);

    // when
    desktop->pointer.moveTo(StartPoint);
    EVENTUALLY_COMPARE(paletteColour(), faint);

    // then
    EVENTUALLY(sleeps(korvel.pid()));
}

void IdleTest::itSleepsAfterAStroke()
{
    // given
    QFETCH(QList<QByteArray>, arguments);
    const Program korvel(*desktop, {.arguments = arguments});
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({200, 200}, {700, 500}, 7));
    EVENTUALLY(desktop->screen.colourAt({600, 440}) != desktop->screen.colourAt({100, 700}));

    // then
    EVENTUALLY(sleeps(korvel.pid()));
}

void IdleTest::itSleepsWithThePointerOnThePalette()
{
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    desktop->pointer.moveTo(desktop->palette.colourBox());
    static_cast<void>(settledPicture());

    EVENTUALLY(sleeps(korvel.pid()));
}

void IdleTest::itSleepsAfterAListWasOpen()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.moveTo(desktop->palette.handle());
    const QImage before = settledPicture();
    desktop->pointer.click(desktop->palette.colourBox());
    EVENTUALLY(desktop->screen.grab() != before);
    static_cast<void>(settledPicture());

    // when
    desktop->keyboard.strike(XK_Escape);
    desktop->pointer.moveTo(StartPoint);
    static_cast<void>(settledPicture());

    // then
    EVENTUALLY(sleeps(korvel.pid()));
}

REGISTER_TEST(IdleTest, QCoreApplication)
#include "idletest.moc"

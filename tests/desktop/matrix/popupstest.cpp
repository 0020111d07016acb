#include "tests/desktop/harness/ink.h"
#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The program's own lists and its dialog open above the frame and take mouse and keys.
class PopupsTest : public MatrixTest {
    Q_OBJECT

private slots:
    void aListIsUsedWithTheMouse();
    void aListIsUsedWithTheKeys();
    void theDialogOpensAboveTheFrame();
    void theDialogIsUsedWithTheMouse();
    void theDialogIsUsedWithTheKeys();
    void escapeClosesOnlyTheDialog();

private:
    /// Holds the button until the press shows: mutter (seen in 43) loses a release that follows at
    /// once.
    void clickSlowly(QPoint place) const;

    static constexpr QPoint Away{100, 700};
    static constexpr int ColourEntries = 9;

    [[nodiscard]] xcb_window_t dialog() const { return desktop->controls.colourDialog(); }
    /// Whether the pen has this colour: as it draws, and as its dot shows.
    [[nodiscard]] bool drawsIn(QColor colour) const;
};

bool PopupsTest::drawsIn(QColor colour) const
{
    desktop->pointer.drag(line({200, 200}, {400, 200}));
    return parkPointer(Away, colour) && desktop->screen.colourAt({300, 200}) == colour;
}

void PopupsTest::aListIsUsedWithTheMouse()
{
    // given
    constexpr int blue = 5;
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(desktop->controls.openList(desktop->palette.colourBox(), korvel));
    QVERIFY(desktop->windows.isAbove(desktop->windows.listOf(korvel.pid()), korvel.frame()));
    desktop->pointer.click(desktop->controls.placeOf(blue, ColourEntries, korvel));

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    QVERIFY(drawsIn(Qt::blue));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void PopupsTest::aListIsUsedWithTheKeys()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(desktop->controls.openList(desktop->palette.colourBox(), korvel));
    desktop->keyboard.strike(XK_Home);
    desktop->keyboard.strike(XK_Return);

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    QVERIFY(drawsIn(Qt::red));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void PopupsTest::theDialogOpensAboveTheFrame()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(desktop->controls.openColourDialog(korvel));

    // then
    QVERIFY(desktop->windows.isAbove(dialog(), korvel.frame()));
    QVERIFY(desktop->screen.area().contains(desktop->windows.geometry(dialog())));
}

void PopupsTest::clickSlowly(QPoint place) const
{
    desktop->pointer.moveTo(place);
    desktop->pointer.press();
    static_cast<void>(settledPicture());
    desktop->pointer.release();
}

void PopupsTest::theDialogIsUsedWithTheMouse()
{
    // given
    constexpr QPoint lastBasicColour(221, 162); // in the dialog: white
    constexpr QPoint preview(300, 290); // of the colour chosen
    constexpr QPoint confirm(-138, -24); // from its bottom-right corner
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openColourDialog(korvel));
    static_cast<void>(settledPicture()); // it may be shown before it is put in its place
    const QRect place = desktop->windows.geometry(dialog());

    // when
    clickSlowly(place.topLeft() + lastBasicColour);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(place.topLeft() + preview), QColor(Qt::white));
    clickSlowly(place.bottomRight() + confirm);

    // then
    EVENTUALLY(dialog() == XCB_NONE);
    EVENTUALLY(korvel.hasKeyboard());
    QVERIFY(drawsIn(Qt::white));
}

void PopupsTest::theDialogIsUsedWithTheKeys()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openColourDialog(korvel));

    // when
    desktop->controls.typeColour("#12ab56");

    // then
    EVENTUALLY(dialog() == XCB_NONE);
    EVENTUALLY(korvel.hasKeyboard());
    QVERIFY(drawsIn(QColor(0x12, 0xab, 0x56)));
    desktop->keyboard.strike(XK_Escape); // without a click since the dialog closed
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void PopupsTest::escapeClosesOnlyTheDialog()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openColourDialog(korvel));

    // when
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY(dialog() == XCB_NONE);
    EVENTUALLY(korvel.hasKeyboard());
    QVERIFY(parkPointer(Away, Qt::yellow));
    QCOMPARE(korvel.status(), ChildProcess::Running);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

REGISTER_TEST(PopupsTest, QCoreApplication)
#include "popupstest.moc"

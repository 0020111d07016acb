#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The colour dialog, opened by the last entry of the colour list, and what becomes of the colour.
/// How it gets along with window managers is a matter of the matrix.
class ColourDialogTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aSecondColourReplacesTheFirst();
    void aPresetColourAddsNoEntry();
    void thePaletteStaysBrightMeanwhile();
    void closedByAKeyItLeavesAFadingPalette_data();
    void closedByAKeyItLeavesAFadingPalette();

private:
    static constexpr QPoint Away{100, 700};

    [[nodiscard]] xcb_window_t dialog() const { return desktop->controls.colourDialog(); }
    /// Opens it, types the colour's name into its field, confirms, and waits until the frame has
    /// the keyboard again.
    [[nodiscard]] bool pick(const QByteArray& name, const Program& korvel) const;
};

bool ColourDialogTest::pick(const QByteArray& name, const Program& korvel) const
{
    if (!desktop->controls.openColourDialog(korvel))
        return false;
    desktop->controls.typeColour(name);
    return eventually([&] { return dialog() == XCB_NONE && korvel.hasKeyboard(); });
}

void ColourDialogTest::aSecondColourReplacesTheFirst()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(pick("#123456", korvel));

    // when
    QVERIFY(pick("#abcdef", korvel));

    // then
    QVERIFY(parkPointer(Away, QColor(0xab, 0xcd, 0xef)));
    desktop->pointer.turn(Pointer::Wheel::AwayFromUser);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Away), QColor(Qt::black));
    desktop->pointer.turn(Pointer::Wheel::TowardsUser, 2);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Away), QColor(Qt::red));
}

void ColourDialogTest::aPresetColourAddsNoEntry()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(pick("#0000ff", korvel));

    // then
    QVERIFY(parkPointer(Away, Qt::blue));
    desktop->pointer.turn(Pointer::Wheel::TowardsUser, 3); // purple, black, and no more entry
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Away), QColor(Qt::red));
}

void ColourDialogTest::thePaletteStaysBrightMeanwhile()
{
    // given
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openColourDialog(korvel));
    EVENTUALLY_COMPARE(desktop->screen.colourAt(desktop->palette.sizeIcon()), QColor(Qt::black));

    // when
    desktop->pointer.moveTo(Away);
    desktop->keyboard.strikeWith(XK_Alt_L, 'h');
    desktop->keyboard.type("#0a3c50");

    // then
    // The dialog shows the typed colour, so all that came before has been dealt with.
    const auto showsTheColour = [&] {
        const QImage picture = desktop->screen.grab(desktop->windows.geometry(dialog()));
        return contains(picture, QColor(0x0a, 0x3c, 0x50));
    };
    EVENTUALLY(showsTheColour());
    QCOMPARE(desktop->screen.colourAt(desktop->palette.sizeIcon()), QColor(Qt::black));
}

void ColourDialogTest::closedByAKeyItLeavesAFadingPalette_data()
{
    QTest::addColumn<unsigned int>("key");

    QTest::newRow("given up") << unsigned{XK_Escape};
    QTest::newRow("confirmed") << unsigned{XK_Return};
}

void ColourDialogTest::closedByAKeyItLeavesAFadingPalette()
{
    // given
    QFETCH(unsigned int, key);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openColourDialog(korvel));
    desktop->pointer.moveTo(Away);

    // when
    desktop->keyboard.strike(key);

    // then
    EVENTUALLY(dialog() == XCB_NONE);
    constexpr qreal faded = 0.3;
    EVENTUALLY(isClose(desktop->screen.colourAt(desktop->palette.sizeIcon()),
                       mixed(Qt::white, Qt::black, faded)));
}

REGISTER_TEST(ColourDialogTest, QCoreApplication)
#include "colourdialogtest.moc"

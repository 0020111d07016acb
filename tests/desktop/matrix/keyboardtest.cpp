#include "tests/desktop/harness/poppedupmenu.h"
#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The keyboard is the frame's from the start, wherever it was before, and stays the program's.
class KeyboardTest : public MatrixTest {
    Q_OBJECT

private slots:
    void itIsTheFramesAtOnce();
    void itIsTheFramesAtOnceOverAFullScreenProgram();
    void itIsTheFramesWhereTheWindowManagerHasCrashed();
    void escapeEndsWhicheverControlHasTheFocus_data();
    void escapeEndsWhicheverControlHasTheFocus();
    void escapeEndsOnTheCloseButton();
    void aClickOnTheFrameBringsItBack();
    void anOpenMenuOfAnotherProgramKeepsItUntilItIsGone();

private:
    static constexpr QRect Document{750, 300, 300, 300};
    static constexpr QRect Menu{400, 200, 150, 200};
};

void KeyboardTest::itIsTheFramesAtOnce()
{
    // given
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    EVENTUALLY(shows(document, Qt::blue));
    QVERIFY(clickInto(document));
    desktop->keyboard.type("abc");

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void KeyboardTest::itIsTheFramesAtOnceOverAFullScreenProgram()
{
    // given
    const ClientWindow slides =
        client(ClientWindow::Kind::FullScreen, desktop->screen.area(), Qt::blue);
    EVENTUALLY(shows(slides, Qt::blue));
    QVERIFY(clickInto(slides));
    desktop->keyboard.type("abc");

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void KeyboardTest::itIsTheFramesWhereTheWindowManagerHasCrashed()
{
    // given
    if (!isManaged())
        QSKIP("there is none to crash");
    manager->kill();

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void KeyboardTest::escapeEndsWhicheverControlHasTheFocus_data()
{
    QTest::addColumn<QPoint>("control");
    QTest::addColumn<bool>("opensList");

    QTest::newRow("size box") << PaletteLayout({1280, 800}).sizeBox() << true;
    QTest::newRow("colour box") << PaletteLayout({1280, 800}).colourBox() << true;
    QTest::newRow("check box") << PaletteLayout({1280, 800}).transparentBox() << false;
}

void KeyboardTest::escapeEndsWhicheverControlHasTheFocus()
{
    // given
    QFETCH(QPoint, control);
    QFETCH(bool, opensList);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    if (opensList) {
        QVERIFY(desktop->controls.openList(control, korvel));
        desktop->keyboard.strike(XK_Return);
        EVENTUALLY(!desktop->controls.isListOpen(korvel));
    } else {
        desktop->pointer.click(control);
    }

    // when
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void KeyboardTest::escapeEndsOnTheCloseButton()
{
    // given
    constexpr int closeButton = 4; // after two boxes and the check box
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    for (int stroke = 0; stroke < closeButton; ++stroke)
        desktop->keyboard.strike(XK_Tab);

    // when
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void KeyboardTest::aClickOnTheFrameBringsItBack()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    if (isManaged())
        EVENTUALLY(desktop->windows.isListed(document.id()));
    document.takeKeyboard();

    // when
    // For a moment after the loss Qt takes itself for active, and a click changes nothing.
    const auto clickBringsItBack = [&] {
        desktop->pointer.click({200, 300});
        return korvel.hasKeyboard();
    };

    // then
    EVENTUALLY(clickBringsItBack());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void KeyboardTest::anOpenMenuOfAnotherProgramKeepsItUntilItIsGone()
{
    // given
    PoppedUpMenu menu(desktop->display, Menu, Qt::magenta);
    QVERIFY(menu.hasGrabbed());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Menu.center()), QColor(Qt::magenta));
    const QImage before = settledPicture();

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY(!menu.isOpen());
    QCOMPARE(korvel.status(), ChildProcess::Running);
    // In the picture the menu stays. A compositor may have been at its shadow still.
    const QList<QRect> withShadow{Menu.adjusted(-40, -40, 40, 40)};
    EVENTUALLY_COMPARE(difference(blanked(pictureBesidesPalette(), withShadow),
                                  blanked(withoutPalette(before), withShadow)),
                       QRect());
    QCOMPARE(desktop->screen.colourAt(Menu.center()), QColor(Qt::magenta));
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

REGISTER_TEST(KeyboardTest, QCoreApplication)
#include "keyboardtest.moc"

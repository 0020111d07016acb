#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

#include <functional>

/// All ways to end the program, and what does not end it. Whichever way, nothing stays on the
/// screen.
class EndingTest : public DesktopTest {
    Q_OBJECT

private slots:
    void everyWayEndsWithStatusZeroAndAClearScreen_data();
    void everyWayEndsWithStatusZeroAndAClearScreen();
    void escapeEndsWhereverTheTabKeyLeads_data();
    void escapeEndsWhereverTheTabKeyLeads();
    void escapeClosesOnlyAnOpenList_data();
    void escapeClosesOnlyAnOpenList();
    void otherKeysDoNothing();

private:
    using Step = std::function<void(const Desktop&, Program&)>;
};

Q_DECLARE_METATYPE(std::function<void(const Desktop&, Program&)>)

void EndingTest::everyWayEndsWithStatusZeroAndAClearScreen_data()
{
    QTest::addColumn<Step>("end");

    QTest::newRow("Escape, without a click before")
        << Step([](const Desktop& user, Program&) { user.keyboard.strike(XK_Escape); });
    QTest::newRow("Escape, with the pointer on the palette")
        << Step([](const Desktop& user, Program&) {
               user.pointer.moveTo(user.palette.handle());
               user.keyboard.strike(XK_Escape);
           });
    QTest::newRow("Escape, after a click on the palette")
        << Step([](const Desktop& user, Program&) {
               user.pointer.click(user.palette.background());
               user.keyboard.strike(XK_Escape);
           });
    QTest::newRow("Escape, after a stroke") << Step([](const Desktop& user, Program&) {
        user.pointer.drag(line({200, 200}, {600, 400}));
        user.keyboard.strike(XK_Escape);
    });
    QTest::newRow("Escape, while drawing") << Step([](const Desktop& user, Program&) {
        user.pointer.moveTo({200, 200});
        user.pointer.press();
        user.pointer.moveTo({600, 400});
        user.keyboard.strike(XK_Escape);
    });
    QTest::newRow("the close button") << Step(
        [](const Desktop& user, Program&) { user.pointer.click(user.palette.closeButton()); });
    QTest::newRow("closing the window")
        << Step([](const Desktop&, Program& korvel) { korvel.askFrameToClose(); });
    QTest::newRow("SIGTERM") << Step(
        [](const Desktop&, Program& korvel) { korvel.process().send(SIGTERM); });
}

void EndingTest::everyWayEndsWithStatusZeroAndAClearScreen()
{
    // given
    QFETCH(Step, end);
    desktop->backdrop.paintPattern();
    const QImage before = desktop->screen.grab();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    end(*desktop, korvel);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

void EndingTest::escapeEndsWhereverTheTabKeyLeads_data()
{
    QTest::addColumn<int>("strokes");

    for (int strokes = 1; strokes <= 5; ++strokes) // boxes, check box, close button, and round
        QTest::addRow("%d", strokes) << strokes;
}

void EndingTest::escapeEndsWhereverTheTabKeyLeads()
{
    // given
    QFETCH(int, strokes);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    for (int stroke = 0; stroke < strokes; ++stroke)
        desktop->keyboard.strike(XK_Tab);

    // when
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void EndingTest::escapeClosesOnlyAnOpenList_data()
{
    QTest::addColumn<QPoint>("box");

    QTest::newRow("size") << PaletteLayout({1280, 800}).sizeBox();
    QTest::newRow("colour") << PaletteLayout({1280, 800}).colourBox();
}

void EndingTest::escapeClosesOnlyAnOpenList()
{
    // given
    QFETCH(QPoint, box);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openList(box, korvel));

    // when
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    QVERIFY(parkPointer({300, 300}, Qt::yellow));
    QCOMPARE(korvel.status(), ChildProcess::Running);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void EndingTest::otherKeysDoNothing()
{
    // given
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(parkPointer({300, 300}, Qt::yellow));
    const QList<QRect> palette{desktop->palette.area()}; // may still be fading
    const QImage before = blanked(desktop->screen.grab(), palette);

    // when
    desktop->keyboard.type("abcxyz 0123456789qQ+-");
    for (const xcb_keysym_t key :
         {XK_Return, XK_BackSpace, XK_Delete, XK_Up, XK_Down, XK_F1, XK_F4, XK_Home})
        desktop->keyboard.strike(key);

    // then
    QVERIFY(parkPointer({400, 300}, Qt::yellow));
    QVERIFY(parkPointer({300, 300}, Qt::yellow));
    QCOMPARE(blanked(desktop->screen.grab(), palette), before);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

REGISTER_TEST(EndingTest, QCoreApplication)
#include "endingtest.moc"

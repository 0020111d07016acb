#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The palette's controls: what they do to the pen.
class ControlsTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aSizeIsChosenWithTheMouse_data();
    void aSizeIsChosenWithTheMouse();
    void aSizeIsChosenWithTheKeys();
    void aStartSizeOfItsOwnIsTheLastEntry();
    void aColourIsChosenWithTheMouse();
    void theCheckBoxMakesTheInkTransparent();
    void theCheckBoxMakesTheInkOpaque();
    void listsOpenAboveTheFrame_data();
    void listsOpenAboveTheFrame();

private:
    static constexpr QPoint Away{100, 700};
    static constexpr int SizeEntries = 7;
    static constexpr int ColourEntries = 9;

    /// The width of a new stroke in black or blue on white.
    [[nodiscard]] qreal widthOfStroke(QColor ink) const;
};

qreal ControlsTest::widthOfStroke(QColor ink) const
{
    desktop->pointer.drag(line({200, 200}, {400, 200}));
    if (!parkPointer(Away, ink))
        return -1;
    return Ink(desktop->screen.grab({300, 100, 1, 200}), Qt::white, ink).acrossColumn(0);
}

void ControlsTest::aSizeIsChosenWithTheMouse_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<int>("size");

    QTest::newRow("first") << 0 << 8;
    QTest::newRow("second") << 1 << 12;
    QTest::newRow("last") << SizeEntries - 1 << 32;
}

void ControlsTest::aSizeIsChosenWithTheMouse()
{
    // given
    QFETCH(int, entry);
    QFETCH(int, size);
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "0"}});
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openList(desktop->palette.sizeBox(), korvel));

    // when
    desktop->pointer.click(desktop->controls.placeOf(entry, SizeEntries, korvel));

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    const qreal width = widthOfStroke(Qt::black);
    QVERIFY2(fitsPen(width, size), qPrintable(QString::number(width)));
}

void ControlsTest::aSizeIsChosenWithTheKeys()
{
    // given
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "0"}});
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openList(desktop->palette.sizeBox(), korvel));

    // when
    desktop->keyboard.strike(XK_Down);
    desktop->keyboard.strike(XK_Down);
    desktop->keyboard.strike(XK_Return);

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    const qreal width = widthOfStroke(Qt::black);
    QVERIFY2(fitsPen(width, 28), qPrintable(QString::number(width)));
}

void ControlsTest::aStartSizeOfItsOwnIsTheLastEntry()
{
    // given
    const Program korvel(*desktop, {.arguments = {"15", "0", "0", "0"}});
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openList(desktop->palette.sizeBox(), korvel));
    desktop->keyboard.strike(XK_Home);
    desktop->keyboard.strike(XK_Return);
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    QVERIFY(fitsPen(widthOfStroke(Qt::black), 8));

    // when
    QVERIFY(desktop->controls.openList(desktop->palette.sizeBox(), korvel));
    desktop->keyboard.strike(XK_End);
    desktop->keyboard.strike(XK_Return);

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    desktop->pointer.drag(line({200, 400}, {400, 400}));
    QVERIFY(parkPointer({100, 600}, Qt::black));
    const Ink stroke(desktop->screen.grab({300, 300, 1, 200}), Qt::white, Qt::black);
    QVERIFY(fitsPen(stroke.acrossColumn(0), 15));
}

void ControlsTest::aColourIsChosenWithTheMouse()
{
    // given
    constexpr int blue = 5;
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    QVERIFY(desktop->controls.openList(desktop->palette.colourBox(), korvel));

    // when
    desktop->pointer.click(desktop->controls.placeOf(blue, ColourEntries, korvel));

    // then
    EVENTUALLY(!desktop->controls.isListOpen(korvel));
    QVERIFY(fitsPen(widthOfStroke(Qt::blue), 20));
}

void ControlsTest::theCheckBoxMakesTheInkTransparent()
{
    // given
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "255"}});
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.click(desktop->palette.transparentBox());
    desktop->pointer.drag(line({200, 200}, {400, 200}));
    desktop->pointer.moveTo(Away);

    // then
    const QColor half = mixed(Qt::white, Qt::blue, 0.5);
    EVENTUALLY(isClose(desktop->screen.colourAt(Away), half, 1));
    QVERIFY(isClose(desktop->screen.colourAt({300, 200}), half, 1));
}

void ControlsTest::theCheckBoxMakesTheInkOpaque()
{
    // given
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "255", "1"}});
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.click(desktop->palette.transparentBox());

    // then
    QVERIFY(fitsPen(widthOfStroke(Qt::blue), 20));
}

void ControlsTest::listsOpenAboveTheFrame_data()
{
    QTest::addColumn<QPoint>("box");

    QTest::newRow("sizes") << PaletteLayout({1280, 800}).sizeBox();
    QTest::newRow("colours") << PaletteLayout({1280, 800}).colourBox();
}

void ControlsTest::listsOpenAboveTheFrame()
{
    // given
    QFETCH(QPoint, box);
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(desktop->controls.openList(box, korvel));

    // then
    const xcb_window_t list = desktop->windows.listOf(korvel.pid());
    QVERIFY(desktop->windows.isAbove(list, korvel.frame()));
    QVERIFY(desktop->screen.area().contains(desktop->windows.geometry(list)));
}

REGISTER_TEST(ControlsTest, QCoreApplication)
#include "controlstest.moc"

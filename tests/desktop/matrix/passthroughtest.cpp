#include "tests/desktop/harness/inputwatch.h"
#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// A palette whose shutter is closed lets the mouse through the frame, and opens again by its
/// handle.
class PassThroughTest : public MatrixTest {
    Q_OBJECT

private slots:
    void aClosedShutterLetsTheMouseThrough();
    void theHandleOpensTheShutterAgain();

private:
    void furnish() override;

    static constexpr QRect Document{100, 100, 400, 300};
    static const inline QColor FrameColour = Qt::magenta;
    static const inline QColor PressedColour = Qt::yellow;
    static const inline QColor HandleColour = Qt::red;
    static const inline QColor PaletteColour = Qt::blue;

    [[nodiscard]] Launch tool() const { return {.executable = qgetenv("KORVEL_SHUTTER_TOOL")}; }
    [[nodiscard]] QPoint handle() const { return desktop->palette.at({20, 50}); }
    [[nodiscard]] QPoint body() const { return desktop->palette.at({200, 40}); }
    [[nodiscard]] bool showsColour(QPoint place, QColor colour) const
    {
        return desktop->screen.colourAt(place) == colour;
    }
};

void PassThroughTest::furnish()
{
    MatrixTest::furnish();
    if (isTiled())
        QSKIP("the window manager takes the windows under a full-screen one off the screen");
}

void PassThroughTest::aClosedShutterLetsTheMouseThrough()
{
    // given
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::green);
    EVENTUALLY(shows(document, Qt::green));
    const QPoint middle = desktop->windows.geometry(document.id()).center();
    InputWatch clicks(desktop->display, document.id());
    const Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard() && showsColour(body(), PaletteColour));
    desktop->pointer.click(middle);
    EVENTUALLY(showsColour(middle, PressedColour));
    QCOMPARE(clicks.presses(), 0);

    // when
    desktop->pointer.click(handle());
    EVENTUALLY(!showsColour(body(), PaletteColour));
    desktop->pointer.click(middle);

    // then
    EVENTUALLY_COMPARE(clicks.presses(), 1);
    QVERIFY(showsColour(middle, PressedColour) || showsColour(middle, Qt::green));
}

void PassThroughTest::theHandleOpensTheShutterAgain()
{
    // given
    const ClientWindow document = client(
        ClientWindow::Kind::Ordinary, desktop->screen.area().adjusted(40, 40, -40, -40), Qt::green);
    EVENTUALLY(shows(document, Qt::green));
    InputWatch clicks(desktop->display, document.id());
    const QPoint middle = desktop->windows.geometry(document.id()).center();
    Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard() && showsColour(body(), PaletteColour));
    desktop->pointer.click(handle());
    EVENTUALLY(!showsColour(body(), PaletteColour));
    desktop->pointer.click(middle);
    EVENTUALLY_COMPARE(clicks.presses(), 1);

    // when
    QVERIFY(showsColour(handle(), HandleColour));
    desktop->pointer.click(handle());

    // then
    EVENTUALLY(showsColour(body(), PaletteColour));
    desktop->pointer.click(middle);
    EVENTUALLY(showsColour(middle, PressedColour));
    QCOMPARE(clicks.presses(), 1);
    EVENTUALLY(program.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(program.status(), 0);
}

REGISTER_TEST(PassThroughTest, QCoreApplication)
#include "passthroughtest.moc"

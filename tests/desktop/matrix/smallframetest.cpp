#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// A frame of a size of its own lies at the screen's corner, above all that is there, and casts no
/// shadow.
class SmallFrameTest : public MatrixTest {
    Q_OBJECT

private slots:
    void itLiesAtTheCornerOfTheScreen();
    void itsDialogOpensAboveIt();
    void itIsResizedByItsTool();
    void itHasNoShadow();
    void inTheNormalModePanelsAreSeenAgain_data();
    void inTheNormalModePanelsAreSeenAgain();
    void inTheNormalModeItStaysAboveOthersWithTheKeyboard();
    void afterTheNormalModePanelsAreCoveredAgain();

private:
    /// Whatever the frame asks for.
    [[nodiscard]] static bool keepsFramesAbovePanels()
    {
        return managerName() == "icewm" || isTiled();
    }

    static constexpr QRect Frame{0, 0, 800, 600};
    static constexpr QRect TopPanel{0, 0, 1280, 30};
    static constexpr QPoint CoveredPoint{20, 10}; ///< in the panel
    static constexpr QRect TopWindow{300, 200, 400, 300};
    static const inline QColor FrameColour = Qt::magenta;

    [[nodiscard]] Launch tool() const
    {
        return {.arguments = {"800", "600"}, .executable = qgetenv("KORVEL_SHUTTER_TOOL")};
    }
};

void SmallFrameTest::itLiesAtTheCornerOfTheScreen()
{
    // given
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow above = client(ClientWindow::Kind::AlwaysOnTop, TopWindow, Qt::blue);
    EVENTUALLY(shows(panel, Qt::green) && shows(above, Qt::blue));

    // when
    Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard());

    // then
    EVENTUALLY_COMPARE(desktop->windows.geometry(program.frame()), Frame);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Frame.topLeft()), FrameColour);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(TopWindow.center()), FrameColour);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(program.status(), 0);
}

void SmallFrameTest::itsDialogOpensAboveIt()
{
    // given
    Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard());
    const xcb_window_t frame = program.frame();
    const auto dialog = [&] { return desktop->windows.titled("Note"); };

    // when
    desktop->keyboard.strike('d');

    // then
    EVENTUALLY(dialog() != XCB_NONE);
    EVENTUALLY_COMPARE(desktop->windows.focused(), dialog());
    EVENTUALLY(desktop->windows.isAbove(dialog(), frame));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY(dialog() == XCB_NONE);
    QCOMPARE(program.status(), ChildProcess::Running);
}

void SmallFrameTest::itIsResizedByItsTool()
{
    // given
    constexpr QRect otherPlace(0, 0, 900, 500);
    const Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard());
    EVENTUALLY_COMPARE(desktop->windows.geometry(program.frame()), Frame);

    // when
    desktop->keyboard.strike('r');

    // then
    EVENTUALLY_COMPARE(desktop->windows.geometry(program.frame()), otherPlace);
    EVENTUALLY_COMPARE(desktop->screen.colourAt(otherPlace.bottomRight()), FrameColour);
}

void SmallFrameTest::itHasNoShadow()
{
    // given
    if (managerName() == "xfwm4-compositing")
        QSKIP("its own compositor heeds no property of a window");
    const QImage before = blanked(settledPicture(), {Frame});

    // when
    const Program program(*desktop, tool());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(Frame.center()), FrameColour);

    // then
    EVENTUALLY_COMPARE(difference(blanked(desktop->screen.grab(), {Frame}), before), QRect());
    QCOMPARE(difference(blanked(settledPicture(), {Frame}), before), QRect());
}

void SmallFrameTest::inTheNormalModePanelsAreSeenAgain_data()
{
    QTest::addColumn<QList<QByteArray>>("size");

    QTest::newRow("of a size of its own") << QList<QByteArray>{"800", "600"};
    QTest::newRow("over the whole screen") << QList<QByteArray>();
}

void SmallFrameTest::inTheNormalModePanelsAreSeenAgain()
{
    // given
    QFETCH(QList<QByteArray>, size);
    if (keepsFramesAbovePanels())
        QSKIP("icewm and i3 leave the frame above panels, see docs/desktops.md");
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    EVENTUALLY(shows(panel, Qt::green));
    Program program(*desktop, {.arguments = size, .executable = qgetenv("KORVEL_SHUTTER_TOOL")});
    EVENTUALLY(program.hasKeyboard());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(CoveredPoint), FrameColour);

    // when
    desktop->keyboard.strike('n');

    // then
    EVENTUALLY_COMPARE(desktop->screen.colourAt(CoveredPoint), QColor(Qt::green));
    QCOMPARE(program.status(), ChildProcess::Running);
}

void SmallFrameTest::inTheNormalModeItStaysAboveOthersWithTheKeyboard()
{
    // given
    if (!isManaged())
        QSKIP("only a window manager tells panels from other windows");
    if (keepsFramesAbovePanels())
        QSKIP("icewm and i3 leave the frame above panels, see docs/desktops.md");
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow other = client(ClientWindow::Kind::Ordinary, TopWindow, Qt::blue);
    EVENTUALLY(shows(panel, Qt::green) && shows(other, Qt::blue));
    Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(CoveredPoint), FrameColour);

    // when
    desktop->keyboard.strike('n');

    // then
    EVENTUALLY_COMPARE(desktop->screen.colourAt(CoveredPoint), QColor(Qt::green));
    QCOMPARE(desktop->screen.colourAt(TopWindow.center()), FrameColour);
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(program.status(), 0);
}

void SmallFrameTest::afterTheNormalModePanelsAreCoveredAgain()
{
    // given
    if (keepsFramesAbovePanels())
        QSKIP("icewm and i3 leave the frame above panels, see docs/desktops.md");
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    EVENTUALLY(shows(panel, Qt::green));
    const Program program(*desktop, tool());
    EVENTUALLY(program.hasKeyboard());
    EVENTUALLY_COMPARE(desktop->screen.colourAt(CoveredPoint), FrameColour);
    desktop->keyboard.strike('n');
    EVENTUALLY_COMPARE(desktop->screen.colourAt(CoveredPoint), QColor(Qt::green));

    // when
    desktop->keyboard.strike('h');

    // then: not by colours, since the normal mode let some window managers move it beside the panel
    EVENTUALLY(desktop->windows.isAbove(program.frame(), panel.id()));
}

REGISTER_TEST(SmallFrameTest, QCoreApplication)
#include "smallframetest.moc"

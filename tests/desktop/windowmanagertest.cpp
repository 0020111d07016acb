#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"

#include <X11/keysym.h>

/// The frame among the windows of others, as different window managers arrange them.
class WindowManagerTest : public DesktopTest {
    Q_OBJECT

private slots:
    void theFrameCoversPanelsAndWindowsOnTop_data() { addWindowManagers(); }
    void theFrameCoversPanelsAndWindowsOnTop();
    void theKeyboardIsTheFramesAtOnce_data() { addWindowManagers(); }
    void theKeyboardIsTheFramesAtOnce();
    void listsOpenAboveTheFrame_data() { addWindowManagers(); }
    void listsOpenAboveTheFrame();
    void aNewWindowStaysUnderTheFrame_data() { addManagersOnly(); }
    void aNewWindowStaysUnderTheFrame();
    void aClickOnTheFrameBringsTheKeyboardBack_data() { addManagersOnly(); }
    void aClickOnTheFrameBringsTheKeyboardBack();
    void afterwardsAllIsAsBefore_data() { addWindowManagers(); }
    void afterwardsAllIsAsBefore();
    void theWindowManagerCanCloseTheFrame_data() { addManagersOnly(); }
    void theWindowManagerCanCloseTheFrame();

private:
    static constexpr QRect TopPanel{0, 0, 1280, 30};
    static constexpr QRect BottomPanel{0, 760, 1280, 40};
    static constexpr QRect TopWindow{300, 200, 400, 300};
    static constexpr QRect Document{500, 100, 300, 300};

    static void addManagersOnly();
    [[nodiscard]] ClientWindow client(ClientWindow::Kind kind, QRect place, QColor colour) const
    {
        return {desktop->x, kind, place, colour};
    }
    /// Whether the middle of the place shows the colour.
    [[nodiscard]] bool shows(QRect place, QColor colour) const
    {
        return desktop->screen.colourAt(place.center()) == colour;
    }
    [[nodiscard]] QList<QRect> paletteAndDot() const
    {
        const QPoint reach(20, 20);
        return {desktop->palette.area(),
                {desktop->pointer.position() - reach, desktop->pointer.position() + reach}};
    }
};

void WindowManagerTest::addManagersOnly()
{
    QTest::addColumn<WindowManager::Kind>("kind");

    QTest::newRow("openbox") << WindowManager::Kind::Openbox;
    QTest::newRow("xfwm4") << WindowManager::Kind::Xfwm4;
}

void WindowManagerTest::theFrameCoversPanelsAndWindowsOnTop()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    const ClientWindow top = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow bottom = client(ClientWindow::Kind::Dock, BottomPanel, Qt::cyan);
    const ClientWindow above = client(ClientWindow::Kind::AlwaysOnTop, TopWindow, Qt::blue);
    EVENTUALLY(shows(TopPanel, Qt::green) && shows(BottomPanel, Qt::cyan)
               && shows(TopWindow, Qt::blue));
    const QImage before = desktop->screen.grab();

    // when
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    for (const ClientWindow* window : {&top, &bottom, &above})
        window->fill(Qt::red); // would show if it were above the frame

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), desktop->screen.area());
    QVERIFY(desktop->windows.lists(korvel.frame(), "_NET_WM_STATE", "_NET_WM_STATE_ABOVE"));
    QCOMPARE(blanked(desktop->screen.grab(), paletteAndDot()), blanked(before, paletteAndDot()));
    QVERIFY(parkPointer({100, 780}, Qt::yellow)); // where a panel is
    QCOMPARE(blanked(desktop->screen.grab(), paletteAndDot()), blanked(before, paletteAndDot()));
}

void WindowManagerTest::theKeyboardIsTheFramesAtOnce()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    EVENTUALLY(shows(Document, Qt::blue));
    desktop->pointer.click(Document.center());
    if (kind == WindowManager::Kind::None)
        document.takeKeyboard();
    EVENTUALLY_COMPARE(desktop->windows.focused(), document.id());
    desktop->keyboard.type("abc");

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void WindowManagerTest::listsOpenAboveTheFrame()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(desktop->controls.openList(desktop->palette.colourBox(), korvel));

    // then
    const xcb_window_t list = desktop->windows.listOf(korvel.pid());
    QVERIFY(desktop->windows.isAbove(list, korvel.frame()));
}

void WindowManagerTest::aNewWindowStaysUnderTheFrame()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const QImage before = blanked(desktop->screen.grab(), paletteAndDot());

    // when
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    EVENTUALLY(desktop->windows.isOnScreen(document.id()));

    // then
    EVENTUALLY(desktop->windows.isAbove(korvel.frame(), document.id()));
    EVENTUALLY_COMPARE(blanked(desktop->screen.grab(), paletteAndDot()), before);
}

void WindowManagerTest::aClickOnTheFrameBringsTheKeyboardBack()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    EVENTUALLY_COMPARE(desktop->windows.focused(), document.id());

    // when
    // For a moment after the loss the toolkit takes itself for active, and a click changes nothing.
    const auto clickBringsItBack = [&] {
        desktop->pointer.click({200, 300});
        return korvel.hasKeyboard();
    };

    // then
    EVENTUALLY(clickBringsItBack());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void WindowManagerTest::afterwardsAllIsAsBefore()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    desktop->backdrop.paintPattern();
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow above = client(ClientWindow::Kind::AlwaysOnTop, TopWindow, Qt::blue);
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::red);
    EVENTUALLY(shows(TopPanel, Qt::green) && shows(TopWindow, Qt::blue)
               && desktop->windows.isOnScreen(document.id()));
    const QImage before = desktop->screen.grab();
    const auto places = [&] {
        return QList<QRect>{desktop->windows.geometry(panel.id()),
                            desktop->windows.geometry(above.id()),
                            desktop->windows.geometry(document.id())};
    };
    const QList<QRect> placesBefore = places();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.drag(line({200, 200}, {600, 300}));

    // when
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);

    // then
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
    QCOMPARE(places(), placesBefore);
}

void WindowManagerTest::theWindowManagerCanCloseTheFrame()
{
    // given
    QFETCH(WindowManager::Kind, kind);
    QVERIFY(startWindowManager(kind));
    const QImage before = desktop->screen.grab();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    korvel.closeThroughManager();

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
    EVENTUALLY_COMPARE(desktop->screen.grab(), before);
}

QTEST_GUILESS_MAIN(WindowManagerTest)
#include "windowmanagertest.moc"

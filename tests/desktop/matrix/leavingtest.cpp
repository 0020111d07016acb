#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// When the frame is gone, everything is as before it came.
class LeavingTest : public MatrixTest {
    Q_OBJECT

private slots:
    void windowsLieWhereTheyLay();
    void theKeyboardIsGivenBack_data();
    void theKeyboardIsGivenBack();
    void aFullScreenProgramIsInFrontAgain();
    void theWindowManagerCanCloseTheFrame();

private:
    static constexpr QRect TopPanel{0, 0, 1280, 30};
    static constexpr QRect TopWindow{300, 200, 400, 300};
    static constexpr QRect Document{560, 410, 440,
                                    240}; // clear of the middle of TopWindow, with its shadow
};

void LeavingTest::windowsLieWhereTheyLay()
{
    // given
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow above = client(ClientWindow::Kind::AlwaysOnTop, TopWindow, Qt::blue);
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::red);
    EVENTUALLY(shows(panel, Qt::green) && shows(above, Qt::blue)
               && desktop->windows.isOnScreen(document.id()));
    const auto places = [&] {
        return QList<QRect>{desktop->windows.geometry(panel.id()),
                            desktop->windows.geometry(above.id()),
                            desktop->windows.geometry(document.id())};
    };
    const QList<QRect> placesBefore = places();
    QVERIFY(clickInto(document));
    const QImage before = settledPicture();
    const bool wasAbove = desktop->windows.isAbove(above.id(), document.id());
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    desktop->pointer.drag(line({200, 200}, {600, 300}));

    // when
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);

    // then
    const QList<QRect> ignored = varyingShadows(placesBefore.last());
    EVENTUALLY_COMPARE(difference(desktop->screen.grab(), before, ignored), QRect());
    QCOMPARE(places(), placesBefore);
    QCOMPARE(desktop->windows.isAbove(above.id(), document.id()), wasAbove);
}

void LeavingTest::theKeyboardIsGivenBack_data()
{
    QTest::addColumn<ClientWindow::Kind>("neighbour");

    QTest::newRow("beside another window") << ClientWindow::Kind::Ordinary;
    QTest::newRow("beside a window on top") << ClientWindow::Kind::AlwaysOnTop;
}

void LeavingTest::theKeyboardIsGivenBack()
{
    // given
    QFETCH(ClientWindow::Kind, neighbour);
    const ClientWindow other = client(neighbour, TopWindow, Qt::blue);
    const ClientWindow document =
        client(ClientWindow::Kind::Ordinary, {800, 300, 300, 300}, Qt::red);
    EVENTUALLY(shows(other, Qt::blue) && shows(document, Qt::red));
    QVERIFY(clickInto(document));
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);

    // then
    EVENTUALLY_COMPARE(desktop->windows.focused(), document.id());
}

void LeavingTest::aFullScreenProgramIsInFrontAgain()
{
    // given
    if (isTiled())
        QSKIP("the window manager has one full-screen window at a time and ends the other's state");
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    EVENTUALLY(shows(panel, Qt::green));
    const ClientWindow slides =
        client(ClientWindow::Kind::FullScreen, desktop->screen.area(), Qt::blue);
    EVENTUALLY(shows(slides, Qt::blue));
    QVERIFY(clickInto(slides));
    EVENTUALLY_COMPARE(desktop->screen.colourAt(TopPanel.center()), QColor(Qt::blue));
    const QImage before = settledPicture();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);

    // then
    EVENTUALLY_COMPARE(desktop->windows.focused(), slides.id());
    EVENTUALLY_COMPARE(difference(desktop->screen.grab(), before), QRect());
}

void LeavingTest::theWindowManagerCanCloseTheFrame()
{
    // given
    if (!isManaged())
        QSKIP("nobody to close it");
    if (managerName().startsWith("kwin"))
        QSKIP("it takes windows of the notification type for what cannot be closed");
    const QImage before = settledPicture();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    korvel.closeThroughManager();

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
    EVENTUALLY_COMPARE(difference(desktop->screen.grab(), before), QRect());
}

REGISTER_TEST(LeavingTest, QCoreApplication)
#include "leavingtest.moc"

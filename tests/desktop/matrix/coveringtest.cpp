#include "tests/desktop/harness/panel.h"
#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

/// The frame lies over everything, and what it shows is what was there, to the pixel.
class CoveringTest : public MatrixTest {
    Q_OBJECT

private slots:
    void panelsAndWindowsOnTopAreCovered();
    void aRealPanelIsCovered();
    void anotherProgramInFullScreenIsCovered();
    void thePictureNeverMovesWhileTheFrameOpens();
    void aNewWindowStaysUnderTheFrame();

private:
    static constexpr QRect TopPanel{0, 0, 1280, 30};
    static constexpr QRect BottomPanel{0, 760, 1280, 40};
    static constexpr QRect TopWindow{300, 200, 400, 300};
    static constexpr QRect Document{750, 300, 300, 300};
};

void CoveringTest::panelsAndWindowsOnTopAreCovered()
{
    // given
    const ClientWindow top = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow bottom = client(ClientWindow::Kind::Dock, BottomPanel, Qt::cyan);
    const ClientWindow above = client(ClientWindow::Kind::AlwaysOnTop, TopWindow, Qt::blue);
    EVENTUALLY(shows(top, Qt::green) && shows(bottom, Qt::cyan) && shows(above, Qt::blue));
    const QImage before = settledPicture();

    // when
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    for (const ClientWindow* window : {&top, &bottom, &above})
        window->fill(Qt::red); // would show if it were above the frame

    // then
    QCOMPARE(desktop->windows.geometry(korvel.frame()), desktop->screen.area());
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), withoutPalette(before)), QRect());
    QVERIFY(parkPointer({100, 780}, Qt::yellow)); // where a panel is
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), withoutPalette(before)), QRect());
}

void CoveringTest::aRealPanelIsCovered()
{
    // given
    if (!QFile::exists(QLatin1String(Panel::executable)))
        QSKIP("tint2 is not installed");
    if (!isManaged())
        QSKIP("it waits for a window manager");
    const Panel panel(*desktop);
    const auto onPanel = [&] { return desktop->windows.geometry(panel.window()).center(); };
    EVENTUALLY(panel.window() != XCB_NONE
               && desktop->screen.colourAt(onPanel()) == QColor(0, 255, 0));
    const QImage before = settledPicture();

    // when
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    // Mutter loses changes that a window makes while it has only just been shown.
    static_cast<void>(settledPicture());

    // then
    QVERIFY(desktop->windows.isAbove(korvel.frame(), panel.window()));
    QVERIFY(parkPointer(onPanel(), Qt::yellow));
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), withoutPalette(before)), QRect());
}

void CoveringTest::anotherProgramInFullScreenIsCovered()
{
    // given
    const ClientWindow slides =
        client(ClientWindow::Kind::FullScreen, desktop->screen.area(), Qt::blue);
    slides.fill(Backdrop::pattern(desktop->screen.area().size()));
    EVENTUALLY_COMPARE(settledPicture(), Backdrop::pattern(desktop->screen.area().size()));
    const QImage before = desktop->screen.grab();

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    slides.fill(Qt::red);

    // then
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), withoutPalette(before)), QRect());
}

void CoveringTest::thePictureNeverMovesWhileTheFrameOpens()
{
    // given
    const ClientWindow panel = client(ClientWindow::Kind::Dock, TopPanel, Qt::green);
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    document.fill(Backdrop::pattern(Document.size()));
    EVENTUALLY(shows(panel, Qt::green) && desktop->windows.isOnScreen(document.id()));
    const QImage before = withoutPalette(settledPicture());
    const QList<QRect> ignored = varyingShadows(desktop->windows.geometry(document.id()));

    // when
    const Program korvel(*desktop);
    QRect moved;
    const auto looked = [&] {
        moved |= difference(pictureBesidesPalette(), before, ignored);
        return korvel.isReady();
    };

    // then
    EVENTUALLY(looked());
    QCOMPARE(difference(withoutPalette(settledPicture()), before), QRect());
    QCOMPARE(moved, QRect());
}

void CoveringTest::aNewWindowStaysUnderTheFrame()
{
    // given
    if (!isManaged())
        QSKIP("nobody orders the windows here");
    const Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());
    const QImage before = withoutPalette(settledPicture());

    // when
    const ClientWindow document = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    EVENTUALLY(desktop->windows.isListed(document.id()));

    // then
    EVENTUALLY(desktop->windows.isAbove(korvel.frame(), document.id()));
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), before), QRect());
    QCOMPARE(difference(withoutPalette(settledPicture()), before), QRect());
}

REGISTER_TEST(CoveringTest, QCoreApplication)
#include "coveringtest.moc"

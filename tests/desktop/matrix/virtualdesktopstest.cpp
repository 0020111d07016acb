#include "tests/desktop/matrix/matrixtest.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

/// The frame opens on the virtual desktop that is shown, and survives a visit to another one.
class VirtualDesktopsTest : public MatrixTest {
    Q_OBJECT

private slots:
    void theFrameOpensOnTheSecondDesktop();
    void theFrameIsBackWithItsDesktop();

private:
    // In the middle, where window managers tell for a while which desktop it is.
    static constexpr QRect Document{390, 250, 500, 300};

    void furnish() override;
    [[nodiscard]] bool goTo(int number);
};

void VirtualDesktopsTest::furnish()
{
    MatrixTest::furnish();
    if (!isManaged())
        QSKIP("there is one desktop only");
}

bool VirtualDesktopsTest::goTo(int number)
{
    manager->goToDesktop(number);
    return eventually([&] { return desktop->windows.currentDesktop() == number; });
}

void VirtualDesktopsTest::theFrameOpensOnTheSecondDesktop()
{
    // given
    const ClientWindow first = client(ClientWindow::Kind::Ordinary, Document, Qt::red);
    EVENTUALLY(shows(first, Qt::red));
    QVERIFY(goTo(1));
    const ClientWindow second = client(ClientWindow::Kind::Ordinary, Document, Qt::blue);
    EVENTUALLY(shows(second, Qt::blue));
    const QImage before = settledPicture();

    // when
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // then
    QCOMPARE(desktop->windows.currentDesktop(), 1);
    QCOMPARE(desktop->windows.geometry(korvel.frame()), desktop->screen.area());
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), withoutPalette(before)), QRect());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
    QCOMPARE(desktop->windows.currentDesktop(), 1);
    EVENTUALLY_COMPARE(difference(desktop->screen.grab(), before), QRect());
}

void VirtualDesktopsTest::theFrameIsBackWithItsDesktop()
{
    // given
    const ClientWindow first = client(ClientWindow::Kind::Ordinary, Document, Qt::red);
    EVENTUALLY(shows(first, Qt::red));
    const QImage before = settledPicture();
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    QVERIFY(goTo(1));
    QVERIFY(goTo(0));

    // then
    EVENTUALLY(desktop->windows.isOnScreen(korvel.frame()));
    const QList<QRect> ignored = varyingShadows(desktop->windows.geometry(first.id()));
    EVENTUALLY_COMPARE(difference(pictureBesidesPalette(), withoutPalette(before), ignored),
                       QRect());
    desktop->pointer.click({200, 300});
    EVENTUALLY(korvel.hasKeyboard());
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
    QCOMPARE(desktop->windows.currentDesktop(), 0);
}

REGISTER_TEST(VirtualDesktopsTest, QCoreApplication)
#include "virtualdesktopstest.moc"

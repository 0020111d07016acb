#include "os/presentationmode.h"

#include "tests/support/testprogram.h"
#include "windowsystem/none/nowindowsystem.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace osUtils::System;

namespace {

constexpr Qt::WindowFlags overlayFlags =
    Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;

}

/// The process-wide mode, on a window system that knows nothing of it.
class PresentationModeTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { setSystemUIMode(0, 0); }
    void anotherOperatingSystemIsNeverMet();
    void aDockIconChangesNothing_data();
    void aDockIconChangesNothing();
    void theModeIsRememberedInOnePlace();
    void anOverlayIsLeftAsItIs_data();
    void anOverlayIsLeftAsItIs();
    void thisWindowSystemIsAnother();
};

void PresentationModeTest::anotherOperatingSystemIsNeverMet()
{
    QVERIFY(!vistaOrlater());
}

void PresentationModeTest::aDockIconChangesNothing_data()
{
    QTest::addColumn<bool>("shown");

    QTest::newRow("shown") << true;
    QTest::newRow("hidden") << false;
}

void PresentationModeTest::aDockIconChangesNothing()
{
    // given
    QFETCH(bool, shown);
    QWindow window;
    window.setFlags(overlayFlags);
    window.setGeometry(10, 20, 300, 200);
    window.show();
    const Qt::WindowFlags flags = window.flags();
    const qsizetype helpers = qGuiApp->children().size();

    // when
    setShowDockIcon(shown);

    // then
    QVERIFY(window.isVisible());
    QCOMPARE(window.flags(), flags);
    QCOMPARE(window.geometry(), QRect(10, 20, 300, 200));
    QCOMPARE(qGuiApp->children().size(), helpers);
}

void PresentationModeTest::theModeIsRememberedInOnePlace()
{
    // when
    for (const int mode : {3, 0, 3, 3})
        setSystemUIMode(mode, 0);

    // then
    QCOMPARE(qGuiApp->findChildren<Windowing::WindowSystem*>().size(), 1);
}

void PresentationModeTest::anOverlayIsLeftAsItIs_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("options");

    QTest::newRow("all hidden") << 3 << 0;
    QTest::newRow("normal") << 0 << 0;
    QTest::newRow("with options") << 3 << 127;
    QTest::newRow("unknown") << -9 << -9;
}

void PresentationModeTest::anOverlayIsLeftAsItIs()
{
    // given
    QFETCH(int, mode);
    QFETCH(int, options);
    QWindow early;
    QWindow late;
    for (QWindow* window : {&early, &late}) {
        window->setFlags(overlayFlags);
        window->setGeometry(10, 20, 300, 200);
    }
    early.show();

    // when
    setSystemUIMode(mode, options);
    late.show();

    // then
    for (const QWindow* window : {&early, &late}) {
        QVERIFY(window->isVisible());
        QCOMPARE(window->geometry(), QRect(10, 20, 300, 200));
        QCOMPARE(window->windowStates(), Qt::WindowStates(Qt::WindowNoState));
        QCOMPARE(window->minimumSize(), QSize(0, 0));
    }
}

void PresentationModeTest::thisWindowSystemIsAnother()
{
    QVERIFY(dynamic_cast<Windowing::NoWindowSystem*>(&Windowing::WindowSystem::ofSession()));
}

REGISTER_TEST(PresentationModeTest, QGuiApplication)
#include "presentationmodetest.moc"

#include "windowsystem/windowsystem.h"

#include "windowsystem/none/nowindowsystem.h"

#include "tests/support/testprogram.h"

#include <QGuiApplication>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>

#include <typeinfo>

using namespace Windowing;

namespace {

/// Any other window system.
class OtherWindowSystem : public NoWindowSystem { };

QByteArray className(WindowSystem& system)
{
    return typeid(system).name();
}

}

/// The choice of the window system.
class WindowSystemTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void eachPlatformHasItsOwn();
    void thereIsOneForTheSession();
    void anotherTakesItsPlace();
};

void WindowSystemTest::eachPlatformHasItsOwn()
{
    const bool isX11 = QGuiApplication::platformName() == "xcb";

    QCOMPARE(className(WindowSystem::ofSession()).contains("X11WindowSystem"), isX11);
    QCOMPARE(className(WindowSystem::ofSession()).contains("NoWindowSystem"), !isX11);
}

void WindowSystemTest::thereIsOneForTheSession()
{
    QCOMPARE(&WindowSystem::ofSession(), &WindowSystem::ofSession());
    QCOMPARE(WindowSystem::ofSession().parent(), qGuiApp);
}

void WindowSystemTest::anotherTakesItsPlace()
{
    // given
    const QPointer<WindowSystem> former(&WindowSystem::ofSession());

    // when
    WindowSystem::replace(std::make_unique<OtherWindowSystem>());

    // then
    QVERIFY(former.isNull());
    QVERIFY(className(WindowSystem::ofSession()).contains("OtherWindowSystem"));
}

REGISTER_TEST(WindowSystemTest, QApplication)
#include "windowsystemtest.moc"

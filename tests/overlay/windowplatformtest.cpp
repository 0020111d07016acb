#include "overlay/windowplatform.h"

#include "overlay/windowplatform_none.h"
#include "overlay/windowplatform_x11.h"

#include <QRegularExpression>
#include <QTest>

#include <typeinfo>

using namespace Helpers::NQt;

/// The choice of the window system.
class WindowPlatformTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theX11PluginHasItsOwn();
    void otherNamesGetTheHarmlessOne_data();
    void otherNamesGetTheHarmlessOne();
    void thereIsOneOfEach();
};

void WindowPlatformTest::theX11PluginHasItsOwn()
{
    const QString name("xcb");
    const WindowPlatform& platform = windowPlatform(name);

    QVERIFY(typeid(platform) == typeid(WindowPlatformX11));
}

void WindowPlatformTest::otherNamesGetTheHarmlessOne_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("no screen") << "offscreen";
    QTest::newRow("minimal") << "minimal";
    QTest::newRow("remote") << "vnc";
    QTest::newRow("never heard of") << "doors";
    QTest::newRow("in capitals") << "XCB";
    QTest::newRow("with a blank") << "xcb ";
    QTest::newRow("longer") << "xcbegl";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void WindowPlatformTest::otherNamesGetTheHarmlessOne()
{
    // given
    QFETCH(QString, name);

    // when
    const WindowPlatform& platform = windowPlatform(name);

    // then
    QVERIFY(typeid(platform) == typeid(WindowPlatformNone));
}

void WindowPlatformTest::thereIsOneOfEach()
{
    QCOMPARE(&windowPlatform("xcb"), &windowPlatform("xcb"));
    QCOMPARE(&windowPlatform("offscreen"), &windowPlatform("doors"));
}

QTEST_APPLESS_MAIN(WindowPlatformTest)
#include "windowplatformtest.moc"

#include "windowsystem/x11/windowlayer.h"

#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

using namespace Windowing::X11;

Q_DECLARE_METATYPE(WindowLayer)

/// The decision which layer keeps an overlay above everything.
class WindowLayerTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theLayerDependsOnTheWindowManager_data();
    void theLayerDependsOnTheWindowManager();
    void someWindowManagersKeepTopWindowsAbovePanels();
    void fluxboxMovesNewWindows();
};

void WindowLayerTest::theLayerDependsOnTheWindowManager_data()
{
    constexpr auto notification = WindowLayer::Type::Notification;
    constexpr auto dock = WindowLayer::Type::Dock;

    QTest::addColumn<QByteArray>("windowManager");
    QTest::addColumn<bool>("coversScreen");
    QTest::addColumn<WindowLayer>("layer");

    QTest::newRow("none, over the screen")
        << QByteArray() << true << WindowLayer{notification, true};
    QTest::newRow("none, smaller") << QByteArray() << false << WindowLayer{notification, false};
    QTest::newRow("Openbox, over the screen")
        << QByteArray("Openbox") << true << WindowLayer{notification, true};
    QTest::newRow("Openbox, smaller") << QByteArray("Openbox") << false << WindowLayer{dock, false};
    QTest::newRow("Metacity, smaller")
        << QByteArray("Metacity") << false << WindowLayer{dock, false};
    QTest::newRow("Marco, smaller")
        << QByteArray("Metacity (Marco)") << false << WindowLayer{dock, false};
    QTest::newRow("Mutter, over the screen")
        << QByteArray("Mutter") << true << WindowLayer{notification, true};
    QTest::newRow("Mutter, smaller") << QByteArray("Mutter") << false << WindowLayer{dock, false};
    QTest::newRow("GNOME Shell, smaller")
        << QByteArray("GNOME Shell") << false << WindowLayer{dock, false};
    QTest::newRow("Fluxbox, over the screen")
        << QByteArray("Fluxbox") << true << WindowLayer{notification, false};
    QTest::newRow("KWin, smaller")
        << QByteArray("KWin") << false << WindowLayer{notification, false};
    QTest::newRow("Xfwm4, over the screen")
        << QByteArray("Xfwm4") << true << WindowLayer{dock, false};
    QTest::newRow("Xfwm4, smaller") << QByteArray("Xfwm4") << false << WindowLayer{dock, false};
    QTest::newRow("in lower case") << QByteArray("xfwm4") << true << WindowLayer{dock, false};
    QTest::newRow("in capitals") << QByteArray("XFWM") << true << WindowLayer{dock, false};
    QTest::newRow("amid its name") << QByteArray("The Xfwm5") << true << WindowLayer{dock, false};
    QTest::newRow("a similar name") << QByteArray("xfw") << true << WindowLayer{notification, true};
    QTest::newRow("no text") << QByteArray("\xff\xfe\0", 3) << true
                             << WindowLayer{notification, true};
}

void WindowLayerTest::theLayerDependsOnTheWindowManager()
{
    // given
    QFETCH(QByteArray, windowManager);
    QFETCH(bool, coversScreen);

    // when
    const WindowLayer layer = coveringLayer(windowManager, coversScreen);

    // then
    QTEST(layer, "layer");
}

void WindowLayerTest::someWindowManagersKeepTopWindowsAbovePanels()
{
    QVERIFY(keepsTopWindowsAbovePanels("Xfwm4"));
    QVERIFY(keepsTopWindowsAbovePanels("Fluxbox"));
    QVERIFY(keepsTopWindowsAbovePanels("KWin"));
    QVERIFY(!keepsTopWindowsAbovePanels("Openbox"));
    QVERIFY(!keepsTopWindowsAbovePanels(QByteArray()));
}

void WindowLayerTest::fluxboxMovesNewWindows()
{
    QVERIFY(movesNewWindows("Fluxbox"));
    QVERIFY(!movesNewWindows("Openbox"));
    QVERIFY(!movesNewWindows(QByteArray()));
}

REGISTER_TEST(WindowLayerTest, TestSupport::NoApplication)
#include "windowlayertest.moc"

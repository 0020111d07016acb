#include "windowsystem/x11/monitors.h"

#include "tests/support/testprogram.h"

#include <QGuiApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

using Windowing::X11::monitors;

/// The server's monitors, which may change.
class X11MonitorsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theOnlyMonitorCoversTheScreen();
    void aChangeIsNoticed();
};

void X11MonitorsTest::theOnlyMonitorCoversTheScreen()
{
    QCOMPARE(monitors(), QList<QRect>{QRect(0, 0, 1280, 800)});
}

void X11MonitorsTest::aChangeIsNoticed()
{
    // given
    QCOMPARE(monitors().size(), 1);

    // when
    QCOMPARE(
        QProcess::execute("xrandr",
                          QString("--newmode small 25 640 656 752 800 480 490 492 525").split(' ')),
        0);
    QCOMPARE(QProcess::execute("xrandr", {"--addmode", "screen", "small"}), 0);
    QCOMPARE(QProcess::execute("xrandr", {"--output", "screen", "--mode", "small"}), 0);

    // then
    QTRY_COMPARE(monitors(), QList<QRect>{QRect(0, 0, 640, 480)});
}

REGISTER_TEST(X11MonitorsTest, QGuiApplication)
#include "x11monitorstest.moc"

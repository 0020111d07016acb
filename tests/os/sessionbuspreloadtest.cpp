#include "os/sessionbuspreload.h"

#include <QDBusConnection>
#include <QRegularExpression>
#include <QTest>

using osUtils::System::SessionBusPreload;

/// The session's message bus, connected to ahead.
class SessionBusPreloadTest : public QObject {
    Q_OBJECT

private slots:
    void withoutABusNothingIsSaid();
};

void SessionBusPreloadTest::withoutABusNothingIsSaid()
{
    // given
    QTest::failOnWarning(QRegularExpression(".?"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");

    // when
    {
        const SessionBusPreload preload;
    }

    // then
    QVERIFY(!QDBusConnection::sessionBus().isConnected());
}

QTEST_MAIN(SessionBusPreloadTest)
#include "sessionbuspreloadtest.moc"

#include "action/frame/quitguard.h"
#include "tests/support/eventloop.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

using VcAction::Frame::QuitGuard;

namespace {

/// Quits as soon as the application is about to, as often as it is told so.
class QuittingListener : public QObject {
    Q_OBJECT

public:
    int calls = 0;

public slots:
    void quitToo()
    {
        ++calls;
        QVERIFY2(calls < 10, "quitting without end");
        QCoreApplication::quit();
    }
};

}

/// Quitting while quitting, for an application object that is not the program's own.
class QuitGuardTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aSlotThatQuitsWhileQuittingIsHarmless();
    void aSlotThatQuitsDuringAnExitIsCalledOnce();
    void quittingWorksAgainInTheNextEventLoop();
    void anApplicationIsGuardedOnce();
};

void QuitGuardTest::aSlotThatQuitsWhileQuittingIsHarmless()
{
    // Given
    QuitGuard::guard(*qApp);
    QuittingListener listener;
    connect(qApp, SIGNAL(aboutToQuit()), &listener, SLOT(quitToo()));
    connect(qApp, SIGNAL(aboutToQuit()), qApp, SLOT(quit()));

    // When
    const int status = TestSupport::statusAfter([] { QCoreApplication::quit(); });

    // Then
    QVERIFY(disconnect(qApp, SIGNAL(aboutToQuit()), qApp, SLOT(quit())));
    QCOMPARE(status, 0);
    QCOMPARE(listener.calls, 1);
}

void QuitGuardTest::aSlotThatQuitsDuringAnExitIsCalledOnce()
{
    // Given
    QuitGuard::guard(*qApp);
    QuittingListener listener;
    connect(qApp, SIGNAL(aboutToQuit()), &listener, SLOT(quitToo()));

    // When
    const int status = TestSupport::statusAfter([] { QCoreApplication::exit(3); });

    // Then
    QCOMPARE(listener.calls, 1);
    QCOMPARE(status, 3);
}

void QuitGuardTest::quittingWorksAgainInTheNextEventLoop()
{
    // Given
    QuitGuard::guard(*qApp);
    const auto quit = [] { QCoreApplication::quit(); };

    // When
    const int first = TestSupport::statusAfter(quit);
    const int second = TestSupport::statusAfter(quit);

    // Then
    QCOMPARE(first, 0);
    QCOMPARE(second, 0);
}

void QuitGuardTest::anApplicationIsGuardedOnce()
{
    // When
    QuitGuard::guard(*qApp);
    QuitGuard::guard(*qApp);

    // Then
    QCOMPARE(qApp->findChildren<QuitGuard*>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
}

REGISTER_TEST(QuitGuardTest, QCoreApplication)
#include "quitguardtest.moc"

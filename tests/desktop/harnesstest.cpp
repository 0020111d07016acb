#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/ink.h"
#include "tests/support/testprogram.h"

/// The tests' own tools, without the program: what the other tests rely on must itself be right.
class HarnessTest : public DesktopTest {
    Q_OBJECT

private slots:
    void thePatternIsReadBackExactly();
    void aFilledBackdropReplacesThePattern();
    void thePointerGoesWhereItIsSent();
    void anEndedProcessTellsItsStatus_data();
    void anEndedProcessTellsItsStatus();
    void outputIsCollected();
    void aProcessDiesWithItsObject();
    void windowsAreFoundInTheirOrder();
    void inkIsMeasured();
};

void HarnessTest::thePatternIsReadBackExactly()
{
    // when
    desktop->backdrop.paintPattern();

    // then
    QCOMPARE(desktop->screen.grab(), Backdrop::pattern({1280, 800}));
}

void HarnessTest::aFilledBackdropReplacesThePattern()
{
    // given
    desktop->backdrop.paintPattern();

    // when
    desktop->backdrop.fill(QColor(1, 2, 3));

    // then
    QImage expected(1280, 800, QImage::Format_RGB32);
    expected.fill(QColor(1, 2, 3));
    QCOMPARE(desktop->screen.grab(), expected);
}

void HarnessTest::thePointerGoesWhereItIsSent()
{
    // when
    desktop->pointer.moveTo({1279, 799});

    // then
    QCOMPARE(desktop->pointer.position(), QPoint(1279, 799));
}

void HarnessTest::anEndedProcessTellsItsStatus_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<int>("status");

    QTest::newRow("exits") << QByteArray("exit 3") << 3;
    QTest::newRow("is killed") << QByteArray("kill -TERM $$") << 128 + SIGTERM;
}

void HarnessTest::anEndedProcessTellsItsStatus()
{
    // given
    QFETCH(QByteArray, script);
    QFETCH(int, status);

    // when
    ChildProcess shell({.program = "/bin/sh", .arguments = {"-c", script}});

    // then
    EVENTUALLY_COMPARE(shell.status(), status);
}

void HarnessTest::outputIsCollected()
{
    // when
    ChildProcess shell({.program = "/bin/sh",
                        .arguments = {"-c", "echo \"$WORD\"; echo two >&2"},
                        .environment = {{"WORD", "one"}}});
    EVENTUALLY(!shell.isRunning());

    // then
    QCOMPARE(shell.output(), QByteArray("one\ntwo\n"));
}

void HarnessTest::aProcessDiesWithItsObject()
{
    // given
    pid_t pid = 0;

    // when
    {
        const ChildProcess shell({.program = "/bin/sleep", .arguments = {"1000"}});
        pid = shell.pid();
        QCOMPARE(::kill(pid, 0), 0);
    }

    // then
    QCOMPARE(::kill(pid, 0), -1);
}

void HarnessTest::windowsAreFoundInTheirOrder()
{
    // given
    const ClientWindow lower(desktop->x, ClientWindow::Kind::Ordinary, {10, 20, 300, 200}, Qt::red);
    const ClientWindow upper(desktop->x, ClientWindow::Kind::Unmanaged, {50, 60, 70, 80}, Qt::blue);

    // when
    const QRect place = desktop->windows.geometry(upper.id());

    // then
    QCOMPARE(place, QRect(50, 60, 70, 80));
    QVERIFY(desktop->windows.isAbove(upper.id(), lower.id()));
    QVERIFY(!desktop->windows.isAbove(lower.id(), upper.id()));
    QCOMPARE(desktop->screen.colourAt({60, 70}), QColor(Qt::blue));
    QCOMPARE(desktop->screen.colourAt({20, 30}), QColor(Qt::red));
}

void HarnessTest::inkIsMeasured()
{
    // given
    const ClientWindow spot(desktop->x, ClientWindow::Kind::Unmanaged, {50, 60, 4, 3}, Qt::black);

    // when
    const Ink ink(desktop->screen.grab({0, 0, 100, 100}), Qt::white, Qt::black);

    // then
    QCOMPARE(ink.total(), 12.0);
    QCOMPARE(ink.acrossColumn(51), 3.0);
    QCOMPARE(ink.acrossRow(61), 4.0);
    QCOMPARE(ink.bounds(), QRect(50, 60, 4, 3));
}

REGISTER_TEST(HarnessTest, QCoreApplication)
#include "harnesstest.moc"

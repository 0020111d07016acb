#include "os/process/processqueries.h"

#include <QList>
#include <QRegularExpression>
#include <QTest>

#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>

using namespace osUtils::Process;

namespace {

/// One call of the system's function, as it came.
struct KillCall {
    int first;
    int second;

    bool operator==(const KillCall&) const = default;
};

/// What was called for, and what the test answers. The system itself is never asked: it would send
/// signals to this test's own process group.
QList<KillCall> calls;
QList<bool> answers;

constexpr const char* nobody = "nobody is so";

}

extern "C" int __wrap_kill(pid_t first, int second)
{
    calls.append({first, second});
    const bool success = !answers.isEmpty() && answers.takeFirst();
    errno = success ? 0 : EINVAL;
    return success ? 0 : -1;
}

/// Which calls the functions for living and closing make, and what they make of the answers.
class KillCallsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void askingForLifeSendsTheIdAsTheSignal_data();
    void askingForLifeSendsTheIdAsTheSignal();
    void whatTheCallTellsIsTheAnswer_data();
    void whatTheCallTellsIsTheAnswer();
    void closingSendsTheIdAsTheSignalTwice_data();
    void closingSendsTheIdAsTheSignalTwice();
    void theSecondCallTellsWhetherItClosed_data();
    void theSecondCallTellsWhetherItClosed();
    void closingByNameSendsTheIdThatIsFound();
    void closingNobodyStillCalls();
    void askingForLifeByNameCallsNothing();
    void nothingElseCalls();

private:
    static void addIds();
};

void KillCallsTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    calls.clear();
    answers.clear();
}

void KillCallsTest::addIds()
{
    QTest::addColumn<int>("id");

    QTest::newRow("zero") << 0;
    QTest::newRow("as small as a signal") << 15;
    QTest::newRow("the largest signal") << 64;
    QTest::newRow("an ordinary id") << 4242;
    QTest::newRow("minus one") << -1;
    QTest::newRow("the largest") << std::numeric_limits<int>::max();
    QTest::newRow("the smallest") << std::numeric_limits<int>::min();
}

void KillCallsTest::askingForLifeSendsTheIdAsTheSignal_data()
{
    addIds();
}

void KillCallsTest::askingForLifeSendsTheIdAsTheSignal()
{
    // given
    QFETCH(int, id);

    // when
    static_cast<void>(is_executable_alive(id));

    // then
    QCOMPARE(calls, QList<KillCall>({{0, id}}));
}

void KillCallsTest::whatTheCallTellsIsTheAnswer_data()
{
    QTest::addColumn<bool>("success");

    QTest::newRow("success") << true;
    QTest::newRow("failure") << false;
}

void KillCallsTest::whatTheCallTellsIsTheAnswer()
{
    // given
    QFETCH(bool, success);
    answers = {success};

    // when
    const bool isAlive = is_executable_alive(4242);

    // then
    QCOMPARE(isAlive, success);
}

void KillCallsTest::closingSendsTheIdAsTheSignalTwice_data()
{
    addIds();
}

void KillCallsTest::closingSendsTheIdAsTheSignalTwice()
{
    // given
    QFETCH(int, id);

    // when
    closeProcess(id);

    // then
    QCOMPARE(calls, QList<KillCall>({{3, id}, {0, id}}));
}

void KillCallsTest::theSecondCallTellsWhetherItClosed_data()
{
    QTest::addColumn<QList<bool>>("successes");
    QTest::addColumn<bool>("closed");

    QTest::newRow("both") << QList<bool>{true, true} << true;
    QTest::newRow("only the first") << QList<bool>{true, false} << false;
    QTest::newRow("only the second") << QList<bool>{false, true} << true;
    QTest::newRow("neither") << QList<bool>{false, false} << false;
}

void KillCallsTest::theSecondCallTellsWhetherItClosed()
{
    // given
    QFETCH(QList<bool>, successes);
    QFETCH(bool, closed);
    answers = successes;

    // when
    const bool result = closeProcess(4242);

    // then
    QCOMPARE(result, closed);
    QVERIFY(answers.isEmpty());
}

void KillCallsTest::closingByNameSendsTheIdThatIsFound()
{
    // given
    const QByteArray name = "closing" + QByteArray::number(::getpid(), 36);
    ::prctl(PR_SET_NAME, name.constData());
    answers = {true, true};

    // when
    const bool closed = closeProcess(name.toStdString());

    // then
    QVERIFY(closed);
    QCOMPARE(calls, QList<KillCall>({{3, ::getpid()}, {0, ::getpid()}}));
}

void KillCallsTest::closingNobodyStillCalls()
{
    // when
    const bool closed = closeProcess(nobody);

    // then
    QVERIFY(!closed);
    QCOMPARE(calls, QList<KillCall>({{3, -1}, {0, -1}}));
}

void KillCallsTest::askingForLifeByNameCallsNothing()
{
    // when
    const int id = is_executable_alive(nobody);

    // then
    QCOMPARE(id, -1);
    QCOMPARE(calls, QList<KillCall>());
}

void KillCallsTest::nothingElseCalls()
{
    // given
    qunsetenv("DISPLAY");
    pidInfos info{.pid = ::getpid()};

    // when
    getPidInfos(&info);
    static_cast<void>(getProcessId(nobody));
    static_cast<void>(getCurrentFocusProcess());
    static_cast<void>(get_application_basename(::getpid()));
    static_cast<void>(get_application_path(::getpid()));
    static_cast<void>(getWindowTitle(::getpid()));

    // then
    QCOMPARE(calls, QList<KillCall>());
}

QTEST_APPLESS_MAIN(KillCallsTest)
#include "killcallstest.moc"

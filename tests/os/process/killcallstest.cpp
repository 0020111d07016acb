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
    void theIdIsSentAsTheSignal_data();
    void theIdIsSentAsTheSignal();
    void theLastCallTellsTheAnswer_data();
    void theLastCallTellsTheAnswer();
    void closingByNameSendsTheIdThatIsFound();
    void closingNobodyStillCalls();
    void nothingElseCalls();
};

void KillCallsTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    calls.clear();
    answers.clear();
}

void KillCallsTest::theIdIsSentAsTheSignal_data()
{
    QTest::addColumn<int>("id");

    for (const int id :
         {0, 15, 64, 4242, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::addRow("%d", id) << id;
}

void KillCallsTest::theIdIsSentAsTheSignal()
{
    // given
    QFETCH(int, id);

    // when
    static_cast<void>(is_executable_alive(id));
    const QList<KillCall> asking = std::exchange(calls, {});
    closeProcess(id);

    // then
    QCOMPARE(asking, QList<KillCall>({{0, id}}));
    QCOMPARE(calls, QList<KillCall>({{3, id}, {0, id}}));
}

void KillCallsTest::theLastCallTellsTheAnswer_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");

    QTest::newRow("both") << true << true;
    QTest::newRow("only the first") << true << false;
    QTest::newRow("only the second") << false << true;
    QTest::newRow("neither") << false << false;
}

void KillCallsTest::theLastCallTellsTheAnswer()
{
    // given
    QFETCH(bool, first);
    QFETCH(bool, second);
    answers = {first, first, second};

    // then
    QCOMPARE(is_executable_alive(4242), first);
    QCOMPARE(closeProcess(4242), second);
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

void KillCallsTest::nothingElseCalls()
{
    // given
    qunsetenv("DISPLAY");
    pidInfos info{.pid = ::getpid()};

    // when
    getPidInfos(&info);
    QCOMPARE(is_executable_alive(nobody), -1);
    static_cast<void>(getCurrentFocusProcess());
    static_cast<void>(get_application_basename(::getpid()));
    static_cast<void>(get_application_path(::getpid()));
    static_cast<void>(getWindowTitle(::getpid()));

    // then
    QCOMPARE(calls, QList<KillCall>());
}

QTEST_APPLESS_MAIN(KillCallsTest)
#include "killcallstest.moc"

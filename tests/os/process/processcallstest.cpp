#include "os/process/processqueries.h"

#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QList>
#include <QRegularExpression>
#include <QTest>

#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>

using namespace osUtils::Process;
using namespace TestSupport;

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

bool isMemoryShort = false;

}

// These take the places of the library's, for this program.

extern "C" int __wrap_kill(pid_t first, int second)
{
    calls.append({first, second});
    const bool success = !answers.isEmpty() && answers.takeFirst();
    errno = success ? 0 : EINVAL;
    return success ? 0 : -1;
}

void* operator new(std::size_t size)
{
    void* memory = isMemoryShort ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

/// Which calls of the system the queries make, and what they make of the answers.
class ProcessCallsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theIdIsSentAsTheSignal();
    void theLastCallTellsTheAnswer();
    void closingByNameSendsTheIdThatIsFound();
    void closingNobodyStillCalls();
    void nothingElseCalls();
    void withoutMemoryForTheTableALineIsWrittenEachTime();
    void withMemoryNothingIsWritten();

private:
    int findWithoutMemory() const
    {
        std::string sought = name;
        isMemoryShort = true;
        const int found = getProcessId(std::move(sought));
        isMemoryShort = false;
        return found;
    }

    /// This process's own.
    const std::string name = "calls" + QByteArray::number(::getpid(), 36).toStdString();
    const std::string line = "could not reallocate memory\n";
};

void ProcessCallsTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    ::prctl(PR_SET_NAME, name.c_str());
    calls.clear();
    answers.clear();
}

void ProcessCallsTest::theIdIsSentAsTheSignal()
{
    for (const int id :
         {0, 15, 64, 4242, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        // when
        static_cast<void>(is_executable_alive(id));
        const QList<KillCall> asking = std::exchange(calls, {});
        closeProcess(id);
        const QList<KillCall> closing = std::exchange(calls, {});

        // then
        QCOMPARE(asking, QList<KillCall>({{0, id}}));
        QCOMPARE(closing, QList<KillCall>({{3, id}, {0, id}}));
    }
}

void ProcessCallsTest::theLastCallTellsTheAnswer()
{
    for (const bool first : {true, false}) {
        for (const bool second : {true, false}) {
            // given
            answers = {first, first, second};

            // then
            QCOMPARE(is_executable_alive(4242), first);
            QCOMPARE(closeProcess(4242), second);
            QVERIFY(answers.isEmpty());
        }
    }
}

void ProcessCallsTest::closingByNameSendsTheIdThatIsFound()
{
    // given
    answers = {true, true};

    // when
    const bool closed = closeProcess(name);

    // then
    QVERIFY(closed);
    QCOMPARE(calls, QList<KillCall>({{3, ::getpid()}, {0, ::getpid()}}));
}

void ProcessCallsTest::closingNobodyStillCalls()
{
    // when
    const bool closed = closeProcess(nobody);

    // then
    QVERIFY(!closed);
    QCOMPARE(calls, QList<KillCall>({{3, -1}, {0, -1}}));
}

void ProcessCallsTest::nothingElseCalls()
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

void ProcessCallsTest::withoutMemoryForTheTableALineIsWrittenEachTime()
{
    // given
    int first = 0;
    int second = 0;

    // when
    const std::string errors = printedBy(
        [&] {
            first = findWithoutMemory();
            second = findWithoutMemory();
        },
        stderr);

    // then
    QCOMPARE(errors, line + line);
    QCOMPARE(first, -1);
    QCOMPARE(second, -1);
    QCOMPARE(getProcessId(name), ::getpid());
}

void ProcessCallsTest::withMemoryNothingIsWritten()
{
    // given
    int found = 0;
    int missed = 0;

    // when
    const std::string errors = printedBy(
        [&] {
            found = getProcessId(name);
            missed = getProcessId(nobody);
        },
        stderr);

    // then
    QCOMPARE(errors, std::string());
    QCOMPARE(found, ::getpid());
    QCOMPARE(missed, -1);
}

REGISTER_TEST(ProcessCallsTest, TestSupport::NoApplication)
#include "processcallstest.moc"

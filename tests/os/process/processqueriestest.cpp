#include "os/process/processqueries.h"

#include "tests/desktop/harness/eventually.h"
#include "tests/os/process/processes.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

#include <type_traits>

using namespace osUtils::Process;
using namespace TestSupport;

namespace {

constexpr int notFound = -1;

bool isFound(const QByteArray& name)
{
    return getProcessId(name.toStdString()) != notFound;
}

}

/// Processes by their names, and names by their processes, without any window.
class ProcessQueriesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aProgramIsFoundByItsName_data();
    void aProgramIsFoundByItsName();
    void onlyTheBytesThatTheKernelKeepsFindALongName();
    void aKernelThreadIsNotFoundByALongerName();
    void onlyTheVeryNameFindsAProgram();
    void anEmptyNameFindsWhatHasNoName();
    void theLowestIdIsFound();
    void aZombieIsFoundUntilItIsGone();
    void aProcessHasItsWholeName();
    void aScriptHasItsWholeName();
    void whatAProcessCallsItselfIsLeftAsItIs();
    void pathAndTitleAreAlwaysEmpty();
    void askingForLifeByNameGivesTheId();
    void whatIsNoProcessIsDescribedByNothing();
    void theSignaturesAreAsGiven();
};

void ProcessQueriesTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    qunsetenv("DISPLAY");
}

void ProcessQueriesTest::aProgramIsFoundByItsName_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("a word") << ownName("word");
    QTest::newRow("blanks") << ' ' + ownName("a b") + ' ';
    QTest::newRow("brackets") << ") S (" + ownName("a") + ")(";
    QTest::newRow("line ends") << '\n' + ownName("a\nb") + '\n';
    QTest::newRow("no text") << ownName("\xff\xfe");
    QTest::newRow("14 bytes") << ownName("f", 14);
    QTest::newRow("15 bytes") << ownName("f", 15);
}

void ProcessQueriesTest::aProgramIsFoundByItsName()
{
    // given
    QFETCH(QByteArray, name);

    // when
    const RunningProgram program(name);

    // then
    EVENTUALLY_COMPARE(getProcessId(name.toStdString()), program.id());
}

void ProcessQueriesTest::onlyTheBytesThatTheKernelKeepsFindALongName()
{
    for (const int length : {16, 17, 200}) {
        // given
        const QByteArray file = ownName("longer", length);
        const RunningProgram program(file);

        // then
        EVENTUALLY_COMPARE(getProcessId(file.left(15).toStdString()), program.id());
        QCOMPARE(getProcessId(file.toStdString()), notFound);
        QCOMPARE(getProcessId(file.left(16).toStdString()), notFound);
        QCOMPARE(getProcessId(file.left(14).toStdString()), notFound);
    }
}

void ProcessQueriesTest::aKernelThreadIsNotFoundByALongerName()
{
    // given: the kernel adds to the names of its workers what they are for
    std::string longName;
    for (int id = 1; id < 200 && longName.size() <= 15; ++id)
        longName = get_application_basename(id);
    if (longName.size() <= 15)
        QSKIP("The kernel's own threads are out of sight here.");

    // then
    QCOMPARE(getProcessId(longName), notFound);
}

void ProcessQueriesTest::onlyTheVeryNameFindsAProgram()
{
    // given
    const QByteArray name = ownName("whole");
    const RunningProgram program(name);
    EVENTUALLY(isFound(name));

    // then
    QCOMPARE(getProcessId(name.toUpper().toStdString()), notFound);
    QCOMPARE(getProcessId((name + '\0').toStdString()), notFound);
    QCOMPARE(getProcessId(name.chopped(1).toStdString()), notFound);
    QCOMPARE(getProcessId(name.mid(1).toStdString()), notFound);
    QCOMPARE(getProcessId((name + 'x').toStdString()), notFound);
}

void ProcessQueriesTest::anEmptyNameFindsWhatHasNoName()
{
    // when
    const ChildProcess nameless(renamed(""));

    // then
    EVENTUALLY_COMPARE(getProcessId(""), nameless.pid());
}

void ProcessQueriesTest::theLowestIdIsFound()
{
    // given
    const QByteArray name = ownName("twin");
    const RunningProgram one(name);
    const RunningProgram two(name);
    const RunningProgram three(name);
    const int lowest = std::min({one.id(), two.id(), three.id()});

    // then
    for (const RunningProgram* program : {&one, &two, &three})
        EVENTUALLY(get_application_basename(program->id()) == name.toStdString());
    QCOMPARE(getProcessId(name.toStdString()), lowest);
}

void ProcessQueriesTest::aZombieIsFoundUntilItIsGone()
{
    // given
    const QByteArray name = ownName("dead");
    auto zombie = std::make_unique<Zombie>(name);
    const int id = zombie->id();
    const int found = getProcessId(name.toStdString());

    // when
    zombie.reset();

    // then
    QCOMPARE(found, id);
    QCOMPARE(getProcessId(name.toStdString()), notFound);
}

void ProcessQueriesTest::aProcessHasItsWholeName()
{
    for (const int length : {14, 15, 16, 200}) {
        // when
        const QByteArray file = ownName("call ", length);
        const RunningProgram program(file);

        // then
        EVENTUALLY_COMPARE(get_application_basename(program.id()), file.toStdString());
    }
}

void ProcessQueriesTest::aScriptHasItsWholeName()
{
    // given
    const QTemporaryDir folder;
    const QByteArray name = ownName("a long script ", 30);
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("#!/bin/sh -u\nread line\n");
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    int pipe[2];
    QCOMPARE(::pipe(pipe), 0);

    // when
    const ChildProcess script(
        {.program = "/bin/sh",
         .arguments = {"-c", "exec \"$0\" <&\"$1\"", QFile::encodeName(file.fileName()),
                       QByteArray::number(pipe[0])},
         .keptDescriptor = pipe[0]});

    // then
    EVENTUALLY_COMPARE(get_application_basename(script.pid()), name.toStdString());
    ::close(pipe[0]);
    ::close(pipe[1]);
}

void ProcessQueriesTest::whatAProcessCallsItselfIsLeftAsItIs()
{
    for (const char* name : {"word", "", "\n", "\n\n", "a/b", "1 (init) S 0", " a\tb\\n ",
                             "\xff\xfe\xc3", "12345", "123456789abcdef"}) {
        // when
        const ChildProcess program(renamed(name));

        // then
        EVENTUALLY_COMPARE(get_application_basename(program.pid()), std::string(name));
    }
}

void ProcessQueriesTest::pathAndTitleAreAlwaysEmpty()
{
    for (const int id : {::getpid(), 1, 0, -1, std::numeric_limits<int>::max()}) {
        QCOMPARE(get_application_path(id), std::string());
        QCOMPARE(getWindowTitle(id), std::string());
    }
}

void ProcessQueriesTest::askingForLifeByNameGivesTheId()
{
    // given
    const std::string name = ownName("alive").toStdString();
    const int before = is_executable_alive(name);

    // when
    const RunningProgram program(ownName("alive"));

    // then
    QCOMPARE(before, notFound);
    EVENTUALLY_COMPARE(is_executable_alive(name), program.id());
}

void ProcessQueriesTest::whatIsNoProcessIsDescribedByNothing()
{
    for (const int id :
         {goneProcess(), 0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        // given
        pidInfos info{.pid = id, .path = "/before", .name = "before"};

        // when
        getPidInfos(&info);

        // then
        QCOMPARE(info.name, std::string());
        QCOMPARE(info.path, std::string());
    }
}

void ProcessQueriesTest::theSignaturesAreAsGiven()
{
    static_assert(std::is_same_v<decltype(&getPidInfos), void (*)(pidInfos*)>);
    static_assert(std::is_same_v<decltype(&getProcessId), int (*)(std::string)>);
    static_assert(std::is_same_v<decltype(&getCurrentFocusProcess), int (*)()>);
    static_assert(std::is_same_v<decltype(&get_application_basename), std::string (*)(int)>);
    static_assert(std::is_same_v<decltype(&get_application_path), std::string (*)(int)>);
    static_assert(std::is_same_v<decltype(&getWindowTitle), std::string (*)(int)>);
    [[maybe_unused]] bool (*aliveById)(int) = is_executable_alive;
    [[maybe_unused]] int (*aliveByName)(const std::string&) = is_executable_alive;
    [[maybe_unused]] bool (*closeById)(int) = closeProcess;
    [[maybe_unused]] bool (*closeByName)(const std::string&) = closeProcess;
    [[maybe_unused]] const auto [pid, second, path, name, bundleId] = pidInfos{};
    static_assert(std::is_same_v<decltype(pid), const int>);
    static_assert(std::is_same_v<decltype(second), const int>);
    static_assert(std::is_same_v<decltype(path), const std::string>);
    static_assert(std::is_same_v<decltype(name), const std::string>);
    static_assert(std::is_same_v<decltype(bundleId), const char* const>);
}

REGISTER_TEST(ProcessQueriesTest, QCoreApplication)
#include "processqueriestest.moc"

#include "os/process/processtable.h"

#include "os/process/processqueries.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/os/process/processes.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace osUtils::Process;
using namespace TestSupport;

namespace {

QByteArray bytes(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

bool isListed(int id)
{
    const std::vector<int> ids = processIds();
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

}

/// What the kernel tells of processes that this test starts.
class ProcessTableTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void processesAreListedFromTheLowestId();
    void aProcessIsListedUntilItIsGone();
    void aZombieIsListed();
    void aProgramIsCalledAsItCallsItself_data();
    void aProgramIsCalledAsItCallsItself();
    void whatIsNoProcessHasNoName_data();
    void whatIsNoProcessHasNoName();
    void anExecutableIsKnownByItsPath_data();
    void anExecutableIsKnownByItsPath();
    void aRemovedExecutableIsStillKnownByItsPath();
    void aPathThatLooksRemovedIsLeftAsItIs();
    void whatHasNoExecutableHasNoPath();
};

void ProcessTableTest::processesAreListedFromTheLowestId()
{
    // when
    const std::vector<int> ids = processIds();

    // then
    QVERIFY(std::is_sorted(ids.begin(), ids.end()));
    QVERIFY(std::adjacent_find(ids.begin(), ids.end()) == ids.end());
    QVERIFY(std::find(ids.begin(), ids.end(), ::getpid()) != ids.end());
    QVERIFY(ids.front() > 0);
}

void ProcessTableTest::aProcessIsListedUntilItIsGone()
{
    // given
    auto program = std::make_unique<RunningProgram>(ownName("listed"));
    const int id = program->id();
    const bool whileItRuns = isListed(id);

    // when
    program.reset();

    // then
    QVERIFY(whileItRuns);
    QVERIFY(!isListed(id));
}

void ProcessTableTest::aZombieIsListed()
{
    // given
    const Zombie zombie("zombie");

    // then
    QVERIFY(isListed(zombie.id()));
}

void ProcessTableTest::aProgramIsCalledAsItCallsItself_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("a word") << QByteArray("word");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a line end") << QByteArray("\n");
    QTest::newRow("line ends") << QByteArray("\n\n");
    QTest::newRow("a slash") << QByteArray("a/b");
    QTest::newRow("a look-alike") << QByteArray("1 (init) S 0");
    QTest::newRow("blanks, tabulators and backslashes") << QByteArray(" a\tb\\n ");
    QTest::newRow("no text") << QByteArray("\xff\xfe\xc3");
    QTest::newRow("a number") << QByteArray("12345");
    QTest::newRow("15 bytes") << QByteArray("123456789abcdef");
}

void ProcessTableTest::aProgramIsCalledAsItCallsItself()
{
    // given
    QFETCH(QByteArray, name);

    // when
    const ChildProcess program(renamed(name));

    // then
    EVENTUALLY_COMPARE(bytes(shortName(program.pid()).value_or("none")), name);
}

void ProcessTableTest::whatIsNoProcessHasNoName_data()
{
    QTest::addColumn<int>("id");

    QTest::newRow("gone") << goneProcess();
    QTest::newRow("zero") << 0;
    QTest::newRow("minus one") << -1;
    QTest::newRow("the smallest") << std::numeric_limits<int>::min();
    QTest::newRow("the largest") << std::numeric_limits<int>::max();
}

void ProcessTableTest::whatIsNoProcessHasNoName()
{
    // given
    QFETCH(int, id);

    // then
    QCOMPARE(shortName(id), std::nullopt);
    QCOMPARE(executablePath(id), std::string());
}

void ProcessTableTest::anExecutableIsKnownByItsPath_data()
{
    QTest::addColumn<QByteArray>("file");

    QTest::newRow("a word") << QByteArray("word");
    QTest::newRow("longer than the short name") << QByteArray(200, 'x');
    QTest::newRow("blanks and line ends") << QByteArray(" a\nb ");
    QTest::newRow("no text") << QByteArray("\xff\xfe");
}

void ProcessTableTest::anExecutableIsKnownByItsPath()
{
    // given
    QFETCH(QByteArray, file);

    // when
    const RunningProgram program(file);

    // then
    EVENTUALLY_COMPARE(bytes(executablePath(program.id())), program.path());
}

void ProcessTableTest::aRemovedExecutableIsStillKnownByItsPath()
{
    // given
    const RunningProgram program("word");
    EVENTUALLY_COMPARE(bytes(executablePath(program.id())), program.path());

    // when
    ::unlink(program.path().constData());

    // then
    QCOMPARE(bytes(executablePath(program.id())), program.path());
}

void ProcessTableTest::aPathThatLooksRemovedIsLeftAsItIs()
{
    // when
    const RunningProgram program("word (deleted)");

    // then
    EVENTUALLY_COMPARE(bytes(executablePath(program.id())), program.path());
}

void ProcessTableTest::whatHasNoExecutableHasNoPath()
{
    // given
    const Zombie zombie("zombie");

    // then
    QCOMPARE(executablePath(zombie.id()), std::string());
}

QTEST_GUILESS_MAIN(ProcessTableTest)
#include "processtabletest.moc"

#include "os/login/loginitems.h"
#include "tests/os/login/childprocess.h"
#include "tests/os/login/listedpaths.h"
#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

#include <array>
#include <optional>
#include <random>
#include <thread>

using namespace TestSupport;

namespace {

/// How much the workers of a test do, each.
constexpr int processOperations = 200;
constexpr int threadOperations = 50;

/// The program that a worker adds in a step; no path is part of another.
Path programOf(const Session& session, int worker, int step)
{
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "worker%d-%03d", worker, step);
    return session.programs() / name.data();
}

/// Adds two programs and removes the first of them, again and again.
bool work(const Session& session, int worker, int operations)
{
    for (int step = 0; step < operations; ++step) {
        const bool isDone = step % 3 == 2
            ? removeLoginItemWithPath(programOf(session, worker, step - 2))
            : addLoginItemWithPath(programOf(session, worker, step), false);
        if (!isDone)
            return false;
    }
    return true;
}

/// What is left of a worker's programs, in the order in which it added them.
Paths remainderOf(const Session& session, int worker, int operations)
{
    Paths remainder;
    for (int step = 0; step < operations; ++step) {
        const bool isRemovedLater = step % 3 == 0 && step + 2 < operations;
        if (step % 3 != 2 && !isRemovedLater)
            remainder.push_back(programOf(session, worker, step));
    }
    return remainder;
}

/// Paths of the items in which a text occurs.
Paths listedPathsWith(const std::string& part)
{
    Paths paths = listedPaths();
    std::erase_if(paths,
                  [&](const std::string& path) { return path.find(part) == std::string::npos; });
    return paths;
}

void makePrograms(const Session& session)
{
    for (const int worker : {1, 2}) {
        for (int step = 0; step < processOperations; ++step)
            writeFile(programOf(session, worker, step), "");
    }
}

/// The line of a file that holds its position.
std::string positionIn(const Path& file)
{
    const std::string bytes = readFile(file);
    const size_t start = bytes.find("X-Korvel-Position=");
    return start == std::string::npos ? "none"
                                      : bytes.substr(start, bytes.find('\n', start) - start);
}

}

/// Login items that several processes and threads change at once.
class LoginItemProcessesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void twoProcessesLoseNothing();
    void twoThreadsLoseNothing();
    void anyOneOfManyRemovesAnItem();
    void aKilledProcessLeavesAValidFolder();

private:
    void verifyBothRemainders(int operations) const;

    std::optional<Session> session;
};

void LoginItemProcessesTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemProcessesTest::cleanup()
{
    session.reset();
}

void LoginItemProcessesTest::verifyBothRemainders(int operations) const
{
    const Paths first = remainderOf(*session, 1, operations);
    const Paths second = remainderOf(*session, 2, operations);
    QCOMPARE(listedPathsWith("worker1-"), first);
    QCOMPARE(listedPathsWith("worker2-"), second);
    const std::set<std::string> names = namesIn(session->autostart());
    QCOMPARE(names.size(), first.size() + second.size());
    std::set<std::string> positions;
    for (const std::string& name : names)
        positions.insert(positionIn(session->autostart() / name));
    QCOMPARE(positions.size(), names.size());
}

void LoginItemProcessesTest::twoProcessesLoseNothing()
{
    // given
    makePrograms(*session);

    // when
    ChildProcess first([&] { return work(*session, 1, processOperations); });
    ChildProcess second([&] { return work(*session, 2, processOperations); });
    bool areListed = true;
    while (first.isRunning() || second.isRunning())
        areListed = areListed && allLoginItems();

    // then
    QVERIFY(first.hasSucceeded());
    QVERIFY(second.hasSucceeded());
    QVERIFY(areListed);
    verifyBothRemainders(processOperations);
}

void LoginItemProcessesTest::twoThreadsLoseNothing()
{
    // given
    makePrograms(*session);
    bool firstSucceeds = false;
    bool secondSucceeds = false;

    // when
    std::thread first([&] { firstSucceeds = work(*session, 1, threadOperations); });
    std::thread second([&] { secondSucceeds = work(*session, 2, threadOperations); });
    first.join();
    second.join();

    // then
    QVERIFY(firstSucceeds);
    QVERIFY(secondSucceeds);
    verifyBothRemainders(threadOperations);
}

void LoginItemProcessesTest::anyOneOfManyRemovesAnItem()
{
    // given
    for (int i = 0; i < 20; ++i)
        QVERIFY(addLoginItemWithPath("/bin/sh", false));
    QVERIFY(addLoginItemWithPath("/bin/true", false));

    // when
    const auto removeAll = [] {
        printedBy([] {
            while (indexForLoginItemWithPath("/bin/sh") != -1)
                removeLoginItemWithPath("/bin/sh");
        });
        return true;
    };
    ChildProcess first(removeAll);
    ChildProcess second(removeAll);

    // then
    QVERIFY(first.hasSucceeded());
    QVERIFY(second.hasSucceeded());
    QCOMPARE(listedPaths(), Paths{"/bin/true"});
}

void LoginItemProcessesTest::aKilledProcessLeavesAValidFolder()
{
    constexpr int rounds = 60;
    std::mt19937 random(20220);
    for (int round = 0; round < rounds; ++round) {
        // given
        std::array<int, 2> progress{};
        QCOMPARE(pipe(progress.data()), 0);
        ChildProcess child([&] {
            while (write(progress[1], "", 1) == 1 && addLoginItemWithPath("/bin/sh", false)
                   && removeLoginItemAtIndex(0)) { }
            return false;
        });
        close(progress[1]);

        // when
        char done = 0;
        for (auto count = random() % 4 + 1; count > 0; --count)
            QCOMPARE(read(progress[0], &done, 1), ssize_t{1});
        // Long enough for a change and short enough to end amid one.
        random.discard(random() % 1'000'000);
        child.kill();

        // then
        QVERIFY(child.wasKilled());
        close(progress[0]);
        const LoginItemArrayRef items = allLoginItems();
        QVERIFY(items && items->size() < 2);
        QVERIFY(addLoginItemWithPath("/bin/true", false));
        QCOMPARE(namesIn(session->autostart()).size(), items->size() + 1);
        while (!allLoginItems()->empty())
            QVERIFY(removeLoginItemAtIndex(0));
    }
}

QTEST_APPLESS_MAIN(LoginItemProcessesTest)
#include "loginitemprocessestest.moc"

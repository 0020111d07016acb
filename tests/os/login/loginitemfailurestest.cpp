#include "os/login/loginitems.h"
#include "tests/os/desktopentry/session.h"
#include "tests/os/login/childprocess.h"
#include "tests/os/login/systemcalls.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

#include <grp.h>

#include <cerrno>
#include <optional>
#include <thread>

using namespace TestSupport;

namespace {

constexpr auto addMessage = "Couldn't add login item error ";
constexpr auto listMessage = "Couldn't list login items error ";
constexpr auto removeMessage = "Couldn't remove login intem error ";

constexpr uid_t nobody = 65534;

/// How much each of two workers does.
constexpr int operations = 150;

size_t itemCount()
{
    const LoginItemArrayRef items = allLoginItems();
    return items ? items->size() : 0;
}

bool add()
{
    return addLoginItemWithPath("/bin/sh", false);
}

/// Does a deed while a system call goes wrong.
std::string printedWhileFailing(const char* call, int error, int successes,
                                const std::function<void()>& deed)
{
    // Printing itself is not to fail.
    return printedBy([&] {
        systemCallPlan = {.failingCall = call, .error = error, .successes = successes};
        deed();
        systemCallPlan = {};
    });
}

/// Whether a file is one that was written whole: it has the last key, and its line ends.
bool isWhole(const std::string& bytes)
{
    return bytes.starts_with("[Desktop Entry]\nType=Application\n") && bytes.ends_with('\n')
        && (bytes.find("\nX-Korvel-Position=") != std::string::npos
            || bytes.find("\nHidden=true\n") != std::string::npos);
}

/// Makes the process one that file permissions hold for.
bool becomeOrdinaryUser()
{
    if (geteuid() != 0)
        return true;
    return setgroups(0, nullptr) == 0 && setresgid(nobody, nobody, nobody) == 0
        && setresuid(nobody, nobody, nobody) == 0;
}

/// The program that a worker adds in a step; no path is part of another.
Path programOf(const Session& session, int worker, int step)
{
    return session.programs()
        / ("worker" + std::to_string(worker) + '-' + std::to_string(step) + '.');
}

/// Adds two programs and removes the first of them, again and again.
bool work(const Session& session, int worker)
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
Paths remainderOf(const Session& session, int worker)
{
    Paths remainder;
    for (int step = 1; step < operations; step += 3)
        remainder.push_back(programOf(session, worker, step));
    return remainder;
}

}

/// Login items when the system refuses a step or ends the process, and when others change them too.
class LoginItemFailuresTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".?"));
        session.emplace();
    }
    void cleanup()
    {
        systemCallPlan = {};
        session.reset();
    }
    void aFailedAdditionLeavesTheFolderAsItWas_data();
    void aFailedAdditionLeavesTheFolderAsItWas();
    void aFailedRemovalIsReported();
    void aFailedRemovalOfOneForAllUsersChangesNothing_data();
    void aFailedRemovalOfOneForAllUsersChangesNothing();
    void aRefusalThatCanBeMetIsNoFailure_data();
    void aRefusalThatCanBeMetIsNoFailure();
    void anotherNameIsTriedWhereOneIsTaken();
    void permissionsThatAreMissingAreReported_data();
    void permissionsThatAreMissingAreReported();
    void whatCannotBeReadIsPassedOver_data();
    void whatCannotBeReadIsPassedOver();
    void aKillAtAnyMomentLeavesAValidFolder_data();
    void aKillAtAnyMomentLeavesAValidFolder();
    void twoProcessesAndThreadsLoseNothing_data();
    void twoProcessesAndThreadsLoseNothing();
    void anyOneOfManyRemovesAnItem();

private:
    std::optional<Session> session;
};

void LoginItemFailuresTest::aFailedAdditionLeavesTheFolderAsItWas_data()
{
    QTest::addColumn<std::string>("call");
    QTest::addColumn<int>("successes");
    QTest::addColumn<int>("error");

    QTest::newRow("making the file") << std::string("open") << 0 << EROFS;
    QTest::newRow("writing") << std::string("write") << 0 << ENOSPC;
    QTest::newRow("syncing the file") << std::string("fsync") << 0 << EIO;
    QTest::newRow("naming the file") << std::string("linkat") << 0 << EDQUOT;
    QTest::newRow("finding a free name") << std::string("linkat") << 0 << EEXIST;
    QTest::newRow("opening the folder") << std::string("open to read") << 0 << EMFILE;
    QTest::newRow("syncing the folder") << std::string("fsync") << 1 << EIO;
}

void LoginItemFailuresTest::aFailedAdditionLeavesTheFolderAsItWas()
{
    // given
    QFETCH(std::string, call);
    QFETCH(int, successes);
    QFETCH(int, error);
    session->addEntry("a.desktop", "/a");

    // when
    bool isAdded = true;
    const std::string printed =
        printedWhileFailing(call.c_str(), error, successes, [&] { isAdded = add(); });

    // then
    QVERIFY(!isAdded);
    QCOMPARE(printed, addMessage + std::to_string(error));
    QCOMPARE(namesIn(session->autostart()), std::set<std::string>{"a.desktop"});
}

void LoginItemFailuresTest::aFailedRemovalIsReported()
{
    // given
    session->addEntry("a.desktop", "/a");
    const LoginItemUrlRef url = allLoginItems()->at(0).URL;
    const std::string expected = removeMessage + std::to_string(EROFS);

    // when
    const auto failing = [](const std::function<bool()>& deed) {
        return printedWhileFailing("unlink", EROFS, 0, [&] { QVERIFY(!deed()); });
    };

    // then
    QCOMPARE(failing([] { return removeLoginItemAtIndex(0); }), expected);
    QCOMPARE(failing([] { return removeLoginItemWithPath("/a"); }), expected);
    QCOMPARE(failing([&] { return removeLoginItemWithURL(url); }), expected);
    QCOMPARE(itemCount(), size_t{1});
}

void LoginItemFailuresTest::aFailedRemovalOfOneForAllUsersChangesNothing_data()
{
    addTextRows({"call"},
                {{"making the file", "open"},
                 {"writing", "write"},
                 {"syncing", "fsync"},
                 {"naming the file", "linkat"},
                 {"taking the other's place", "rename"}});
}

void LoginItemFailuresTest::aFailedRemovalOfOneForAllUsersChangesNothing()
{
    // given
    QFETCH(std::string, call);
    session->addSystemEntry("a.desktop", "/all");
    session->addEntry("a.desktop", "/mine");

    // when
    const std::string printed =
        printedWhileFailing(call.c_str(), ENOSPC, 0, [] { QVERIFY(!removeLoginItemAtIndex(0)); });

    // then
    QCOMPARE(printed, removeMessage + std::to_string(ENOSPC));
    QCOMPARE(listedPaths(), Paths{"/mine"});
}

void LoginItemFailuresTest::aRefusalThatCanBeMetIsNoFailure_data()
{
    QTest::addColumn<std::string>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("successes");
    QTest::addColumn<int>("failures");

    QTest::newRow("files need names") << std::string("open") << EOPNOTSUPP << 0 << 1;
    QTest::newRow("interrupted") << std::string("write") << EINTR << 0 << 2;
    QTest::newRow("the folder needs no sync") << std::string("fsync") << EINVAL << 1 << 1;
}

void LoginItemFailuresTest::aRefusalThatCanBeMetIsNoFailure()
{
    // given
    QFETCH(std::string, call);
    QFETCH(int, error);
    QFETCH(int, successes);
    QFETCH(int, failures);
    systemCallPlan = {
        .failingCall = call, .error = error, .successes = successes, .failures = failures};

    // when
    const bool isAdded = add();

    // then
    QVERIFY(isAdded);
    QCOMPARE(systemCallPlan.failures, 0);
    QCOMPARE(itemCount(), size_t{1});
    QCOMPARE(namesIn(session->autostart()).size(), size_t{1});
}

void LoginItemFailuresTest::anotherNameIsTriedWhereOneIsTaken()
{
    // given
    const std::string application = session->applications() / "a.desktop";
    writeFile(application, entryText("sh"));
    writeFile(session->autostart() / "a.desktop", "mine");

    // when
    const bool isAdded = addLoginItemWithPath(application, false);

    // then
    QVERIFY(isAdded);
    QCOMPARE(listedPaths(), Paths{application});
    QCOMPARE(readFile(session->autostart() / "a.desktop"), std::string("mine"));
}

void LoginItemFailuresTest::permissionsThatAreMissingAreReported_data()
{
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<std::string>("expected");

    const std::string added = addMessage + std::string("13");
    const std::string removed = removeMessage + std::string("13");
    QTest::newRow("to change the folder") << 0555 << added + removed;
    QTest::newRow("to list the folder") << 0111 << listMessage + ("13" + added) + removed;
}

void LoginItemFailuresTest::permissionsThatAreMissingAreReported()
{
    // given
    QFETCH(int, folderMode);
    QFETCH(std::string, expected);
    session->addEntry("a.desktop", "/a");
    using std::filesystem::perms;
    std::filesystem::permissions(session->root(), perms{0755});
    std::filesystem::permissions(session->autostart(), perms(folderMode));
    QCOMPARE(EACCES, 13);

    // when
    ChildProcess user([&] {
        const bool isOrdinary = becomeOrdinaryUser();
        return isOrdinary && expected == printedBy([] {
                                 static_cast<void>(allLoginItems());
                                 add();
                                 removeLoginItemAtIndex(0);
                             });
    });

    // then
    const bool isAsExpected = user.hasSucceeded();
    std::filesystem::permissions(session->autostart(), perms{0755});
    QVERIFY(isAsExpected);
    QCOMPARE(namesIn(session->autostart()), std::set<std::string>{"a.desktop"});
}

void LoginItemFailuresTest::whatCannotBeReadIsPassedOver_data()
{
    QTest::addColumn<bool>("isLink");

    QTest::newRow("an entry") << false;
    QTest::newRow("a link into a closed folder") << true;
}

void LoginItemFailuresTest::whatCannotBeReadIsPassedOver()
{
    // given
    QFETCH(bool, isLink);
    using std::filesystem::perms;
    session->addEntry("b.desktop", "/b");
    const Path closed = session->root() / "closed";
    writeFile(closed / "a", entryText("/a"));
    if (isLink)
        std::filesystem::create_symlink(closed / "a", session->autostart() / "a.desktop");
    else
        std::filesystem::rename(closed / "a", session->autostart() / "a.desktop");
    std::filesystem::permissions(isLink ? closed : session->autostart() / "a.desktop", perms{0});
    std::filesystem::permissions(session->root(), perms{0755});
    std::filesystem::permissions(session->autostart(), perms{0777});

    // when
    ChildProcess user([] {
        return becomeOrdinaryUser() && printedBy([] { static_cast<void>(add()); }).empty()
            && listedPaths() == Paths{"/b", "/bin/sh"} && indexForLoginItemWithPath("/bin/sh") == 1
            && removeLoginItemAtIndex(0) && listedPaths() == Paths{"/bin/sh"};
    });

    // then
    QVERIFY(user.hasSucceeded());
    QVERIFY(namesIn(session->autostart()).contains("a.desktop"));
    std::filesystem::permissions(closed, perms{0755});
}

void LoginItemFailuresTest::aKillAtAnyMomentLeavesAValidFolder_data()
{
    using Deed = std::function<bool()>;
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<int>("change");

    QTest::newRow("adding") << Deed(add) << 1;
    QTest::newRow("adding where files need names") << Deed([] {
        systemCallPlan.failingCall = "open";
        systemCallPlan.error = EOPNOTSUPP;
        systemCallPlan.failures = 1;
        return add();
    }) << 1;
    QTest::newRow("removing") << Deed([] { return removeLoginItemWithPath("/bin/sh"); }) << -1;
    QTest::newRow("switching off") << Deed([] { return removeLoginItemWithPath("/all"); }) << -1;
}

void LoginItemFailuresTest::aKillAtAnyMomentLeavesAValidFolder()
{
    // given
    QFETCH(std::function<bool()>, deed);
    QFETCH(int, change);
    bool wasKilled = true;
    int moments = 0;
    session->addSystemEntry("a.desktop", "/all");

    for (; wasKilled; ++moments) {
        std::filesystem::remove_all(session->autostart());
        QVERIFY(add());

        // when
        ChildProcess child([&] {
            systemCallPlan.killedAt = moments;
            return deed();
        });
        wasKilled = child.wasKilled();

        // then
        QVERIFY(wasKilled || child.hasSucceeded());
        const size_t count = itemCount();
        QVERIFY(count == static_cast<size_t>(2 + change) || (wasKilled && count == 2));
        for (const std::string& name : namesIn(session->autostart())) {
            const std::string bytes = readFile(session->autostart() / name);
            QVERIFY2(!name.ends_with(".desktop") || isWhole(bytes), bytes.c_str());
        }
        QVERIFY(add());
        QCOMPARE(itemCount(), count + 1);
        while (itemCount() > 0)
            QVERIFY(removeLoginItemAtIndex(0));
    }
    QVERIFY2(moments > (change > 0 ? 10 : 6), "the calls were not seen");
}

void LoginItemFailuresTest::twoProcessesAndThreadsLoseNothing_data()
{
    QTest::addColumn<bool>("areThreads");

    QTest::newRow("processes") << false;
    QTest::newRow("threads") << true;
}

void LoginItemFailuresTest::twoProcessesAndThreadsLoseNothing()
{
    // given
    QFETCH(bool, areThreads);
    for (const int worker : {1, 2}) {
        for (int step = 0; step < operations; ++step)
            writeFile(programOf(*session, worker, step), "");
    }
    bool firstSucceeds = false;
    bool secondSucceeds = false;

    // when
    if (areThreads) {
        std::thread first([&] { firstSucceeds = work(*session, 1); });
        secondSucceeds = work(*session, 2);
        first.join();
    } else {
        ChildProcess first([&] { return work(*session, 1); });
        ChildProcess second([&] { return work(*session, 2); });
        while (first.isRunning() || second.isRunning())
            QVERIFY(allLoginItems());
        firstSucceeds = first.hasSucceeded();
        secondSucceeds = second.hasSucceeded();
    }

    // then
    QVERIFY(firstSucceeds);
    QVERIFY(secondSucceeds);
    for (const int worker : {1, 2}) {
        Paths paths = listedPaths();
        const std::string name = "worker" + std::to_string(worker) + '-';
        std::erase_if(
            paths, [&](const std::string& path) { return path.find(name) == std::string::npos; });
        QCOMPARE(paths, remainderOf(*session, worker));
    }
    QCOMPARE(namesIn(session->autostart()).size(), itemCount());
}

void LoginItemFailuresTest::anyOneOfManyRemovesAnItem()
{
    // given
    for (int i = 0; i < 20; ++i)
        QVERIFY(add());
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

REGISTER_TEST(LoginItemFailuresTest, TestSupport::NoApplication)
#include "loginitemfailurestest.moc"

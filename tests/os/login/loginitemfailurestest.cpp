#include "os/login/entryfile.h"
#include "os/login/loginitems.h"
#include "os/login/loginitemservice.h"
#include "tests/os/login/childprocess.h"
#include "tests/os/login/session.h"
#include "tests/os/login/systemcalls.h"

#include <QRegularExpression>
#include <QTest>

#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>

#include <cerrno>
#include <optional>

using namespace TestSupport;

namespace {

constexpr auto addMessage = "Couldn't add login item error ";
constexpr auto listMessage = "Couldn't list login items error ";
constexpr auto removeMessage = "Couldn't remove login intem error ";

constexpr uid_t nobody = 65534;

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
        systemCallPlan.failingCall = call;
        systemCallPlan.error = error;
        systemCallPlan.successes = successes;
        deed();
        systemCallPlan = {};
    });
}

/// Whether a file is one that was written whole: the last key is there, and its line ends.
bool isWhole(const std::string& bytes)
{
    const size_t position = bytes.find("\nX-Korvel-Position=");
    return bytes.starts_with("[Desktop Entry]\nType=Application\n") && position != std::string::npos
        && bytes.ends_with('\n');
}

/// Makes the process one that file permissions hold for.
bool becomeOrdinaryUser()
{
    if (geteuid() != 0)
        return true;
    return setgroups(0, nullptr) == 0 && setresgid(nobody, nobody, nobody) == 0
        && setresuid(nobody, nobody, nobody) == 0;
}

}

/// What becomes of the login items when the system refuses a step, or ends the process after one.
class LoginItemFailuresTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aFailedAdditionLeavesTheFolderAsItWas_data();
    void aFailedAdditionLeavesTheFolderAsItWas();
    void aFailedRemovalIsReported();
    void aFailedListingIsReported();
    void withoutExclusiveRenamingTheItemIsAddedAllTheSame();
    void aFileIsNeverOverwritten_data();
    void aFileIsNeverOverwritten();
    void anotherNameIsTriedWhereOneIsTaken_data();
    void anotherNameIsTriedWhereOneIsTaken();
    void aFolderThatNeedsNoSyncIsNoFailure();
    void anInterruptedCallIsMadeAgain();
    void aLockHeldByAnotherIsWaitedForFiveSeconds();
    void permissionsThatAreMissingAreReported_data();
    void permissionsThatAreMissingAreReported();
    void aKillAtAnyMomentLeavesAValidFolder_data();
    void aKillAtAnyMomentLeavesAValidFolder();

private:
    std::optional<Session> session;
};

void LoginItemFailuresTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemFailuresTest::cleanup()
{
    systemCallPlan = {};
    session.reset();
}

void LoginItemFailuresTest::aFailedAdditionLeavesTheFolderAsItWas_data()
{
    QTest::addColumn<std::string>("call");
    QTest::addColumn<int>("successes");
    QTest::addColumn<int>("error");

    QTest::newRow("locking") << std::string("flock") << 0 << ENOLCK;
    QTest::newRow("opening the folder anew") << std::string("openat") << 0 << EMFILE;
    QTest::newRow("listing the folder") << std::string("openat") << 1 << EMFILE;
    QTest::newRow("reading an entry") << std::string("openat") << 2 << EACCES;
    QTest::newRow("looking for begun files") << std::string("openat") << 3 << ENOMEM;
    QTest::newRow("making the file") << std::string("openat") << 4 << EROFS;
    QTest::newRow("writing") << std::string("write") << 0 << ENOSPC;
    QTest::newRow("syncing the file") << std::string("fsync") << 0 << EIO;
    QTest::newRow("naming the file") << std::string("renameat2") << 0 << EDQUOT;
    QTest::newRow("finding a free name") << std::string("renameat2") << 0 << EEXIST;
    QTest::newRow("syncing the folder") << std::string("fsync") << 1 << EIO;
}

void LoginItemFailuresTest::aFailedAdditionLeavesTheFolderAsItWas()
{
    // given
    QFETCH(std::string, call);
    QFETCH(int, successes);
    QFETCH(int, error);
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");

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
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    const LoginItemUrlRef url = allLoginItems()->at(0).URL;
    const std::string expected = removeMessage + std::to_string(EROFS);

    // when
    const auto failing = [](const std::function<bool()>& deed) {
        return printedWhileFailing("unlinkat", EROFS, 0, [&] { QVERIFY(!deed()); });
    };

    // then
    QCOMPARE(failing([] { return removeLoginItemAtIndex(0); }), expected);
    QCOMPARE(failing([] { return removeLoginItemWithPath("/a"); }), expected);
    QCOMPARE(failing([&] { return removeLoginItemWithURL(url); }), expected);
    QCOMPARE(itemCount(), size_t{1});
}

void LoginItemFailuresTest::aFailedListingIsReported()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    LoginItemArrayRef items;

    // when
    const std::string printed =
        printedWhileFailing("openat", EMFILE, 0, [&] { items = allLoginItems(); });

    // then
    QVERIFY(!items);
    QCOMPARE(printed, listMessage + std::to_string(EMFILE));
}

void LoginItemFailuresTest::withoutExclusiveRenamingTheItemIsAddedAllTheSame()
{
    // given
    bool isAdded = false;

    // when
    printedWhileFailing("renameat2", EINVAL, 0, [&] { isAdded = add(); });

    // then
    QVERIFY(isAdded);
    QCOMPARE(itemCount(), size_t{1});
    QCOMPARE(namesIn(session->autostart()).size(), size_t{1});
}

void LoginItemFailuresTest::aFileIsNeverOverwritten_data()
{
    QTest::addColumn<std::string>("failingCall");

    QTest::newRow("by renaming") << std::string();
    QTest::newRow("by linking") << std::string("renameat2");
}

void LoginItemFailuresTest::aFileIsNeverOverwritten()
{
    // given
    QFETCH(std::string, failingCall);
    writeFile(session->autostart() / "a.desktop", "mine");
    const int folder = open(session->autostart().c_str(), O_RDONLY | O_DIRECTORY);

    // when
    systemCallPlan.error = EINVAL;
    systemCallPlan.failingCall = failingCall;
    const OSStatus status = osUtils::Login::writeEntryFile(folder, "a.desktop", "theirs");

    // then
    close(folder);
    QCOMPARE(status, OSStatus{EEXIST});
    QCOMPARE(readFile(session->autostart() / "a.desktop"), std::string("mine"));
    QCOMPARE(namesIn(session->autostart()), std::set<std::string>{"a.desktop"});
}

void LoginItemFailuresTest::anotherNameIsTriedWhereOneIsTaken_data()
{
    QTest::addColumn<std::string>("call");

    QTest::newRow("of an entry") << std::string("renameat2");
    QTest::newRow("of a begun file") << std::string("openat");
}

void LoginItemFailuresTest::anotherNameIsTriedWhereOneIsTaken()
{
    // given
    QFETCH(std::string, call);
    QVERIFY(add());
    const std::string taken = *namesIn(session->autostart()).begin();
    // In the second case the call after locking, listing twice and reading the entry.
    systemCallPlan.successes = call == "openat" ? 4 : 0;
    systemCallPlan.failures = 3;
    systemCallPlan.error = EEXIST;
    systemCallPlan.failingCall = call;

    // when
    const bool isAdded = add();

    // then
    QVERIFY(isAdded);
    QCOMPARE(systemCallPlan.failures, 0);
    const std::set<std::string> names = namesIn(session->autostart());
    QCOMPARE(names.size(), size_t{2});
    QVERIFY(names.contains(taken));
}

void LoginItemFailuresTest::aFolderThatNeedsNoSyncIsNoFailure()
{
    // given
    bool isAdded = false;

    // when
    printedWhileFailing("fsync", EINVAL, 1, [&] { isAdded = add(); });

    // then
    QVERIFY(isAdded);
    QCOMPARE(itemCount(), size_t{1});
}

void LoginItemFailuresTest::anInterruptedCallIsMadeAgain()
{
    // given
    systemCallPlan.failingCall = "write";
    systemCallPlan.error = EINTR;
    systemCallPlan.failures = 2;

    // when
    const bool isAdded = add();

    // then
    QVERIFY(isAdded);
    QCOMPARE(systemCallPlan.failures, 0);
    QCOMPARE(itemCount(), size_t{1});
}

void LoginItemFailuresTest::aLockHeldByAnotherIsWaitedForFiveSeconds()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    const int folder = open(session->autostart().c_str(), O_RDONLY | O_DIRECTORY);
    QCOMPARE(flock(folder, LOCK_EX), 0);

    // when
    bool isAdded = true;
    const std::string printed = printedBy([&] { isAdded = add(); });

    // then
    QVERIFY(!isAdded);
    QCOMPARE(printed, addMessage + std::to_string(EWOULDBLOCK));
    QCOMPARE(itemCount(), size_t{1});
    QVERIFY(removeLoginItemAtIndex(0));
    close(folder);
    QVERIFY(add());
}

void LoginItemFailuresTest::permissionsThatAreMissingAreReported_data()
{
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<bool>("canList");

    QTest::newRow("to change the folder") << 0555 << 0444 << true;
    QTest::newRow("to list the folder") << 0111 << 0444 << false;
    QTest::newRow("to enter the folder") << 0444 << 0444 << false;
    QTest::newRow("to read a file") << 0555 << 0000 << false;
}

void LoginItemFailuresTest::permissionsThatAreMissingAreReported()
{
    // given
    QFETCH(int, folderMode);
    QFETCH(int, fileMode);
    QFETCH(bool, canList);
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    using std::filesystem::perms;
    std::filesystem::permissions(session->root(), perms{0755});
    std::filesystem::permissions(session->autostart() / "a.desktop", perms(fileMode));
    std::filesystem::permissions(session->autostart(), perms(folderMode));
    QCOMPARE(EACCES, 13);

    // when
    ChildProcess user([&] {
        const auto status = [](int error) { return std::to_string(error); };
        bool isDone = !becomeOrdinaryUser();
        const std::string listed = printedBy([&] { isDone |= !canList && allLoginItems(); });
        const std::string added = printedBy([&] { isDone |= add(); });
        const std::string removed = printedBy([&] { isDone |= removeLoginItemAtIndex(0); });
        return !isDone && listed == (canList ? "" : listMessage + status(EACCES))
            && added == addMessage + status(EACCES) && removed == removeMessage + status(EACCES);
    });

    // then
    const bool isAsExpected = user.hasSucceeded();
    std::filesystem::permissions(session->autostart(), perms{0755});
    QVERIFY(isAsExpected);
    QCOMPARE(namesIn(session->autostart()), std::set<std::string>{"a.desktop"});
}

void LoginItemFailuresTest::aKillAtAnyMomentLeavesAValidFolder_data()
{
    using Deed = std::function<bool()>;
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<int>("change");

    QTest::newRow("adding") << Deed(add) << 1;
    QTest::newRow("adding by a link") << Deed([] {
        systemCallPlan.failingCall = "renameat2";
        systemCallPlan.error = EINVAL;
        return add();
    }) << 1;
    QTest::newRow("removing") << Deed([] { return removeLoginItemAtIndex(0); }) << -1;
}

void LoginItemFailuresTest::aKillAtAnyMomentLeavesAValidFolder()
{
    // given
    QFETCH(std::function<bool()>, deed);
    QFETCH(int, change);
    bool wasKilled = true;
    int moments = 0;

    for (; wasKilled; ++moments) {
        while (itemCount() < 2)
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
        const size_t changed = static_cast<size_t>(2 + change);
        QVERIFY(count == changed || (wasKilled && count == 2));
        for (const std::string& name : namesIn(session->autostart())) {
            const std::string bytes = readFile(session->autostart() / name);
            QVERIFY2(!name.ends_with(".desktop") || isWhole(bytes), bytes.c_str());
        }
        // The next addition succeeds at once and clears away what was begun.
        QVERIFY(add());
        QCOMPARE(itemCount(), count + 1);
        QCOMPARE(namesIn(session->autostart()).size(), count + 1);
        while (itemCount() > 2)
            QVERIFY(removeLoginItemAtIndex(0));
    }
    QVERIFY2(moments > (change > 0 ? 15 : 7), "the calls were not seen");
}

QTEST_APPLESS_MAIN(LoginItemFailuresTest)
#include "loginitemfailurestest.moc"

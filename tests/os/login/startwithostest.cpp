#include "os/login/loginitems.h"

#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

#include <optional>

using namespace TestSupport;
using osUtils::System::startWithOS;
using osUtils::System::switchOsStartBehavior;

namespace {

/// What dex would start at the login, a line each.
QByteArrayList commandsOfDex()
{
    QProcess dex;
    dex.start("dex", {"--autostart", "--dry-run"});
    dex.waitForFinished();
    QByteArrayList commands = dex.readAllStandardOutput().split('\n');
    commands.removeAll("");
    for (QByteArray& command : commands)
        command.remove(0, command.indexOf(": ") + 2);
    std::sort(commands.begin(), commands.end());
    return commands;
}

}

/// Whether applications start with the login.
class StartWithOsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".?"));
        session.emplace();
    }
    void cleanup() { session.reset(); }
    void switchingOnAddsTheApplicationAtTheEnd();
    void theWholeCommandLineIsStarted_data();
    void theWholeCommandLineIsStarted();
    void itemsThatStartTheLikeAreLeftAlone_data();
    void itemsThatStartTheLikeAreLeftAlone();
    void anEntryOfTheApplicationsNameIsTheApplications();
    void anEntryForAllUsersIsSwitchedOffAndOn_data();
    void anEntryForAllUsersIsSwitchedOffAndOn();
    void anEntryThatTheUserSwitchedOffElsewhereIsKept();
    void anApplicationThatMovesIsStillTheSame();
    void aVanishedProgramCanBeSwitchedOffButNotOn_data();
    void aVanishedProgramCanBeSwitchedOffButNotOn();
    void anIdentifierIsFoundWhereApplicationsAre_data();
    void anIdentifierIsFoundWhereApplicationsAre();
    void withoutAnApplicationNothingHappens_data();
    void withoutAnApplicationNothingHappens();
    void failuresAreReported();

private:
    void addApplication(const std::string& id, const std::string& exec) const
    {
        writeFile(session->applications() / (id + ".desktop"), entryText(exec));
    }

    std::optional<Session> session;
};

void StartWithOsTest::switchingOnAddsTheApplicationAtTheEnd()
{
    // given
    addApplication("org.example.Painter", "sh --now %U");
    session->addEntry("z.desktop", "/z");
    QVERIFY(!startWithOS("org.example.Painter"));

    // when
    const bool isSwitched = switchOsStartBehavior("org.example.Painter", "whatever");

    // then
    QVERIFY(isSwitched);
    QVERIFY(startWithOS("org.example.Painter"));
    QCOMPARE(listedPaths(), (Paths{"/z", session->applications() / "org.example.Painter.desktop"}));
    QVERIFY(!allLoginItems()->at(1).Hidden);
}

void StartWithOsTest::theWholeCommandLineIsStarted_data()
{
    addTextRows({"exec", "command"},
                {{"arguments", "/bin/sh -a b", "/bin/sh -a b"},
                 {"a program by its name", "sh -c true", "sh -c true"},
                 {"files to open", "sh %F --url=%u %U end", "sh --url= end"},
                 {"its name and entry", "sh --title %c", "sh --title Painter"},
                 {"a wrapper", "/usr/bin/env FOO=1 xclock", "/usr/bin/env FOO=1 xclock"},
                 {"a program within a word", "sh -c \"a b; c\"", "sh -c a b; c"},
                 {"a doubled percent sign", "sh 100%%",
                  "/bin/sh -c echo ZXhlYyAnc2gnICcxMDAlJyA8L2Rldi9udWxs | base64 -d | /bin/sh"}});
}

void StartWithOsTest::theWholeCommandLineIsStarted()
{
    // given
    QFETCH(std::string, exec);
    QFETCH(std::string, command);
    addApplication("painter", exec);

    // when
    QVERIFY(switchOsStartBehavior("painter", ""));

    // then
    QCOMPARE(commandsOfDex(), QByteArrayList{QByteArray::fromStdString(command)});
}

void StartWithOsTest::itemsThatStartTheLikeAreLeftAlone_data()
{
    addTextRows({"id", "exec", "otherExec"},
                {{"a wrapper", "clock", "/usr/bin/env FOO=1 xclock", "env BAR=2 xeyes"},
                 {"a sandbox", "org.x.A", "/bin/sh run org.x.A", "/bin/sh run org.x.B"},
                 {"an interpreter", "tool", "sh /opt/tool", "sh /opt/other"},
                 {"a prefix", "foot", "foot", "footclient"},
                 {"the same program", "foot", "/bin/sh", "/bin/sh"},
                 {"the entry itself", "foot", "/bin/sh", "footclient foot.desktop"}});
}

void StartWithOsTest::itemsThatStartTheLikeAreLeftAlone()
{
    // given
    QFETCH(std::string, id);
    QFETCH(std::string, exec);
    QFETCH(std::string, otherExec);
    session->addProgram("foot");
    session->addProgram("footclient");
    addApplication(id, exec);
    addApplication(id + "client", otherExec);
    addApplication("FOOT", otherExec);
    addApplication("sub/" + id, otherExec);
    session->addEntry("mine.desktop", otherExec);
    for (const std::string& other : {id + "client", std::string("FOOT"), "sub-" + id})
        QVERIFY(switchOsStartBehavior(other, ""));
    const Paths before = listedPaths();
    const std::set<std::string> files = namesIn(session->autostart());
    QCOMPARE(before.size(), size_t{4});

    // when
    const bool startsBefore = startWithOS(id);
    QVERIFY(switchOsStartBehavior(id, ""));
    const bool startsThen = startWithOS(id);
    QVERIFY(switchOsStartBehavior(id, ""));

    // then
    QVERIFY(!startsBefore);
    QVERIFY(startsThen);
    QVERIFY(!startWithOS(id));
    QCOMPARE(listedPaths(), before);
    QCOMPARE(namesIn(session->autostart()), files);
}

void StartWithOsTest::anEntryOfTheApplicationsNameIsTheApplications()
{
    // given
    addApplication("painter", "sh");
    session->addEntry("painter.desktop", "painter --tray");

    // when
    const bool starts = startWithOS("painter");

    // then
    QVERIFY(starts);
    QVERIFY(switchOsStartBehavior("painter", ""));
    QCOMPARE(listedPaths(), Paths{});
    QVERIFY(namesIn(session->autostart()).empty());
}

void StartWithOsTest::anEntryForAllUsersIsSwitchedOffAndOn_data()
{
    QTest::addColumn<bool>("hasUsersOwn");

    QTest::newRow("alone") << false;
    QTest::newRow("behind the user's own") << true;
}

void StartWithOsTest::anEntryForAllUsersIsSwitchedOffAndOn()
{
    // given
    QFETCH(bool, hasUsersOwn);
    addApplication("painter", "sh");
    session->addSystemEntry("painter.desktop", "sh --for-all");
    if (hasUsersOwn)
        session->addEntry("painter.desktop", "sh --mine");
    const Paths before = listedPaths();
    const std::string systemsEntry = readFile(session->systemAutostart() / "painter.desktop");
    QVERIFY(startWithOS("painter"));
    QCOMPARE(commandsOfDex(), QByteArrayList{hasUsersOwn ? "sh --mine" : "sh --for-all"});

    // when
    QVERIFY(switchOsStartBehavior("painter", ""));
    const bool starts = startWithOS("painter");
    const QByteArrayList commands = commandsOfDex();
    const std::string usersEntry = readFile(session->autostart() / "painter.desktop");
    QVERIFY(switchOsStartBehavior("painter", ""));

    // then
    QVERIFY(!starts);
    QCOMPARE(commands, QByteArrayList{});
    QVERIFY(usersEntry.find("\nHidden=true\n") != std::string::npos);
    QVERIFY(startWithOS("painter"));
    QCOMPARE(commandsOfDex(), QByteArrayList{"sh --for-all"});
    QCOMPARE(listedPaths(), before);
    QVERIFY(namesIn(session->autostart()).empty());
    QCOMPARE(readFile(session->systemAutostart() / "painter.desktop"), systemsEntry);
}

void StartWithOsTest::anEntryThatTheUserSwitchedOffElsewhereIsKept()
{
    // given
    addApplication("painter", "sh --painter");
    const std::string off = entryText("sh --mine", "Hidden=true\n");
    writeFile(session->autostart() / "painter.desktop", off);
    QVERIFY(!startWithOS("painter"));

    // when
    QVERIFY(switchOsStartBehavior("painter", ""));

    // then
    QVERIFY(startWithOS("painter"));
    QCOMPARE(commandsOfDex(), QByteArrayList{"sh --painter"});
    QCOMPARE(readFile(session->autostart() / "painter.desktop"), off);
}

void StartWithOsTest::anApplicationThatMovesIsStillTheSame()
{
    // given
    writeFile(session->systemApplications() / "painter.desktop", entryText("sh"));
    QVERIFY(switchOsStartBehavior("painter", ""));

    // when
    addApplication("painter", "sh --mine");

    // then
    QVERIFY(startWithOS("painter"));
    QVERIFY(switchOsStartBehavior("painter", ""));
    QCOMPARE(listedPaths(), Paths{});
}

void StartWithOsTest::aVanishedProgramCanBeSwitchedOffButNotOn_data()
{
    QTest::addColumn<std::string>("exec");

    for (const char* exec : {"/opt/gone/painter", "gone-7c1 -x", "\"open", ""})
        QTest::addRow("Exec=%s", exec) << std::string(exec);
}

void StartWithOsTest::aVanishedProgramCanBeSwitchedOffButNotOn()
{
    // given
    QFETCH(std::string, exec);
    addApplication("gone", exec);
    session->addEntry("gone.desktop", "/opt/gone/painter");
    QVERIFY(startWithOS("gone"));
    QVERIFY(switchOsStartBehavior("gone", ""));

    // when
    bool isSwitched = true;
    const std::string printed = printedBy([&] { isSwitched = switchOsStartBehavior("gone", ""); });

    // then
    QVERIFY(!isSwitched);
    QCOMPARE(printed, std::string("Couldn't add login item error -43"));
}

void StartWithOsTest::anIdentifierIsFoundWhereApplicationsAre_data()
{
    addTextRows({"id", "file"},
                {{"the user's", "a", "home/data/applications/a"},
                 {"the system's", "a", "system/data/applications/a"},
                 {"dots", "org.x.A", "system/data/applications/org.x.A"},
                 {"dash", "x-a", "home/data/applications/x-a"},
                 {"folder", "x-a", "home/data/applications/x/a"},
                 {"two folders", "x-y-a", "home/data/applications/x/y/a"},
                 {"a dash in the folder", "x-y-a", "home/data/applications/x-y/a"},
                 {"a dash in the file", "x-y-a", "home/data/applications/x/y-a"},
                 {"non-ASCII", "\xc3\xa9", "home/data/applications/\xc3\xa9"}});
}

void StartWithOsTest::anIdentifierIsFoundWhereApplicationsAre()
{
    // given
    QFETCH(std::string, id);
    QFETCH(std::string, file);
    const Path path = session->root() / (file + ".desktop");
    writeFile(path, entryText("sh"));

    // when
    QVERIFY(switchOsStartBehavior(id, ""));
    const Paths paths = listedPaths();
    QVERIFY(switchOsStartBehavior(id, ""));

    // then
    QCOMPARE(paths, Paths{path});
    QCOMPARE(listedPaths(), Paths{});
}

void StartWithOsTest::withoutAnApplicationNothingHappens_data()
{
    QTest::addColumn<std::string>("id");

    for (const char* id : {"missing", "", "deleted", "link", "broken", "folder", "pipe",
                           "../applications/good", "/bin/sh", "good.desktop", "-good", "good-"})
        QTest::newRow(*id ? id : "empty") << std::string(id);
    QTest::newRow("too long") << std::string(5000, 'x');
    QTest::newRow("a zero inside") << std::string("good\0", 5);
}

void StartWithOsTest::withoutAnApplicationNothingHappens()
{
    // given
    QFETCH(std::string, id);
    const Path folder = session->applications();
    addApplication("good", "/bin/sh");
    writeFile(folder / "deleted.desktop", entryText("/bin/sh", "Hidden=true\n"));
    writeFile(session->systemApplications() / "deleted.desktop", entryText("/bin/sh"));
    writeFile(folder / "link.desktop", "[Desktop Entry]\nType=Link\nURL=/bin/sh\n");
    writeFile(folder / "broken.desktop", "Exec=/bin/sh\n");
    writeFile(folder / "folder.desktop/a", "");
    mkfifo((folder / "pipe.desktop").c_str(), 0600);
    session->addEntry("a.desktop", "/opt/no-such-program-7c1");

    // when
    bool starts = true;
    bool isSwitched = true;
    const std::string printed = printedBy([&] {
        starts = startWithOS(id);
        isSwitched = switchOsStartBehavior(id, "");
    });

    // then
    QVERIFY(!starts);
    QVERIFY(!isSwitched);
    QCOMPARE(printed, std::string());
    QCOMPARE(listedPaths(), Paths{"/opt/no-such-program-7c1"});
}

void StartWithOsTest::failuresAreReported()
{
    // given
    addApplication("a", "true");
    writeFile(session->autostart(), "");

    // when
    const std::string asked = printedBy([] { QVERIFY(!startWithOS("a")); });
    const std::string switched = printedBy([] { QVERIFY(!switchOsStartBehavior("a", "")); });

    // then
    QCOMPARE(asked, std::string("Couldn't list login items error 20"));
    QCOMPARE(switched, asked + "Couldn't add login item error 20");
}

REGISTER_TEST(StartWithOsTest, QCoreApplication)
#include "startwithostest.moc"

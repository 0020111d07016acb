#include "os/login/startwithos.h"

#include "os/login/loginitems.h"
#include "tests/os/login/listedpaths.h"
#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

#include <optional>

using namespace TestSupport;
using osUtils::System::startWithOS;
using osUtils::System::switchOsStartBehavior;

namespace {

std::string entryOf(const std::string& exec)
{
    return "[Desktop Entry]\nType=Application\nName=Painter\nExec=" + exec + '\n';
}

}

/// Whether applications start with the login.
class StartWithOsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void switchingOnAddsTheProgramAtTheEnd();
    void switchingTwiceLeavesTheItemsAsTheyWere();
    void anItemOfOthersCountsToo();
    void aVanishedProgramCanBeSwitchedOffButNotOn();
    void anIdentifierIsFoundWhereApplicationsAre_data();
    void anIdentifierIsFoundWhereApplicationsAre();
    void theUsersEntryComesBeforeTheSystems();
    void withoutAnApplicationNothingHappens_data();
    void withoutAnApplicationNothingHappens();
    void failuresAreReported();

private:
    std::optional<Session> session;
};

void StartWithOsTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void StartWithOsTest::cleanup()
{
    session.reset();
}

void StartWithOsTest::switchingOnAddsTheProgramAtTheEnd()
{
    // given
    const std::string program = session->addProgram("painter");
    writeFile(session->applications() / "org.example.Painter.desktop", entryOf("painter --now %U"));
    session->addEntry("z.desktop", "Type=Application\nExec=/z\n");
    QVERIFY(!startWithOS("org.example.Painter"));

    // when
    const bool isSwitched = switchOsStartBehavior("org.example.Painter", "whatever");

    // then
    QVERIFY(isSwitched);
    QVERIFY(startWithOS("org.example.Painter"));
    QCOMPARE(listedPaths(), (Paths{"/z", program}));
    QVERIFY(!allLoginItems()->at(1).Hidden);
}

void StartWithOsTest::switchingTwiceLeavesTheItemsAsTheyWere()
{
    // given
    session->addProgram("painter");
    writeFile(session->applications() / "painter.desktop", entryOf("painter"));
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    QVERIFY(addLoginItemWithPath("/bin/sh", true));
    const std::set<std::string> files = namesIn(session->autostart());

    // when
    QVERIFY(switchOsStartBehavior("painter", ""));
    QVERIFY(switchOsStartBehavior("painter", ""));

    // then
    QVERIFY(!startWithOS("painter"));
    QCOMPARE(namesIn(session->autostart()), files);
    QCOMPARE(listedPaths(), (Paths{"/a", "/bin/sh"}));
}

void StartWithOsTest::anItemOfOthersCountsToo()
{
    // given
    const std::string program = session->addProgram("painter");
    writeFile(session->applications() / "painter.desktop", entryOf(program));
    session->addEntry("a.desktop", "Type=Application\nExec=painter --tray\n");

    // when
    const bool starts = startWithOS("painter");

    // then
    QVERIFY(starts);
    QVERIFY(switchOsStartBehavior("painter", ""));
    QCOMPARE(listedPaths(), Paths{});
}

void StartWithOsTest::aVanishedProgramCanBeSwitchedOffButNotOn()
{
    // given
    writeFile(session->applications() / "gone.desktop", entryOf("/opt/gone/painter"));
    session->addEntry("a.desktop", "Type=Application\nExec=/opt/gone/painter\n");
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
    QTest::addColumn<std::string>("id");
    QTest::addColumn<bool>("isUsers");
    QTest::addColumn<std::string>("file");

    QTest::newRow("user's") << std::string("a") << true << std::string("a.desktop");
    QTest::newRow("system's") << std::string("a") << false << std::string("a.desktop");
    QTest::newRow("dots") << std::string("org.x.A") << false << std::string("org.x.A.desktop");
    QTest::newRow("dash") << std::string("x-a") << true << std::string("x-a.desktop");
    QTest::newRow("folder") << std::string("x-a") << true << std::string("x/a.desktop");
    QTest::newRow("two folders") << std::string("x-y-a") << true << std::string("x/y/a.desktop");
    QTest::newRow("a dash in the folder")
        << std::string("x-y-a") << true << std::string("x-y/a.desktop");
    QTest::newRow("a dash in the file")
        << std::string("x-y-a") << true << std::string("x/y-a.desktop");
    QTest::newRow("non-ASCII") << std::string("\xc3\xa9") << true
                               << std::string("\xc3\xa9.desktop");
}

void StartWithOsTest::anIdentifierIsFoundWhereApplicationsAre()
{
    // given
    QFETCH(std::string, id);
    QFETCH(bool, isUsers);
    QFETCH(std::string, file);
    const std::string program = session->addProgram("painter");
    writeFile((isUsers ? session->applications() : session->systemApplications()) / file,
              entryOf(program));

    // when
    const bool isSwitched = switchOsStartBehavior(id, "");

    // then
    QVERIFY(isSwitched);
    QCOMPARE(listedPaths(), Paths{program});
}

void StartWithOsTest::theUsersEntryComesBeforeTheSystems()
{
    // given
    writeFile(session->systemApplications() / "a.desktop", entryOf("/bin/false"));
    writeFile(session->applications() / "a.desktop", entryOf("/bin/true"));

    // when
    QVERIFY(switchOsStartBehavior("a", ""));

    // then
    QCOMPARE(listedPaths(), Paths{"/bin/true"});
}

void StartWithOsTest::withoutAnApplicationNothingHappens_data()
{
    QTest::addColumn<std::string>("id");

    for (const char* id : {"missing", "", "deleted", "link", "broken", "relative", "folder", "pipe",
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
    writeFile(folder / "good.desktop", entryOf("/bin/sh"));
    writeFile(folder / "deleted.desktop", entryOf("/bin/sh") + "Hidden=true\n");
    writeFile(session->systemApplications() / "deleted.desktop", entryOf("/bin/sh"));
    writeFile(folder / "link.desktop", "[Desktop Entry]\nType=Link\nURL=/bin/sh\n");
    writeFile(folder / "broken.desktop", "Exec=/bin/sh\n");
    writeFile(folder / "relative.desktop", entryOf("no-such-program-7c1"));
    writeFile(folder / "folder.desktop/a", "");
    mkfifo((folder / "pipe.desktop").c_str(), 0600);
    session->addEntry("a.desktop", "Type=Application\nExec=/opt/no-such-program-7c1\n");

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
    writeFile(session->applications() / "a.desktop", entryOf("/bin/true"));
    writeFile(session->autostart(), "");

    // when
    const std::string asked = printedBy([] { QVERIFY(!startWithOS("a")); });
    const std::string switched = printedBy([] { QVERIFY(!switchOsStartBehavior("a", "")); });

    // then
    QCOMPARE(asked, std::string("Couldn't list login items error 20"));
    QCOMPARE(switched, asked + "Couldn't add login item error 20");
}

QTEST_APPLESS_MAIN(StartWithOsTest)
#include "startwithostest.moc"

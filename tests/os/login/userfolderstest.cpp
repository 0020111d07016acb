#include "os/login/userfolders.h"

#include "os/login/loginitemservice.h"
#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

#include <pwd.h>

#include <cerrno>

using namespace osUtils::Login;

namespace {

/// Home folder in the user database; no user where there is none.
std::string databaseHome;

using Paths = std::vector<std::string>;

}

// Takes the place of the system's, for this program.
extern "C" passwd* getpwuid(uid_t) noexcept
{
    static passwd entry{};
    entry.pw_dir = databaseHome.data();
    return databaseHome.empty() ? nullptr : &entry;
}

/// Folders of the user's session, as the environment tells them.
class UserFoldersTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theEnvironmentNamesTheAutostartFolder_data();
    void theEnvironmentNamesTheAutostartFolder();
    void theEnvironmentNamesTheApplicationFolders_data();
    void theEnvironmentNamesTheApplicationFolders();
    void withoutAHomeThereAreNoItemsAndNoneIsAdded();
};

void UserFoldersTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

void UserFoldersTest::theEnvironmentNamesTheAutostartFolder_data()
{
    QTest::addColumn<std::string>("config");
    QTest::addColumn<std::string>("home");
    QTest::addColumn<std::string>("database");
    QTest::addColumn<std::string>("folder");

    const auto row = [](const char* name, const char* config, const char* home,
                        const char* database, const char* folder) {
        QTest::newRow(name) << std::string(config) << std::string(home) << std::string(database)
                            << std::string(folder);
    };
    row("chosen", "/c", "/home/ann", "/home/bob", "/c/autostart");
    row("home", "", "/home/ann", "/home/bob", "/home/ann/.config/autostart");
    row("relative choice", "c", "/home/ann", "", "/home/ann/.config/autostart");
    row("user database", "", "", "/home/bob", "/home/bob/.config/autostart");
    row("relative home", "", "ann", "/home/bob", "/home/bob/.config/autostart");
    row("no home at all", "", "", "", "");
}

void UserFoldersTest::theEnvironmentNamesTheAutostartFolder()
{
    // given
    QFETCH(std::string, config);
    QFETCH(std::string, home);
    QFETCH(std::string, database);
    QFETCH(std::string, folder);
    TestSupport::Session session;
    config.empty() ? session.unset("XDG_CONFIG_HOME") : session.set("XDG_CONFIG_HOME", config);
    home.empty() ? session.unset("HOME") : session.set("HOME", home);
    databaseHome = database;

    // when
    const std::string path = autostartPath();

    // then
    databaseHome.clear();
    QCOMPARE(path, folder);
}

void UserFoldersTest::theEnvironmentNamesTheApplicationFolders_data()
{
    QTest::addColumn<std::string>("data");
    QTest::addColumn<std::string>("shared");
    QTest::addColumn<Paths>("folders");

    const std::string own = "/home/ann/.local/share/applications";
    QTest::newRow("defaults") << std::string() << std::string()
                              << Paths{own, "/usr/local/share/applications",
                                       "/usr/share/applications"};
    QTest::newRow("chosen") << std::string("/d") << std::string("/x:/y")
                            << Paths{"/d/applications", "/x/applications", "/y/applications"};
    QTest::newRow("relative ones")
        << std::string("d") << std::string("x::/y:") << Paths{own, "/y/applications"};
    QTest::newRow("a colon in the user's") << std::string("/d:e") << std::string("/x")
                                           << Paths{"/d:e/applications", "/x/applications"};
}

void UserFoldersTest::theEnvironmentNamesTheApplicationFolders()
{
    // given
    QFETCH(std::string, data);
    QFETCH(std::string, shared);
    QFETCH(Paths, folders);
    TestSupport::Session session;
    session.set("HOME", "/home/ann");
    session.set("XDG_DATA_HOME", data);
    session.set("XDG_DATA_DIRS", shared);

    // when
    const Paths paths = applicationPaths();

    // then
    QCOMPARE(paths, folders);
}

void UserFoldersTest::withoutAHomeThereAreNoItemsAndNoneIsAdded()
{
    // given
    TestSupport::Session session;
    session.unset("XDG_CONFIG_HOME");
    session.unset("HOME");

    // when
    const OSStatus status = LIAEAddURLAtEnd(LoginItemUrl::fromPath("/bin/sh"), false);

    // then
    LoginItemArrayRef items;
    QCOMPARE(status, OSStatus{ENOENT});
    QCOMPARE(LIAECopyLoginItems(items), LoginItemStatus::success);
    QVERIFY(items->empty());
}

QTEST_APPLESS_MAIN(UserFoldersTest)
#include "userfolderstest.moc"

#include "os/desktopentry/applications.h"

#include "os/login/loginitems.h"
#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

#include <pwd.h>

#include <cerrno>
#include <optional>

using namespace osUtils;
using namespace TestSupport;

namespace {

/// Home folder in the user database; no user where there is none.
std::string databaseHome;

}

// Takes the place of the system's, for this program.
extern "C" passwd* getpwuid(uid_t) noexcept
{
    static passwd entry{};
    entry.pw_dir = databaseHome.data();
    return databaseHome.empty() ? nullptr : &entry;
}

/// Where desktop entries are, and what they are called.
class ApplicationsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theEnvironmentNamesTheAutostartFolders_data();
    void theEnvironmentNamesTheAutostartFolders();
    void withoutAHomeThereAreNoItemsAndNoneIsAdded();
    void theUsersFileHidesTheSystems();
    void filesComeByFolderAndIdentifier();
    void foldersThatHoldThemselvesEnd();

private:
    [[nodiscard]] std::string identifiers() const
    {
        std::string text;
        for (const ApplicationFile& file : applicationFiles())
            text += file.id + ' ';
        return text;
    }

    std::optional<Session> session;
};

void ApplicationsTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void ApplicationsTest::cleanup()
{
    session.reset();
    databaseHome.clear();
}

void ApplicationsTest::theEnvironmentNamesTheAutostartFolders_data()
{
    QTest::addColumn<std::string>("config");
    QTest::addColumn<std::string>("home");
    QTest::addColumn<std::string>("database");
    QTest::addColumn<std::string>("system");
    QTest::addColumn<std::string>("folders");

    const auto row = [](const char* name, const char* config, const char* home,
                        const char* database, const char* system, const char* folders) {
        QTest::newRow(name) << std::string(config) << std::string(home) << std::string(database)
                            << std::string(system) << std::string(folders);
    };
    row("chosen", "/c", "/home/a", "/home/b", "/x:/y", "/c/autostart /x/autostart /y/autostart ");
    row("home", "", "/home/a", "/home/b", "/x", "/home/a/.config/autostart /x/autostart ");
    row("relative", "c", "/home/a", "", "x::/y:", "/home/a/.config/autostart /y/autostart ");
    row("user database", "", "", "/home/b", "/x", "/home/b/.config/autostart /x/autostart ");
    row("relative home", "", "a", "/home/b", "/x", "/home/b/.config/autostart /x/autostart ");
    row("colon in the user's", "/c:d", "", "", "/x", "/c:d/autostart /x/autostart ");
    row("not normal", "/c//d/../", "", "", "/x/./", "/c/autostart /x/autostart ");
    row("defaults", "", "", "", "", " /etc/xdg/autostart ");
}

void ApplicationsTest::theEnvironmentNamesTheAutostartFolders()
{
    // given
    QFETCH(std::string, config);
    QFETCH(std::string, home);
    QFETCH(std::string, database);
    QFETCH(std::string, system);
    session->set("XDG_CONFIG_HOME", config);
    session->set("HOME", home);
    session->set("XDG_CONFIG_DIRS", system);
    databaseHome = database;

    // when
    std::string folders;
    for (const std::filesystem::path& folder : autostartFolders())
        folders += folder.native() + ' ';

    // then
    QTEST(folders, "folders");
}

void ApplicationsTest::withoutAHomeThereAreNoItemsAndNoneIsAdded()
{
    // given
    session->unset("XDG_CONFIG_HOME");
    session->unset("HOME");

    // when
    const OSStatus status = LIAEAddRefAtEnd("/bin/sh", false);

    // then
    LoginItemArrayRef items;
    QCOMPARE(status, OSStatus{ENOENT});
    QCOMPARE(LIAECopyLoginItems(items), LoginItemStatus::success);
    QVERIFY(items->empty());
}

void ApplicationsTest::theUsersFileHidesTheSystems()
{
    // given
    writeFile(session->systemApplications() / "a.desktop", "");
    writeFile(session->applications() / "a.desktop", "");

    // then
    QCOMPARE(identifiers(), std::string("a "));
    QCOMPARE(applicationPath(applicationFiles(), "a"),
             (session->applications() / "a.desktop").native());
}

void ApplicationsTest::filesComeByFolderAndIdentifier()
{
    // given
    writeFile(session->root() / "two/applications/a.desktop", "");
    writeFile(session->applications() / "d.desktop", "");
    writeFile(session->applications() / "c.desktop", "");
    for (const char* other : {"a.desktop.bak", "mimeinfo.cache", ".desktop", "e.desktop/b"})
        writeFile(session->applications() / other, "");

    // when
    session->set("XDG_DATA_DIRS", "/nowhere:" + (session->root() / "two").native());

    // then
    QCOMPARE(identifiers(), std::string("c d a "));
}

void ApplicationsTest::foldersThatHoldThemselvesEnd()
{
    // given
    writeFile(session->applications() / "a.desktop", "");
    std::filesystem::create_symlink(".", session->applications() / "x");

    // when
    const std::vector<ApplicationFile> files = applicationFiles();

    // then
    QVERIFY(files.size() < 20);
    QVERIFY(applicationPath(files, "x-a").ends_with("/x/a.desktop"));
}

REGISTER_TEST(ApplicationsTest, TestSupport::NoApplication)
#include "applicationstest.moc"

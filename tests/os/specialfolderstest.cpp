#include "os/specialfolders.h"

#include "tests/support/testprogram.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <pwd.h>
#include <unistd.h>

#include <limits>
#include <optional>

using namespace Vc::Utils;

namespace {

/// The user database as the test wants it.
struct UserDatabase {
    /// Home folder of its one user; there is no user without it.
    std::optional<std::string> home;
    int lookups = 0;
    uid_t askedFor = 0;
    passwd entry{};
};
UserDatabase database;

const std::string& cacheOf(int kind)
{
    switch (kind) {
    case ALL_USERS_DATA_FOLDER:
        return _vcAllUsersDataFolder;
    case USER_PICTURE_FOLDER:
        return _vcUserPictureFolder;
    case USER_FOLDER:
        return _vcUserFolder;
    default:
        return _vcUserDataFolder;
    }
}

}

// Takes the place of the system's, for this program.
extern "C" passwd* getpwuid(uid_t user) noexcept
{
    ++database.lookups;
    database.askedFor = user;
    if (!database.home)
        return nullptr;
    database.entry.pw_dir = database.home->data();
    return &database.entry;
}

/// Paths of the folders, for users made up here.
class SpecialFoldersTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aFolderLiesBelowTheHomeOfTheUserDatabase_data();
    void aFolderLiesBelowTheHomeOfTheUserDatabase();
    void withoutAUserThePathsStartAtTheRoot_data();
    void withoutAUserThePathsStartAtTheRoot();
    void otherKindsMeanTheUsersData_data();
    void otherKindsMeanTheUsersData();
    void aPathIsComputedOnce_data();
    void aPathIsComputedOnce();
    void anEmptyHomeIsLookedUpAgain();
    void theHomeIsAskedForEvenWhenThePathIsKnown();
    void theRealUserIsLookedUp();
    void theEnvironmentIsNotAsked();
    void noFolderIsCreated();
};

void SpecialFoldersTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    database = {};
    for (std::string* path :
         {&_vcUserDataFolder, &_vcAllUsersDataFolder, &_vcUserPictureFolder, &_vcUserFolder})
        path->clear();
}

void SpecialFoldersTest::cleanup()
{
    // QtTest may look users up as well.
    database = {};
}

void SpecialFoldersTest::aFolderLiesBelowTheHomeOfTheUserDatabase_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<std::string>("path");

    QTest::newRow("data of all users") << 0 << std::string("/usr/local/share/Varnholt/Vellumcraft");
    QTest::newRow("data of the user")
        << 1 << std::string("/Users/ann/.local/share/Varnholt/Vellumcraft");
    QTest::newRow("pictures") << 2 << std::string("/Users/ann/Pictures/Vellumcraft");
    QTest::newRow("home") << 3 << std::string("/Users/ann");
}

void SpecialFoldersTest::aFolderLiesBelowTheHomeOfTheUserDatabase()
{
    // given
    QFETCH(int, kind);
    QFETCH(std::string, path);
    database.home = "/Users/ann";

    // when
    const std::string& found = vcSpecialFolders(static_cast<vc_special_folders_e>(kind));

    // then
    QCOMPARE(found, path);
    QCOMPARE(&found, &cacheOf(kind));
}

void SpecialFoldersTest::withoutAUserThePathsStartAtTheRoot_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<std::string>("path");

    QTest::newRow("data of all users") << 0 << std::string("/usr/local/share/Varnholt/Vellumcraft");
    QTest::newRow("data of the user") << 1 << std::string("/.local/share/Varnholt/Vellumcraft");
    QTest::newRow("pictures") << 2 << std::string("/Pictures/Vellumcraft");
    QTest::newRow("home") << 3 << std::string();
}

void SpecialFoldersTest::withoutAUserThePathsStartAtTheRoot()
{
    // given
    QFETCH(int, kind);
    QFETCH(std::string, path);
    database.home.reset();

    // when
    const std::string& found = vcSpecialFolders(static_cast<vc_special_folders_e>(kind));

    // then
    QCOMPARE(found, path);
}

void SpecialFoldersTest::otherKindsMeanTheUsersData_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("the next one") << 4;
    QTest::newRow("seven") << 7;
    QTest::newRow("negative") << -1;
    QTest::newRow("the largest") << std::numeric_limits<int>::max();
}

void SpecialFoldersTest::otherKindsMeanTheUsersData()
{
    // given
    QFETCH(int, kind);
    database.home = "/Users/ann";

    // when
    const std::string& found = vcSpecialFolders(static_cast<vc_special_folders_e>(kind));

    // then
    QCOMPARE(&found, &vcSpecialFolders(USER_DATA_FOLDER));
    QCOMPARE(found, std::string("/Users/ann/.local/share/Varnholt/Vellumcraft"));
}

void SpecialFoldersTest::aPathIsComputedOnce_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("data of all users") << 0;
    QTest::newRow("data of the user") << 1;
    QTest::newRow("pictures") << 2;
    QTest::newRow("home") << 3;
}

void SpecialFoldersTest::aPathIsComputedOnce()
{
    // given
    QFETCH(int, kind);
    database.home = "/Users/ann";
    const std::string& first = vcSpecialFolders(static_cast<vc_special_folders_e>(kind));
    const std::string before = first;

    // when
    database.home = "/Users/bob";
    const std::string& second = vcSpecialFolders(static_cast<vc_special_folders_e>(kind));

    // then
    QCOMPARE(&second, &first);
    QCOMPARE(second, before);
}

void SpecialFoldersTest::anEmptyHomeIsLookedUpAgain()
{
    // given
    database.home.reset();
    QCOMPARE(vcSpecialFolders(USER_FOLDER), std::string());

    // when
    database.home = "/Users/ann";

    // then
    QCOMPARE(vcSpecialFolders(USER_FOLDER), std::string("/Users/ann"));
}

void SpecialFoldersTest::theHomeIsAskedForEvenWhenThePathIsKnown()
{
    // given
    vcSpecialFolders(ALL_USERS_DATA_FOLDER);
    database.lookups = 0;

    // when
    vcSpecialFolders(ALL_USERS_DATA_FOLDER);

    // then
    QCOMPARE(database.lookups, 1);
}

void SpecialFoldersTest::theRealUserIsLookedUp()
{
    // given
    database.home = "/Users/ann";
    database.askedFor = getuid() + 1;

    // when
    const std::string home = getHomeFolder();

    // then
    QCOMPARE(home, std::string("/Users/ann"));
    QCOMPARE(database.askedFor, getuid());
}

void SpecialFoldersTest::theEnvironmentIsNotAsked()
{
    // given
    database.home = "/Users/ann";
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", "/Users/bob");
    qputenv("XDG_DATA_HOME", "/Users/bob/data");

    // when
    const std::string home = getHomeFolder();
    const std::string data = vcSpecialFolders(USER_DATA_FOLDER);

    // then
    qputenv("HOME", before);
    qunsetenv("XDG_DATA_HOME");
    QCOMPARE(home, std::string("/Users/ann"));
    QCOMPARE(data, std::string("/Users/ann/.local/share/Varnholt/Vellumcraft"));
}

void SpecialFoldersTest::noFolderIsCreated()
{
    // given
    QTemporaryDir folder;
    database.home = folder.path().toStdString();

    // when
    for (const vc_special_folders_e kind : {USER_DATA_FOLDER, USER_PICTURE_FOLDER, USER_FOLDER})
        vcSpecialFolders(kind);

    // then
    QVERIFY(QDir(folder.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

REGISTER_TEST(SpecialFoldersTest, TestSupport::NoApplication)
#include "specialfolderstest.moc"

#include "os/login/loginitemurl.h"

#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

using namespace TestSupport;

/// The URL of a file.
class LoginItemUrlTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theTextIsEncoded_data();
    void theTextIsEncoded();
    void aPathIsMadeNormal_data();
    void aPathIsMadeNormal();
    void aPathThatAFolderLinkLeadsElsewhereStaysAsItIs();
    void equalUrlsAreDifferentObjects();
    void aTextIsFoundWhateverItsCase_data();
    void aTextIsFoundWhateverItsCase();
};

void LoginItemUrlTest::theTextIsEncoded_data()
{
    QTest::addColumn<LoginItemUrlRef>("url");
    QTest::addColumn<std::string>("text");

    const auto row = [](const char* name, const LoginItemUrlRef& url, const char* text) {
        QTest::newRow(name) << url << std::string(text);
    };
    row("file", LoginItemUrl::fromPath("/usr/bin/dex"), "file:///usr/bin/dex");
    row("root", LoginItemUrl::fromPath("/"), "file:///");
    row("reserved", LoginItemUrl::fromPath("/a b?c#d%e"), "file:///a%20b%3Fc%23d%25e");
    row("bytes", LoginItemUrl::fromPath("/\xc3\xa9\xff"), "file:///%C3%A9%FF");
    row("raw", LoginItemUrl::ofEntry("", "gone: now"), "gone%3A%20now");
}

void LoginItemUrlTest::theTextIsEncoded()
{
    // given
    QFETCH(LoginItemUrlRef, url);

    // then
    QTEST(url->text(), "text");
}

void LoginItemUrlTest::aPathIsMadeNormal_data()
{
    const std::string folder = std::filesystem::current_path();
    addTextRows({"given", "path"},
                {{"normal", "/a/b", "/a/b"},
                 {"slashes at the end", "/a/b//", "/a/b"},
                 {"doubled slashes", "//a//b", "/a/b"},
                 {"this folder", "/a/./b/.", "/a/b"},
                 {"the folder above", "/a/p/../b", "/a/b"},
                 {"a folder that is there", "/usr/bin/../lib", "/usr/lib"},
                 {"root", "/", "/"},
                 {"above the root", "/..", "/"},
                 {"nothing", "", ""},
                 {"a byte that is no text", "/\xff/./\xc3", "/\xff/\xc3"},
                 {"below the working directory", "./bin/p/../dex", folder + "/bin/dex"}});
}

void LoginItemUrlTest::aPathIsMadeNormal()
{
    // given
    QFETCH(std::string, given);

    // then
    QTEST(LoginItemUrl::fromPath(given)->path(), "path");
}

void LoginItemUrlTest::aPathThatAFolderLinkLeadsElsewhereStaysAsItIs()
{
    // given
    const Session session;
    const std::string file = session.root() / "link/../file";
    writeFile(session.root() / "far/away/inner/it", "");
    writeFile(session.root() / "far/away/file", "");
    std::filesystem::create_symlink("far/away/inner", session.root() / "link");

    // then
    QCOMPARE(LoginItemUrl::fromPath(file)->path(), file);
}

void LoginItemUrlTest::equalUrlsAreDifferentObjects()
{
    // given
    const LoginItemUrlRef first = LoginItemUrl::fromPath("/usr/bin/dex");

    // then
    QVERIFY(LoginItemUrl::fromPath("/usr/bin/dex") != first);
}

void LoginItemUrlTest::aTextIsFoundWhateverItsCase_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<std::string>("path");
    QTest::addColumn<bool>("isFound");

    const auto row = [](const char* name, const char* text, const char* path, bool isFound) {
        QTest::newRow(name) << std::string(text) << std::string(path) << isFound;
    };
    row("the same", "/usr/bin/dex", "/usr/bin/dex", true);
    row("another case", "/applications/korvel.app", "/Applications/Korvel.app", true);
    row("the other way round", "/APPLICATIONS", "/applications/korvel", true);
    row("in the middle", "bin/de", "/usr/bin/dex", true);
    row("longer than the path", "/usr/bin/dex2", "/usr/bin/dex", false);
    row("somewhere else", "/usr/lib", "/usr/bin/dex", false);
    row("nothing", "", "/usr/bin/dex", false);
    row("nothing in nothing", "", "", false);
    row("other letters", "/\xc3\x89T\xc3\x89", "/\xc3\xa9t\xc3\xa9", true);
    row("Greek at the end of a word", "\xce\xa3", "/\xce\xb1\xcf\x82", true);
    row("one letter for two", "strasse",
        "/Stra\xc3\x9f"
        "e",
        true);
    row("a stray byte", "/a\xff", "/A\xff", true);
    row("another stray byte", "\xfe", "/A\xff", false);
    row("no half of a letter", "\xa9", "/\xc3\xa9", false);
    row("an unfinished letter", "\xc3", "/A\xc3", true);
    row("no unfinished letter in a whole one", "\xc3", "/\xc3\xa9", false);
    row("a byte that Latin-1 would fold", "\xc9", "/\xe9", false);
    QTest::newRow("a zero") << std::string("\0B", 2) << std::string("a\0b", 3) << true;
}

void LoginItemUrlTest::aTextIsFoundWhateverItsCase()
{
    // given
    QFETCH(std::string, text);
    QFETCH(std::string, path);
    QFETCH(bool, isFound);

    // then
    QCOMPARE(LoginItemUrl::ofEntry("", path)->pathContains(text), isFound);
}

REGISTER_TEST(LoginItemUrlTest, TestSupport::NoApplication)
#include "loginitemurltest.moc"

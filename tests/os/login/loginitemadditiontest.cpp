#include "os/login/loginitems.h"

#include "os/login/loginitemfile.h"
#include "os/login/loginitemservice.h"
#include "tests/os/login/listedpaths.h"
#include "tests/os/login/session.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

#include <cerrno>
#include <optional>

using namespace TestSupport;

namespace {

/// Adds rows of file names that few programs have.
void addStrangeTexts()
{
    QTest::addColumn<std::string>("name");

    const auto row = [](const char* what, const std::string& name) { QTest::newRow(what) << name; };
    row("plain", "painter");
    row("space", "my painter");
    row("space at both ends", " painter ");
    row("apostrophe", "ann's painter");
    row("quote", "\"painter\"");
    row("percent", "100%");
    row("field code", "painter%u %%f");
    row("dollar", "$HOME");
    row("backtick", "`id`");
    row("backslash", "a\\b\\\\c\\n");
    row("line break", "two\nlines\r");
    row("tab", "a\tb");
    row("hash", "#painter");
    row("operators", "a;b&c|d<e>f(g)*?~");
    row("non-ASCII", "m\xc3\xa4ler-\xe7\x94\xbb");
    row("long", std::string(250, 'p'));
}

}

/// Adding login items.
class LoginItemAdditionTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void anAddedItemIsListed_data();
    void anAddedItemIsListed();
    void aFileAddsAnItemAsItsUrlDoes();
    void aFolderThatHasToBeMadeIsForTheUserAlone();
    void newItemsGoToTheEnd();
    void theSamePathTwiceMakesTwoItems();
    void aNewEntryHasASafeName();
    void strangePathsGoThereAndBack_data();
    void strangePathsGoThereAndBack();
    void entriesKeepToTheStandard_data();
    void entriesKeepToTheStandard();
    void aMissingFileIsNotAdded_data();
    void aMissingFileIsNotAdded();
    void aRelativePathBeginsAtTheWorkingDirectory();
    void aFileThatIsGoneIsNotAdded();
    void withoutAPlaceBehindTheLastNothingIsAdded();

private:
    std::optional<Session> session;
};

void LoginItemAdditionTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemAdditionTest::cleanup()
{
    session.reset();
}

void LoginItemAdditionTest::anAddedItemIsListed_data()
{
    QTest::addColumn<bool>("hidden");

    QTest::newRow("shown") << false;
    QTest::newRow("hidden") << true;
}

void LoginItemAdditionTest::anAddedItemIsListed()
{
    // given
    QFETCH(bool, hidden);
    const LoginItemUrlRef url = LoginItemUrl::fromPath(session->addProgram("a painter"));

    // when
    bool isAdded = false;
    const std::string printed = printedBy([&] { isAdded = addLoginItemWithURL(url, hidden); });

    // then
    QVERIFY(isAdded);
    QCOMPARE(printed, std::string());
    const LoginItemArrayRef items = allLoginItems();
    QCOMPARE(items->size(), size_t{1});
    QCOMPARE(items->front().URL->text(), url->text());
    QCOMPARE(items->front().Hidden, hidden);
}

void LoginItemAdditionTest::aFileAddsAnItemAsItsUrlDoes()
{
    // given
    const LoginItemUrlRef url = LoginItemUrl::fromPath(session->addProgram("painter"));
    const auto file = LoginItemFile::fromUrl(*url);
    QVERIFY(file);

    // when
    const OSStatus status = LIAEAddRefAtEnd(*file, true);

    // then
    QCOMPARE(status, LoginItemStatus::success);
    QCOMPARE(listedPaths(), Paths{url->path()});
}

void LoginItemAdditionTest::aFolderThatHasToBeMadeIsForTheUserAlone()
{
    // given
    const std::string program = session->addProgram("painter");

    // when
    QVERIFY(addLoginItemWithPath(program, false));

    // then
    struct stat information { };
    QCOMPARE(stat(session->autostart().c_str(), &information), 0);
    QCOMPARE(information.st_mode & 0777, mode_t{0700});
}

void LoginItemAdditionTest::newItemsGoToTheEnd()
{
    // given
    Paths programs;
    for (int i = 12; i > 0; --i)
        programs.push_back(session->addProgram("painter" + std::to_string(i)));

    // when
    for (const std::string& program : programs)
        QVERIFY(addLoginItemWithPath(program, false));

    // then
    QCOMPARE(listedPaths(), programs);
}

void LoginItemAdditionTest::theSamePathTwiceMakesTwoItems()
{
    // given
    const std::string program = session->addProgram("painter");

    // when
    QVERIFY(addLoginItemWithPath(program, false));
    QVERIFY(addLoginItemWithPath(program, false));

    // then
    QCOMPARE(listedPaths(), Paths(2, program));
}

void LoginItemAdditionTest::aNewEntryHasASafeName()
{
    // given
    const std::string program = session->addProgram("a b\n\"\xff" + std::string(100, 'c'));

    // when
    QVERIFY(addLoginItemWithPath(program, false));
    QVERIFY(addLoginItemWithPath(program, false));

    // then
    const QRegularExpression safe("^korvel-a_b___c{26}-[0-9a-f]{16}\\.desktop$");
    const std::set<std::string> names = namesIn(session->autostart());
    QCOMPARE(names.size(), size_t{2});
    for (const std::string& name : names)
        QVERIFY2(safe.match(QString::fromStdString(name)).hasMatch(), name.c_str());
}

void LoginItemAdditionTest::strangePathsGoThereAndBack_data()
{
    addStrangeTexts();
    QTest::newRow("Latin-1") << std::string("m\xe4ler");
    QTest::newRow("invalid UTF-8") << std::string("\xff\xfe\xc3");
    QTest::newRow("control characters") << std::string("\x01\x1b\x7f");
}

void LoginItemAdditionTest::strangePathsGoThereAndBack()
{
    // given
    QFETCH(std::string, name);
    const std::string program = session->addProgram(name);

    // when
    QVERIFY(addLoginItemWithPath(program, false));

    // then
    QCOMPARE(listedPaths(), Paths{program});
    QCOMPARE(indexForLoginItemWithPath(program), 0);
    QVERIFY(removeLoginItemWithPath(program));
    QCOMPARE(listedPaths(), Paths{});
}

void LoginItemAdditionTest::entriesKeepToTheStandard_data()
{
    // The standard has no way to write other bytes; the system allows programs that need them.
    addStrangeTexts();
}

void LoginItemAdditionTest::entriesKeepToTheStandard()
{
    // given
    QFETCH(std::string, name);
    QVERIFY(addLoginItemWithPath(session->addProgram(name), true));
    const Path file = session->autostart() / *namesIn(session->autostart()).begin();

    // when
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start("desktop-file-validate", {QString::fromStdString(file)});

    // then
    QVERIFY2(validator.waitForFinished(), "package desktop-file-utils");
    QCOMPARE(validator.readAll(), QByteArray());
    QCOMPARE(validator.exitCode(), 0);
}

void LoginItemAdditionTest::aMissingFileIsNotAdded_data()
{
    QTest::addColumn<std::string>("path");

    QTest::newRow("absolute") << std::string("/no/such/file");
    QTest::newRow("relative") << std::string("no/such/file");
    QTest::newRow("empty") << std::string();
    QTest::newRow("a zero inside") << std::string("/bin/sh\0", 8);
}

void LoginItemAdditionTest::aMissingFileIsNotAdded()
{
    // given
    QFETCH(std::string, path);
    const LoginItemUrlRef url = LoginItemUrl::fromPath(path);
    bool isUrlAdded = true;
    bool isPathAdded = true;

    // when
    const std::string urlPrinted = printedBy([&] { isUrlAdded = addLoginItemWithURL(url, false); });
    const std::string pathPrinted =
        printedBy([&] { isPathAdded = addLoginItemWithPath(path, false); });

    // then
    QVERIFY(!isUrlAdded);
    QVERIFY(!isPathAdded);
    QCOMPARE(urlPrinted, std::string("Couldn't add login item error -43"));
    QCOMPARE(pathPrinted, std::string("Couldn't add login item error -43"));
    QCOMPARE(LIAEAddURLAtEnd(url, false), OSStatus{-43});
    QCOMPARE(LIAEAddURLAtEnd(nullptr, false), OSStatus{-43});
    QVERIFY(!std::filesystem::exists(session->autostart()));
}

void LoginItemAdditionTest::aRelativePathBeginsAtTheWorkingDirectory()
{
    // given
    const std::string program = session->addProgram("painter");
    const Path before = std::filesystem::current_path();
    std::filesystem::current_path(session->root());

    // when
    const bool isAdded = addLoginItemWithPath("programs/painter", false);

    // then
    std::filesystem::current_path(before);
    QVERIFY(isAdded);
    QCOMPARE(listedPaths(), Paths{program});
}

void LoginItemAdditionTest::aFileThatIsGoneIsNotAdded()
{
    // given
    const std::string program = session->addProgram("painter");
    const auto file = LoginItemFile::fromUrl(*LoginItemUrl::fromPath(program));
    std::filesystem::remove(program);

    // when
    const OSStatus status = LIAEAddRefAtEnd(*file, false);

    // then
    QCOMPARE(status, OSStatus{-43});
}

void LoginItemAdditionTest::withoutAPlaceBehindTheLastNothingIsAdded()
{
    // given
    session->addEntry("a.desktop",
                      "Type=Application\nExec=/a\nX-Korvel-Position=9223372036854775807\n");

    // when
    const OSStatus status = LIAEAddURLAtEnd(LoginItemUrl::fromPath("/bin/sh"), false);

    // then
    QCOMPARE(status, OSStatus{EOVERFLOW});
    QCOMPARE(listedPaths(), Paths{"/a"});
}

QTEST_APPLESS_MAIN(LoginItemAdditionTest)
#include "loginitemadditiontest.moc"

#include "os/login/loginitems.h"

#include "os/login/loginitemservice.h"
#include "tests/os/login/listedpaths.h"
#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cerrno>
#include <optional>

using namespace TestSupport;

/// What is listed as a login item.
class LoginItemListingTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aFolderThatDoesNotExistHasNoItems();
    void itemsOfOthersComeFirstByFileName();
    void anItemOfOthersGivesTheProgramThatItStarts_data();
    void anItemOfOthersGivesTheProgramThatItStarts();
    void aLinkToAnEntryIsAnItem();
    void whatIsNoItemIsNotListed_data();
    void whatIsNoItemIsNotListed();
    void systemWideEntriesAreNotListed();
    void aFileInPlaceOfTheFolderIsReported();
    void anEntryThatCannotBeReadIsReported();

private:
    std::optional<Session> session;
};

void LoginItemListingTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemListingTest::cleanup()
{
    session.reset();
}

void LoginItemListingTest::aFolderThatDoesNotExistHasNoItems()
{
    // given
    LoginItemArrayRef items;

    // when
    const OSStatus status = LIAECopyLoginItems(items);

    // then
    QCOMPARE(status, LoginItemStatus::success);
    QVERIFY(items);
    QVERIFY(items->empty());
    QVERIFY(allLoginItems());
    QVERIFY(!std::filesystem::exists(session->autostart()));
}

void LoginItemListingTest::itemsOfOthersComeFirstByFileName()
{
    // given
    const std::string ours = session->addProgram("ours");
    QVERIFY(addLoginItemWithPath(ours, false));
    session->addEntry("zoo.desktop", "Type=Application\nExec=/zoo\n");
    session->addEntry("ant.desktop", "Type=Application\nExec=/ant\n");
    session->addEntry("Zebra.desktop", "Type=Application\nExec=/zebra\n");
    session->addEntry("bad.desktop", "Type=Application\nExec=/bad\nX-Korvel-Position=last\n");

    // when
    const Paths paths = listedPaths();

    // then
    QCOMPARE(paths, (Paths{"/zebra", "/ant", "/bad", "/zoo", ours}));
}

void LoginItemListingTest::anItemOfOthersGivesTheProgramThatItStarts_data()
{
    QTest::addColumn<std::string>("exec");
    QTest::addColumn<std::string>("url");

    QTest::newRow("on the PATH") << std::string("sh -c true %U")
                                 << std::string("file:///usr/bin/sh");
    QTest::newRow("a path") << std::string("\"/usr/bin/env\" A=b c")
                            << std::string("file:///usr/bin/env");
    QTest::newRow("a vanished path")
        << std::string("/opt/gone/far\\saway -x") << std::string("file:///opt/gone/far");
    QTest::newRow("a vanished name") << std::string("gone-7c1 -x") << std::string("gone-7c1");
    QTest::newRow("no command line") << std::string("\"open") << std::string("%22open");
}

void LoginItemListingTest::anItemOfOthersGivesTheProgramThatItStarts()
{
    // given
    QFETCH(std::string, exec);
    QFETCH(std::string, url);
    session->set("PATH", "/usr/bin");
    session->addEntry("a.desktop", "Type=Application\nName=A\nExec=" + exec + '\n');

    // when
    const LoginItemArrayRef items = allLoginItems();

    // then
    QCOMPARE(items->size(), size_t{1});
    QCOMPARE(items->front().URL->text(), url);
    QVERIFY(!items->front().Hidden);
}

void LoginItemListingTest::aLinkToAnEntryIsAnItem()
{
    // given
    const Path target = session->home() / "dotfiles/a";
    writeFile(target, "[Desktop Entry]\nType=Application\nExec=/a\n");
    std::filesystem::create_directories(session->autostart());
    std::filesystem::create_symlink(target, session->autostart() / "a.desktop");

    // when
    const Paths paths = listedPaths();

    // then
    QCOMPARE(paths, Paths{"/a"});
}

void LoginItemListingTest::whatIsNoItemIsNotListed_data()
{
    using Make = std::function<void(const Path&)>;
    QTest::addColumn<Make>("make");

    const std::string entry = "[Desktop Entry]\nType=Application\nName=A\nExec=/a\n";
    const auto row = [](const char* name, const Make& make) { QTest::newRow(name) << make; };
    const auto fileRow = [&](const char* name, const std::string& bytes) {
        row(name, [bytes](const Path& path) { writeFile(path / "a.desktop", bytes); });
    };
    const auto linkRow = [&](const char* name, const char* target) {
        row(name, [target](const Path& path) {
            std::filesystem::create_symlink(target, path / "a.desktop");
        });
    };
    fileRow("a deleted entry", entry + "Hidden=true\n");
    fileRow("an entry of another type", "[Desktop Entry]\nType=Link\nURL=/a\n");
    fileRow("an empty file", "");
    fileRow("no entry", "not a key file\n");
    fileRow("zeros", std::string(100000, '\0'));
    fileRow("a huge file", entry + std::string(3 * 1024 * 1024, '\n'));
    linkRow("a link to nothing", "/no/such/file");
    linkRow("a link to itself", "a.desktop");
    linkRow("a link below a file", "/dev/null/file");
    linkRow("a link to an empty device", "/dev/null");
    linkRow("a link to an endless device", "/dev/zero");
    row("another suffix", [entry](const Path& path) { writeFile(path / "a.desktop~", entry); });
    row("no suffix", [entry](const Path& path) { writeFile(path / "desktop", entry); });
    row("a begun file",
        [entry](const Path& path) { writeFile(path / ".korvel-a.desktop.new", entry); });
    row("a folder", [entry](const Path& path) { writeFile(path / "a.desktop/b.desktop", entry); });
    row("a pipe", [](const Path& path) { mkfifo((path / "a.desktop").c_str(), 0600); });
    row("an endless file", [](const Path& path) {
        writeFile(path / "a.desktop", "");
        std::filesystem::resize_file(path / "a.desktop", uintmax_t{1} << 40);
    });
    row("a socket", [](const Path& path) {
        sockaddr_un address{AF_UNIX, {}};
        const std::string name = path / "a.desktop";
        name.copy(address.sun_path, sizeof(address.sun_path) - 1);
        const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
        bind(socketNumber, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
        close(socketNumber);
    });
}

void LoginItemListingTest::whatIsNoItemIsNotListed()
{
    // given
    QFETCH(std::function<void(const Path&)>, make);
    session->addEntry("b.desktop", "Type=Application\nExec=/b\n");
    make(session->autostart());
    QCOMPARE(namesIn(session->autostart()).size(), size_t{2});

    // when
    const Paths paths = listedPaths();

    // then
    QCOMPARE(paths, Paths{"/b"});
}

void LoginItemListingTest::systemWideEntriesAreNotListed()
{
    // given
    writeFile(session->root() / "system/config/autostart/a.desktop",
              "[Desktop Entry]\nType=Application\nExec=/a\n");

    // when
    const Paths paths = listedPaths();

    // then
    QCOMPARE(paths, Paths{});
}

void LoginItemListingTest::aFileInPlaceOfTheFolderIsReported()
{
    // given
    const std::string program = session->addProgram("painter");
    const LoginItemUrlRef url = LoginItemUrl::fromPath(program);
    writeFile(session->autostart(), "");
    const std::string listMessage = "Couldn't list login items error 20";
    QCOMPARE(ENOTDIR, 20);

    // when
    LoginItemArrayRef items = std::make_unique<LoginItemArray>();
    const OSStatus status = LIAECopyLoginItems(items);

    // then
    QCOMPARE(status, OSStatus{ENOTDIR});
    QVERIFY(!items);
    QCOMPARE(printedBy([&] { QVERIFY(!allLoginItems()); }), listMessage);
    QCOMPARE(printedBy([&] { QCOMPARE(indexForLoginItemWithPath(program), -1); }), listMessage);
    QCOMPARE(printedBy([&] { QCOMPARE(indexForLoginItemWithURL(url), -1); }), listMessage);
    QCOMPARE(printedBy([&] { QVERIFY(!removeLoginItemWithPath(program)); }), listMessage);
    QCOMPARE(printedBy([&] { QVERIFY(!removeLoginItemWithURL(url)); }), listMessage);
    QCOMPARE(printedBy([&] { QVERIFY(!removeLoginItemAtIndex(0)); }),
             std::string("Couldn't remove login intem error 20"));
    QCOMPARE(printedBy([&] { QVERIFY(!addLoginItemWithURL(url, false)); }),
             std::string("Couldn't add login item error 20"));
    QCOMPARE(printedBy([&] { QVERIFY(!addLoginItemWithPath(program, false)); }),
             std::string("Couldn't add login item error 20"));
}

void LoginItemListingTest::anEntryThatCannotBeReadIsReported()
{
    // given
    // A file that nobody can read from its beginning, since nothing is mapped at address 0.
    std::filesystem::create_directories(session->autostart());
    std::filesystem::create_symlink("/proc/self/mem", session->autostart() / "a.desktop");

    // when
    const std::string printed = printedBy([&] { QVERIFY(!allLoginItems()); });

    // then
    QCOMPARE(EIO, 5);
    QCOMPARE(printed, std::string("Couldn't list login items error 5"));
    QCOMPARE(LIAEAddURLAtEnd(LoginItemUrl::fromPath("/bin/sh"), false), OSStatus{EIO});
    QCOMPARE(namesIn(session->autostart()), std::set<std::string>{"a.desktop"});
}

QTEST_APPLESS_MAIN(LoginItemListingTest)
#include "loginitemlistingtest.moc"

#include "os/login/loginitems.h"

#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

#include <cerrno>
#include <limits>
#include <optional>

using namespace TestSupport;

// The examples of CONTRIBUTING.md, word for word.

bool startWithTheLogin(const std::string& program)
{
    if (indexForLoginItemWithPath(program) != -1)
        return true;
    return addLoginItemWithPath(program, false);
}

void forgetHiddenItems()
{
    if (const LoginItemArrayRef items = allLoginItems())
        for (const LoginItem& item : *items)
            if (item.Hidden)
                removeLoginItemWithURL(item.URL);
}

/// Listing, finding, adding and removing login items.
class LoginItemsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".?"));
        session.emplace();
    }
    void cleanup() { session.reset(); }
    void theGuidesExamplesDoWhatTheySay();
    void aFolderThatDoesNotExistHasNoItems();
    void itemsOfOthersComeFirstByFileName();
    void anItemOfOthersGivesTheProgramThatItStarts_data();
    void anItemOfOthersGivesTheProgramThatItStarts();
    void anEntryForAllUsersIsAnItemUnlessTheUserHasItsName();
    void whatIsNoItemIsNotListed_data();
    void whatIsNoItemIsNotListed();
    void aFileInPlaceOfTheFolderIsReported();

    void anAddedItemIsListedBehindAllOthersWithItsMark();
    void anAddedFileIsStartedOrOpened_data();
    void anAddedFileIsStartedOrOpened();
    void aPathIsAddedInItsNormalForm();
    void aFolderThatHasToBeMadeIsForTheUserAlone();
    void aNewEntryHasASafeName();
    void theNameCanBeShown_data();
    void theNameCanBeShown();
    void anyByteOfAPathGoesThereAndBack();
    void aMissingFileIsNotAdded_data();
    void aMissingFileIsNotAdded();

    void aPathIsFoundWithinAnother_data();
    void aPathIsFoundWithinAnother();
    void aUrlIsFoundAsLongAsItIsHeld();
    void aUrlMadeByTheCallerIsNeverFound();
    void theUrlOfAnItemThatWasChangedOrReplacedIsNotFound();

    void aPositionWithoutAnItemRemovesNothing_data();
    void aPositionWithoutAnItemRemovesNothing();
    void positionsSurviveRemovals();
    void aPathRemovesTheLastMatch();
    void aUrlRemovesItsItem();
    void whatIsNotFoundIsNotRemoved();
    void removingTakesNeitherALinksTargetNorAnythingElseAlong();
    void anItemForAllUsersIsSwitchedOffForThisOne();
    void whatOthersAddToOurEntriesSurvives();

private:
    void addEntries(const Paths& programs) const
    {
        char name = 'a';
        for (const std::string& program : programs)
            session->addEntry(name++ + std::string(".desktop"), program);
    }

    std::optional<Session> session;
};

void LoginItemsTest::theGuidesExamplesDoWhatTheySay()
{
    // given
    const std::string program = session->addProgram("painter");
    QVERIFY(addLoginItemWithPath("/bin/true", true));

    // when
    QVERIFY(startWithTheLogin(program));
    QVERIFY(startWithTheLogin(program));
    QVERIFY(addLoginItemWithPath("/bin/true", true));
    forgetHiddenItems();

    // then
    QCOMPARE(listedPaths(), Paths{program});
}

void LoginItemsTest::aFolderThatDoesNotExistHasNoItems()
{
    // given
    LoginItemArrayRef items;

    // when
    const OSStatus status = LIAECopyLoginItems(items);

    // then
    QCOMPARE(status, LoginItemStatus::success);
    QVERIFY(items && items->empty());
    QVERIFY(allLoginItems());
    QVERIFY(!std::filesystem::exists(session->autostart()));
}

void LoginItemsTest::itemsOfOthersComeFirstByFileName()
{
    // given
    const std::string ours = session->addProgram("ours");
    QVERIFY(addLoginItemWithPath(ours, false));
    for (const char* name : {"zoo", "ant", "Zebra"})
        session->addEntry(name + std::string(".desktop"), std::string("/") + name);
    for (const char* position : {"last", "3 or 4", "-3", "0", "9223372036854775808", ""})
        session->addEntry("bad" + std::string(position) + ".desktop", "/b",
                          "X-Korvel-Position=" + std::string(position) + '\n');

    // when
    const Paths paths = listedPaths();

    // then
    QCOMPARE(paths, (Paths{"/Zebra", "/ant", "/b", "/b", "/b", "/b", "/b", "/b", "/zoo", ours}));
}

void LoginItemsTest::anItemOfOthersGivesTheProgramThatItStarts_data()
{
    addTextRows({"exec", "url"},
                {{"on the PATH", "sh -c true %U", "file:///usr/bin/sh"},
                 {"a path", "\"/usr/bin/env\" A=b c", "file:///usr/bin/env"},
                 {"a vanished path", "/opt/gone/far\\saway -x", "file:///opt/gone/far"},
                 {"a vanished name", "gone-7c1 -x", "gone-7c1"},
                 {"a path in quotes", "\"/a b\" \"c\"", "file:///a%20b"},
                 {"a relative path", "bin/a b", "bin/a"},
                 {"a folder of a program's name", "folder", "folder"},
                 {"an empty word", "\"\" b", "%22%22%20b"},
                 {"a remark", "#/a", "%23/a"},
                 {"a percent sign at the end", "/a%", "file:///a%25"},
                 {"no command line", "\"open", "%22open"},
                 {"a backslash at the end", "C:\\Tools\\", "C%3A%5CTools%5C"}});
}

void LoginItemsTest::anItemOfOthersGivesTheProgramThatItStarts()
{
    // given
    QFETCH(std::string, exec);
    session->set("PATH", session->programs().native() + ":/usr/bin");
    std::filesystem::create_directory(session->programs() / "folder");
    addEntries({exec});

    // when
    const LoginItemArrayRef items = allLoginItems();

    // then
    QCOMPARE(items->size(), size_t{1});
    QTEST(items->front().URL->text(), "url");
    QVERIFY(!items->front().Hidden);
}

void LoginItemsTest::anEntryForAllUsersIsAnItemUnlessTheUserHasItsName()
{
    // given
    for (const char* name : {"a", "b", "c"})
        session->addSystemEntry(name + std::string(".desktop"), "/all");
    session->addEntry("b.desktop", "/mine");
    session->addEntry("c.desktop", "/mine", "Hidden=true\n");

    // then
    QCOMPARE(listedPaths(), (Paths{"/all", "/mine"}));
}

void LoginItemsTest::whatIsNoItemIsNotListed_data()
{
    const std::string entry = entryText("/a");
    addTextRows(
        {"file", "bytes"},
        {{"a deleted entry", "a.desktop", entry + "Hidden=true\n"},
         {"an entry of another type", "a.desktop", "[Desktop Entry]\nType=Link\nURL=/a\n"},
         {"an entry that starts nothing", "a.desktop", "[Desktop Entry]\nType=Application\n"},
         {"another suffix", "a.desktop~", entry},
         {"no suffix", "desktop", entry},
         {"a begun file", ".korvel-a.desktop.new", entry},
         {"a folder", "a.desktop/b.desktop", entry}});
}

void LoginItemsTest::whatIsNoItemIsNotListed()
{
    // given
    QFETCH(std::string, file);
    QFETCH(std::string, bytes);
    session->addEntry("b.desktop", "/b");
    writeFile(session->autostart() / file, bytes);

    // then
    QCOMPARE(listedPaths(), Paths{"/b"});
    QVERIFY(addLoginItemWithPath("/bin/sh", false));
}

void LoginItemsTest::aFileInPlaceOfTheFolderIsReported()
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

void LoginItemsTest::anAddedItemIsListedBehindAllOthersWithItsMark()
{
    // given
    const std::string application = session->applications() / "a.desktop";
    writeFile(application, entryText("sh"));
    const LoginItemUrlRef url = LoginItemUrl::fromPath(session->addProgram("a painter"));

    // when
    const std::string printed = printedBy([&] {
        for (const bool isHidden : {false, true}) {
            QVERIFY(addLoginItemWithPath(application, isHidden));
            QVERIFY(addLoginItemWithURL(url, isHidden));
        }
    });

    // then
    QCOMPARE(printed, std::string());
    QCOMPARE(listedPaths(), (Paths{application, url->path(), application, url->path()}));
    const LoginItemArrayRef items = allLoginItems();
    for (const std::size_t position : {0, 1, 2, 3})
        QCOMPARE(items->at(position).Hidden, position > 1);
}

void LoginItemsTest::anAddedFileIsStartedOrOpened_data()
{
    addTextRows({"path", "exec"},
                {{"a program", "/bin/sh", "/bin/sh"},
                 {"a document", "/etc/passwd", "xdg-open /etc/passwd"},
                 {"a folder", "/usr", "xdg-open /usr"},
                 {"root", "/", "xdg-open /"},
                 {"a device", "/dev/null", "xdg-open /dev/null"}});
}

void LoginItemsTest::anAddedFileIsStartedOrOpened()
{
    // given
    QFETCH(std::string, path);
    QFETCH(std::string, exec);

    // when
    QCOMPARE(LIAEAddRefAtEnd(path, false), LoginItemStatus::success);

    // then
    const std::string name = *namesIn(session->autostart()).begin();
    const std::string entry = readFile(session->autostart() / name);
    QVERIFY2(entry.find("\nExec=" + exec + '\n') != std::string::npos, entry.c_str());
    QCOMPARE(listedPaths(), Paths{path});
}

void LoginItemsTest::aPathIsAddedInItsNormalForm()
{
    // given
    const std::string program = session->addProgram("painter");
    session->addProgram("p/other");
    const Path before = std::filesystem::current_path();
    std::filesystem::current_path(session->root());

    // when
    const bool isAdded = addLoginItemWithPath("./programs//p/../painter/", false);

    // then
    std::filesystem::current_path(before);
    QVERIFY(isAdded);
    QCOMPARE(listedPaths(), Paths{program});
}

void LoginItemsTest::aFolderThatHasToBeMadeIsForTheUserAlone()
{
    // when
    QVERIFY(addLoginItemWithPath("/bin/sh", false));

    // then
    struct stat information { };
    QCOMPARE(stat(session->autostart().c_str(), &information), 0);
    QCOMPARE(information.st_mode & 0777, mode_t{0700});
}

void LoginItemsTest::aNewEntryHasASafeName()
{
    // given
    const std::string program = session->addProgram("a b\n\"\xff" + std::string(100, 'c'));

    // when
    QVERIFY(addLoginItemWithPath(program, false));

    // then
    const std::string name = *namesIn(session->autostart()).begin();
    const QRegularExpression safe("^korvel-a_b___c{26}-[0-9]+\\.desktop$");
    QVERIFY2(safe.match(QString::fromStdString(name)).hasMatch(), name.c_str());
}

void LoginItemsTest::theNameCanBeShown_data()
{
    addTextRows({"file", "name"},
                {{"plain", "dex", "dex"},
                 {"non-ASCII", "\xc3\xa9", "\xc3\xa9"},
                 {"invalid UTF-8", "a\xff", "a\xef\xbf\xbd"},
                 {"line break", "a\nb", "a b"}});
}

void LoginItemsTest::theNameCanBeShown()
{
    // given
    QFETCH(std::string, file);
    QFETCH(std::string, name);

    // when
    QVERIFY(addLoginItemWithPath(session->addProgram(file), false));

    // then
    const std::string entry =
        readFile(session->autostart() / *namesIn(session->autostart()).begin());
    QVERIFY(entry.find("\nName=" + name + '\n') != std::string::npos);
}

void LoginItemsTest::anyByteOfAPathGoesThereAndBack()
{
    for (int byte = 1; byte < 256; ++byte) {
        // given
        if (byte == '/')
            continue;
        const std::string program = session->addProgram(std::string("a") + static_cast<char>(byte));

        // when
        QVERIFY(addLoginItemWithPath(program, false));

        // then
        QCOMPARE(listedPaths(), Paths{program});
        QCOMPARE(indexForLoginItemWithPath(program), 0);
        QVERIFY(removeLoginItemWithPath(program));
    }
}

void LoginItemsTest::aMissingFileIsNotAdded_data()
{
    addTextRows({"path"},
                {{"absolute", "/no/such/file"},
                 {"relative", "no/such/file"},
                 {"below a file", "/dev/null/file"},
                 {"empty", ""},
                 {"a zero inside", std::string("/bin/sh\0x", 9)},
                 {"too long", '/' + std::string(5000, 'x')}});
}

void LoginItemsTest::aMissingFileIsNotAdded()
{
    // given
    QFETCH(std::string, path);
    const LoginItemUrlRef url = LoginItemUrl::fromPath(path);

    // when
    const std::string printed = printedBy([&] {
        QVERIFY(!addLoginItemWithURL(url, false));
        QVERIFY(!addLoginItemWithPath(path, false));
    });

    // then
    const std::string message = "Couldn't add login item error -43";
    QCOMPARE(printed, message + message);
    QCOMPARE(LIAEAddRefAtEnd(path, false), OSStatus{-43});
    QCOMPARE(LIAEAddURLAtEnd(url, false), OSStatus{-43});
    QCOMPARE(LIAEAddURLAtEnd(nullptr, false), OSStatus{-43});
    QVERIFY(!std::filesystem::exists(session->autostart()));
}

void LoginItemsTest::aPathIsFoundWithinAnother_data()
{
    QTest::addColumn<std::string>("path");
    QTest::addColumn<int>("index");

    QTest::newRow("the same") << std::string("/Applications/Korvel.app") << 1;
    QTest::newRow("another case") << std::string("/applications/korvel.app") << 1;
    QTest::newRow("a part of it") << std::string("/other") << 0;
    QTest::newRow("the last of two matches") << std::string("/opt/korvel") << 3;
    QTest::newRow("another path") << std::string("/opt/dex") << -1;
    QTest::newRow("a longer path") << std::string("/other2/bin/x") << -1;
    QTest::newRow("the path as a URL") << std::string("file:///other2") << -1;
    QTest::newRow("nothing") << std::string() << -1;
}

void LoginItemsTest::aPathIsFoundWithinAnother()
{
    // given
    QFETCH(std::string, path);
    addEntries({"/other2", "/Applications/Korvel.app", "/opt/korvel-helper", "/opt/KORVEL/bin"});

    // when
    int index = 0;
    const std::string printed = printedBy([&] { index = indexForLoginItemWithPath(path); });

    // then
    QTEST(index, "index");
    QCOMPARE(printed, std::string());
}

void LoginItemsTest::aUrlIsFoundAsLongAsItIsHeld()
{
    // given
    for (const char* name : {"a", "b", "c"})
        QVERIFY(addLoginItemWithPath(session->addProgram(name), false));
    const LoginItemUrlRef url = allLoginItems()->at(2).URL;

    // when
    QVERIFY(removeLoginItemAtIndex(0));

    // then
    QCOMPARE(indexForLoginItemWithURL(url), 1);
    QCOMPARE(allLoginItems()->at(1).URL, url);
}

void LoginItemsTest::aUrlMadeByTheCallerIsNeverFound()
{
    // given
    const LoginItemUrlRef url = LoginItemUrl::fromPath("/bin/sh");
    QVERIFY(addLoginItemWithURL(url, false));

    // then
    QCOMPARE(indexForLoginItemWithURL(url), -1);
    QCOMPARE(indexForLoginItemWithURL(nullptr), -1);
    QCOMPARE(indexForLoginItemWithURL(LoginItemUrl::ofEntry("", url->path())), -1);
}

void LoginItemsTest::theUrlOfAnItemThatWasChangedOrReplacedIsNotFound()
{
    // given
    addEntries({"/a"});
    QVERIFY(addLoginItemWithPath("/bin/sh", false));
    const LoginItemUrlRef changed = allLoginItems()->at(0).URL;
    const LoginItemUrlRef replaced = allLoginItems()->at(1).URL;

    // when
    addEntries({"/b"});
    QVERIFY(removeLoginItemAtIndex(1));
    QVERIFY(addLoginItemWithPath("/bin/sh", false));

    // then
    QCOMPARE(indexForLoginItemWithURL(changed), -1);
    QCOMPARE(indexForLoginItemWithURL(replaced), -1);
    QCOMPARE(changed->path(), std::string("/a"));
    QCOMPARE(listedPaths(), (Paths{"/b", "/bin/sh"}));
}

void LoginItemsTest::aPositionWithoutAnItemRemovesNothing_data()
{
    QTest::addColumn<int>("index");

    QTest::newRow("behind the last") << 1;
    QTest::newRow("before the first") << -1;
    QTest::newRow("the smallest") << std::numeric_limits<int>::min();
    QTest::newRow("the largest") << std::numeric_limits<int>::max();
}

void LoginItemsTest::aPositionWithoutAnItemRemovesNothing()
{
    // given
    QFETCH(int, index);
    addEntries({"/a"});

    // when
    const std::string printed = printedBy([&] { QVERIFY(!removeLoginItemAtIndex(index)); });

    // then
    QCOMPARE(printed, std::string("Couldn't remove login intem error 22"));
    QCOMPARE(LIAERemove(index), OSStatus{EINVAL});
    QCOMPARE(listedPaths(), Paths{"/a"});
}

void LoginItemsTest::positionsSurviveRemovals()
{
    // given
    const std::string first = session->addProgram("z");
    const std::string second = session->addProgram("y");
    const std::string third = session->addProgram("x");
    for (const std::string& program : {first, second, third})
        QVERIFY(addLoginItemWithPath(program, false));

    // when
    QVERIFY(removeLoginItemAtIndex(1));
    QVERIFY(addLoginItemWithPath(first, false));
    QVERIFY(removeLoginItemAtIndex(0));
    QVERIFY(addLoginItemWithPath(second, false));

    // then
    QCOMPARE(listedPaths(), (Paths{third, first, second}));
}

void LoginItemsTest::aPathRemovesTheLastMatch()
{
    // given
    addEntries({"/korvel", "/Korvel/bin", "/other"});

    // when
    const bool isRemoved = removeLoginItemWithPath("/KORVEL");

    // then
    QVERIFY(isRemoved);
    QCOMPARE(listedPaths(), (Paths{"/korvel", "/other"}));
}

void LoginItemsTest::aUrlRemovesItsItem()
{
    // given
    QVERIFY(addLoginItemWithPath("/bin/sh", true));
    QVERIFY(addLoginItemWithPath("/bin/sh", false));
    const LoginItemUrlRef first = allLoginItems()->at(0).URL;

    // when
    const bool isRemoved = removeLoginItemWithURL(first);

    // then
    QVERIFY(isRemoved);
    const LoginItemArrayRef items = allLoginItems();
    QCOMPARE(items->size(), size_t{1});
    QVERIFY(!items->at(0).Hidden);
}

void LoginItemsTest::whatIsNotFoundIsNotRemoved()
{
    // given
    addEntries({"/bin/sh"});

    // when
    const std::string printed = printedBy([] {
        QVERIFY(!removeLoginItemWithPath("/c"));
        QVERIFY(!removeLoginItemWithURL(LoginItemUrl::fromPath("/bin/sh")));
        QVERIFY(!removeLoginItemWithURL(nullptr));
    });

    // then
    QCOMPARE(printed, std::string());
    QCOMPARE(listedPaths(), Paths{"/bin/sh"});
}

void LoginItemsTest::removingTakesNeitherALinksTargetNorAnythingElseAlong()
{
    // given
    const Path target = session->home() / "dotfiles/a";
    writeFile(target, entryText("/a"));
    session->addEntry("deleted.desktop", "/b", "Hidden=true\n");
    writeFile(session->autostart() / "a.desktop.bak", "# mine\n");
    std::filesystem::create_symlink(target, session->autostart() / "a.desktop");

    // when
    QVERIFY(removeLoginItemWithPath("/a"));

    // then
    QCOMPARE(namesIn(session->autostart()),
             (std::set<std::string>{"a.desktop.bak", "deleted.desktop"}));
    QVERIFY(std::filesystem::exists(target));
}

void LoginItemsTest::anItemForAllUsersIsSwitchedOffForThisOne()
{
    // given
    session->addSystemEntry("a.desktop", "/all");
    addEntries({"/mine", "/b"});

    // when
    QVERIFY(removeLoginItemWithPath("/mine"));

    // then
    QCOMPARE(listedPaths(), Paths{"/b"});
    QVERIFY(std::filesystem::exists(session->systemAutostart() / "a.desktop"));
    QCOMPARE(namesIn(session->autostart()), (std::set<std::string>{"a.desktop", "b.desktop"}));
}

void LoginItemsTest::whatOthersAddToOurEntriesSurvives()
{
    // given
    QVERIFY(addLoginItemWithPath("/bin/true", false));
    const Path file = session->autostart() / *namesIn(session->autostart()).begin();
    const std::string bytes = "# mine\n" + readFile(file)
        + "X-Other=1\r\nName[de]=f\xc3\xbcr\nComment=caf\xe9\n\n[X Other]\n# more\nKey=\\q\n";
    writeFile(file, bytes);

    // when
    QVERIFY(addLoginItemWithPath("/bin/sh", false));
    QVERIFY(addLoginItemWithPath("/bin/sh", false));
    QVERIFY(removeLoginItemWithPath("/bin/sh"));

    // then
    QCOMPARE(readFile(file), bytes);
    QCOMPARE(listedPaths(), (Paths{"/bin/true", "/bin/sh"}));
}

REGISTER_TEST(LoginItemsTest, TestSupport::NoApplication)
#include "loginitemstest.moc"

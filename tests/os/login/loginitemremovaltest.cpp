#include "os/login/loginitems.h"

#include "os/login/loginitemservice.h"
#include "tests/os/login/listedpaths.h"
#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

#include <cerrno>
#include <limits>
#include <optional>

using namespace TestSupport;

/// Removing login items.
class LoginItemRemovalTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void thePositionZeroRemovesTheFirstItem();
    void aPositionWithoutAnItemRemovesNothing_data();
    void aPositionWithoutAnItemRemovesNothing();
    void positionsSurviveRemovals();
    void aPathRemovesTheLastMatch();
    void aPathWithoutAMatchRemovesNothing();
    void aUrlRemovesItsItem();
    void aUrlWithoutAnItemRemovesNothing();
    void removingALinkLeavesItsTarget();
    void removingTakesNothingElseAlong();
    void whatOthersAddToOurEntriesSurvives();

private:
    std::optional<Session> session;
};

void LoginItemRemovalTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemRemovalTest::cleanup()
{
    session.reset();
}

void LoginItemRemovalTest::thePositionZeroRemovesTheFirstItem()
{
    // given
    const std::string ours = session->addProgram("ours");
    QVERIFY(addLoginItemWithPath(ours, false));
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");

    // when
    const bool isRemoved = removeLoginItemAtIndex(0);

    // then
    QVERIFY(isRemoved);
    QCOMPARE(listedPaths(), Paths{ours});
    QVERIFY(!std::filesystem::exists(session->autostart() / "a.desktop"));
}

void LoginItemRemovalTest::aPositionWithoutAnItemRemovesNothing_data()
{
    QTest::addColumn<int>("index");

    QTest::newRow("behind the last") << 1;
    QTest::newRow("before the first") << -1;
    QTest::newRow("the smallest") << std::numeric_limits<int>::min();
    QTest::newRow("the largest") << std::numeric_limits<int>::max();
}

void LoginItemRemovalTest::aPositionWithoutAnItemRemovesNothing()
{
    // given
    QFETCH(int, index);
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");

    // when
    bool isRemoved = true;
    const std::string printed = printedBy([&] { isRemoved = removeLoginItemAtIndex(index); });

    // then
    QVERIFY(!isRemoved);
    QCOMPARE(printed, std::string("Couldn't remove login intem error 22"));
    QCOMPARE(LIAERemove(index), OSStatus{EINVAL});
    QCOMPARE(listedPaths(), Paths{"/a"});
}

void LoginItemRemovalTest::positionsSurviveRemovals()
{
    // given
    const std::string first = session->addProgram("z");
    const std::string second = session->addProgram("y");
    const std::string third = session->addProgram("x");
    const std::string fourth = session->addProgram("w");
    for (const std::string& program : {first, second, third})
        QVERIFY(addLoginItemWithPath(program, false));

    // when
    QVERIFY(removeLoginItemAtIndex(1));
    QVERIFY(addLoginItemWithPath(fourth, false));
    QVERIFY(removeLoginItemAtIndex(0));
    QVERIFY(addLoginItemWithPath(second, false));

    // then
    QCOMPARE(listedPaths(), (Paths{third, fourth, second}));
}

void LoginItemRemovalTest::aPathRemovesTheLastMatch()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/korvel\n");
    session->addEntry("b.desktop", "Type=Application\nExec=/Korvel/bin\n");
    session->addEntry("c.desktop", "Type=Application\nExec=/other\n");

    // when
    const bool isRemoved = removeLoginItemWithPath("/KORVEL");

    // then
    QVERIFY(isRemoved);
    QCOMPARE(listedPaths(), (Paths{"/korvel", "/other"}));
}

void LoginItemRemovalTest::aPathWithoutAMatchRemovesNothing()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");

    // when
    bool isRemoved = true;
    const std::string printed = printedBy([&] { isRemoved = removeLoginItemWithPath("/b"); });

    // then
    QVERIFY(!isRemoved);
    QCOMPARE(printed, std::string());
    QCOMPARE(listedPaths(), Paths{"/a"});
}

void LoginItemRemovalTest::aUrlRemovesItsItem()
{
    // given
    const std::string program = session->addProgram("painter");
    QVERIFY(addLoginItemWithPath(program, true));
    QVERIFY(addLoginItemWithPath(program, false));
    const LoginItemUrlRef first = allLoginItems()->at(0).URL;

    // when
    const bool isRemoved = removeLoginItemWithURL(first);

    // then
    QVERIFY(isRemoved);
    const LoginItemArrayRef items = allLoginItems();
    QCOMPARE(items->size(), size_t{1});
    QVERIFY(!items->at(0).Hidden);
}

void LoginItemRemovalTest::aUrlWithoutAnItemRemovesNothing()
{
    // given
    const LoginItemUrlRef url = LoginItemUrl::fromPath(session->addProgram("painter"));
    QVERIFY(addLoginItemWithURL(url, false));

    // when
    bool isRemoved = true;
    const std::string printed = printedBy([&] { isRemoved = removeLoginItemWithURL(url); });

    // then
    QVERIFY(!isRemoved);
    QCOMPARE(printed, std::string());
    QVERIFY(!removeLoginItemWithURL(nullptr));
    QCOMPARE(listedPaths(), Paths{url->path()});
}

void LoginItemRemovalTest::removingALinkLeavesItsTarget()
{
    // given
    const Path target = session->home() / "dotfiles/a";
    writeFile(target, "[Desktop Entry]\nType=Application\nExec=/a\n");
    std::filesystem::create_directories(session->autostart());
    std::filesystem::create_symlink(target, session->autostart() / "a.desktop");

    // when
    QVERIFY(removeLoginItemAtIndex(0));

    // then
    QVERIFY(namesIn(session->autostart()).empty());
    QVERIFY(std::filesystem::exists(target));
}

void LoginItemRemovalTest::removingTakesNothingElseAlong()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    session->addEntry("deleted.desktop", "Type=Application\nExec=/b\nHidden=true\n");
    writeFile(session->autostart() / "a.desktop.bak", "# mine\n");

    // when
    QVERIFY(removeLoginItemWithPath("/a"));

    // then
    QCOMPARE(namesIn(session->autostart()),
             (std::set<std::string>{"a.desktop.bak", "deleted.desktop"}));
}

void LoginItemRemovalTest::whatOthersAddToOurEntriesSurvives()
{
    // given
    const std::string ours = session->addProgram("ours");
    const std::string other = session->addProgram("other");
    QVERIFY(addLoginItemWithPath(other, false));
    QVERIFY(addLoginItemWithPath(ours, false));
    QVERIFY(removeLoginItemAtIndex(0));
    const Path file = session->autostart() / *namesIn(session->autostart()).begin();
    const std::string bytes = "# mine\n" + readFile(file)
        + "X-Other=1\r\nName[de]=f\xc3\xbcr\nComment=caf\xe9\n\n[X Other]\n# more\nKey=\\q\n";
    writeFile(file, bytes);

    // when
    QVERIFY(addLoginItemWithPath(other, false));
    QVERIFY(addLoginItemWithPath(other, false));
    QVERIFY(removeLoginItemWithPath(other));

    // then
    QCOMPARE(readFile(file), bytes);
    QCOMPARE(listedPaths(), (Paths{ours, other}));
}

QTEST_APPLESS_MAIN(LoginItemRemovalTest)
#include "loginitemremovaltest.moc"

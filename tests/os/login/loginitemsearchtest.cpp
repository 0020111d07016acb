#include "os/login/loginitems.h"

#include "tests/os/login/session.h"

#include <QRegularExpression>
#include <QTest>

#include <optional>

using namespace TestSupport;

/// Finding login items by their path and by their URL.
class LoginItemSearchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aPathIsFoundWhateverItsCase();
    void aPartOfAPathIsFound();
    void theLastOfTwoMatchesIsFound();
    void whatNoItemContainsIsNotFound_data();
    void whatNoItemContainsIsNotFound();
    void aListedUrlIsFoundAsLongAsItIsHeld();
    void aUrlMadeByTheCallerIsNeverFound();
    void twoItemsOfOnePathHaveTwoUrls();
    void theUrlOfAnItemThatNowStartsAnotherProgramIsNotFound();
    void theUrlOfAnItemThatWasReplacedIsNotFound();

private:
    std::optional<Session> session;
};

void LoginItemSearchTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    session.emplace();
}

void LoginItemSearchTest::cleanup()
{
    session.reset();
}

void LoginItemSearchTest::aPathIsFoundWhateverItsCase()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/Applications/Korvel.app\n");

    // when
    const int index = indexForLoginItemWithPath("/applications/korvel.app");

    // then
    QCOMPARE(index, 0);
}

void LoginItemSearchTest::aPartOfAPathIsFound()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/other\n");
    session->addEntry("b.desktop", "Type=Application\nExec=/opt/korvel-helper\n");

    // when
    const int index = indexForLoginItemWithPath("/opt/korvel");

    // then
    QCOMPARE(index, 1);
}

void LoginItemSearchTest::theLastOfTwoMatchesIsFound()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/opt/korvel\n");
    session->addEntry("b.desktop", "Type=Application\nExec=/opt/KORVEL/bin\n");
    session->addEntry("c.desktop", "Type=Application\nExec=/other\n");

    // when
    const int index = indexForLoginItemWithPath("/opt/korvel");

    // then
    QCOMPARE(index, 1);
}

void LoginItemSearchTest::whatNoItemContainsIsNotFound_data()
{
    QTest::addColumn<std::string>("path");

    QTest::newRow("another path") << std::string("/opt/dex");
    QTest::newRow("a longer path") << std::string("/opt/korvel/bin");
    QTest::newRow("the path as a URL") << std::string("file:///opt/korvel");
    QTest::newRow("nothing") << std::string();
}

void LoginItemSearchTest::whatNoItemContainsIsNotFound()
{
    // given
    QFETCH(std::string, path);
    session->addEntry("a.desktop", "Type=Application\nExec=/opt/korvel\n");

    // when
    int index = 0;
    const std::string printed = printedBy([&] { index = indexForLoginItemWithPath(path); });

    // then
    QCOMPARE(index, -1);
    QCOMPARE(printed, std::string());
}

void LoginItemSearchTest::aListedUrlIsFoundAsLongAsItIsHeld()
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

void LoginItemSearchTest::aUrlMadeByTheCallerIsNeverFound()
{
    // given
    const LoginItemUrlRef url = LoginItemUrl::fromPath(session->addProgram("painter"));
    QVERIFY(addLoginItemWithURL(url, false));

    // when
    const int index = indexForLoginItemWithURL(url);

    // then
    QCOMPARE(index, -1);
    QCOMPARE(indexForLoginItemWithURL(nullptr), -1);
    QCOMPARE(indexForLoginItemWithURL(LoginItemUrl::fromRawText(url->path())), -1);
}

void LoginItemSearchTest::twoItemsOfOnePathHaveTwoUrls()
{
    // given
    const std::string program = session->addProgram("painter");
    QVERIFY(addLoginItemWithPath(program, false));
    QVERIFY(addLoginItemWithPath(program, false));

    // when
    const LoginItemArrayRef items = allLoginItems();

    // then
    QVERIFY(items->at(0).URL != items->at(1).URL);
    QCOMPARE(indexForLoginItemWithURL(items->at(0).URL), 0);
    QCOMPARE(indexForLoginItemWithURL(items->at(1).URL), 1);
}

void LoginItemSearchTest::theUrlOfAnItemThatNowStartsAnotherProgramIsNotFound()
{
    // given
    session->addEntry("a.desktop", "Type=Application\nExec=/a\n");
    const LoginItemUrlRef url = allLoginItems()->at(0).URL;

    // when
    session->addEntry("a.desktop", "Type=Application\nExec=/b\n");

    // then
    QCOMPARE(indexForLoginItemWithURL(url), -1);
    QCOMPARE(url->path(), std::string("/a"));
}

void LoginItemSearchTest::theUrlOfAnItemThatWasReplacedIsNotFound()
{
    // given
    const std::string program = session->addProgram("painter");
    QVERIFY(addLoginItemWithPath(program, false));
    const LoginItemUrlRef url = allLoginItems()->at(0).URL;

    // when
    QVERIFY(removeLoginItemAtIndex(0));
    QVERIFY(addLoginItemWithPath(program, false));

    // then
    QCOMPARE(indexForLoginItemWithURL(url), -1);
}

QTEST_APPLESS_MAIN(LoginItemSearchTest)
#include "loginitemsearchtest.moc"

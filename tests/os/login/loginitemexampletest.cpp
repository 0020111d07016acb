#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QTest>

// The example of CONTRIBUTING.md, word for word.
#include "os/login/loginitems.h"

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

/// What the guide shows does what it says.
class LoginItemExampleTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aProgramIsAddedOnce();
    void hiddenItemsAreForgotten();
};

void LoginItemExampleTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

void LoginItemExampleTest::aProgramIsAddedOnce()
{
    // given
    const TestSupport::Session session;
    const std::string program = session.addProgram("painter");

    // when
    QVERIFY(startWithTheLogin(program));
    QVERIFY(startWithTheLogin(program));

    // then
    QCOMPARE(allLoginItems()->size(), size_t{1});
}

void LoginItemExampleTest::hiddenItemsAreForgotten()
{
    // given
    const TestSupport::Session session;
    QVERIFY(addLoginItemWithPath("/bin/true", true));
    QVERIFY(addLoginItemWithPath("/bin/sh", false));
    QVERIFY(addLoginItemWithPath("/bin/true", true));

    // when
    forgetHiddenItems();

    // then
    const LoginItemArrayRef items = allLoginItems();
    QCOMPARE(items->size(), size_t{1});
    QCOMPARE(items->front().URL->path(), std::string("/bin/sh"));
}

REGISTER_TEST(LoginItemExampleTest, TestSupport::NoApplication)
#include "loginitemexampletest.moc"

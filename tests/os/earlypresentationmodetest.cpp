#include "os/presentationmode.h"

#include "tests/support/testprogram.h"

#include <QTest>

/// The presentation mode of a program that has no window system.
class EarlyPresentationModeTest : public QObject {
    Q_OBJECT

private slots:
    void withoutAnApplicationObjectNothingHappens();
    void forAProgramWithoutWindowsNothingHappens();
};

void EarlyPresentationModeTest::withoutAnApplicationObjectNothingHappens()
{
    osUtils::System::setSystemUIMode(3, 0);

    QVERIFY(!QCoreApplication::instance());
}

void EarlyPresentationModeTest::forAProgramWithoutWindowsNothingHappens()
{
    // given
    int argc = 1;
    char name[] = "console";
    char* argv[] = {name, nullptr};
    const QCoreApplication application(argc, argv);
    const qsizetype children = application.children().size();

    // when
    osUtils::System::setSystemUIMode(3, 0);

    // then
    QCOMPARE(application.children().size(), children);
}

REGISTER_TEST(EarlyPresentationModeTest, TestSupport::NoApplication)
#include "earlypresentationmodetest.moc"

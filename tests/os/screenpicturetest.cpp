#include "os/screenpicture.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/xconnection.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>

using osUtils::System::ScreenPicture;

/// A screen's picture that is fetched in the background.
class ScreenPictureTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theScreenIsPicturedPixelForPixel();
    void itIsFetchedWhateverTheVariableSays_data();
    void itIsFetchedWhateverTheVariableSays();
    void itShowsWhatTheScreenShowedWhenItWasBegun();
    void oneThatNobodyTakesIsNoHarm_data();
    void oneThatNobodyTakesIsNoHarm();

private:
    QImage pattern() const
    {
        return Backdrop::pattern(x.size()).convertToFormat(QImage::Format_RGB32);
    }

    const QByteArray display = qgetenv("DISPLAY");
    const XConnection x{display};
    const Backdrop backdrop{x};
};

void ScreenPictureTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    backdrop.paintPattern();
}

void ScreenPictureTest::cleanup()
{
    qputenv("DISPLAY", display);
}

void ScreenPictureTest::theScreenIsPicturedPixelForPixel()
{
    // when
    ScreenPicture picture(*QGuiApplication::primaryScreen());

    // then
    QVERIFY(picture.isPossible());
    QCOMPARE(picture.take(), pattern());
}

void ScreenPictureTest::itIsFetchedWhateverTheVariableSays_data()
{
    QTest::addColumn<QByteArray>("variable");

    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("no server") << QByteArray(":4711");
    QTest::newRow("nonsense") << QByteArray("nonsense");
}

void ScreenPictureTest::itIsFetchedWhateverTheVariableSays()
{
    // given
    QFETCH(QByteArray, variable);
    qputenv("DISPLAY", variable);

    // when
    ScreenPicture picture(*QGuiApplication::primaryScreen());

    // then
    QCOMPARE(picture.take(), pattern());
}

void ScreenPictureTest::itShowsWhatTheScreenShowedWhenItWasBegun()
{
    // given
    backdrop.fill(Qt::white);
    ScreenPicture picture(*QGuiApplication::primaryScreen());

    // when
    backdrop.paintPattern();
    picture.begin();

    // then
    QCOMPARE(picture.take(), pattern());
}

void ScreenPictureTest::oneThatNobodyTakesIsNoHarm_data()
{
    QTest::addColumn<bool>("begun");

    QTest::newRow("never begun") << false;
    QTest::newRow("begun") << true;
}

void ScreenPictureTest::oneThatNobodyTakesIsNoHarm()
{
    QFETCH(bool, begun);
    {
        ScreenPicture forgotten(*QGuiApplication::primaryScreen());
        if (begun)
            forgotten.begin();
    }
    QCOMPARE(ScreenPicture(*QGuiApplication::primaryScreen()).take(), pattern());
}

QTEST_MAIN(ScreenPictureTest)
#include "screenpicturetest.moc"

#include "os/screenpicture.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/xconnection.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using osUtils::System::ScreenPicture;

namespace {

/// What is done with a picture before it is forgotten.
using Use = void (*)(ScreenPicture&);

}

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
    void itCanBePaintedFromBeforeItIsComplete();
    void onceCompletedItHasNoDraft();
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

void ScreenPictureTest::itCanBePaintedFromBeforeItIsComplete()
{
    // given
    ScreenPicture picture(*QGuiApplication::primaryScreen());
    QVERIFY(picture.draft().isNull());

    // when
    QVERIFY(picture.secure());
    QImage painted(x.size(), QImage::Format_RGB32);
    QPainter(&painted).drawImage(0, 0, picture.draft());

    // then
    const QImage wanted = pattern();
    for (int row = 0; row < painted.height(); ++row) {
        const auto* colours = reinterpret_cast<const QRgb*>(painted.constScanLine(row));
        QVERIFY(std::equal(
            colours, colours + painted.width(),
            reinterpret_cast<const QRgb*>(wanted.constScanLine(row)),
            [](QRgb first, QRgb second) { return (first & RGB_MASK) == (second & RGB_MASK); }));
    }
}

void ScreenPictureTest::onceCompletedItHasNoDraft()
{
    // given
    ScreenPicture picture(*QGuiApplication::primaryScreen());
    QVERIFY(picture.secure());
    QVERIFY(!picture.draft().isNull());

    // when
    picture.complete();

    // then
    QVERIFY(picture.draft().isNull());
    QCOMPARE(picture.take(), pattern());
}

void ScreenPictureTest::oneThatNobodyTakesIsNoHarm_data()
{
    QTest::addColumn<Use>("use");

    QTest::newRow("never begun") << Use([](ScreenPicture&) {});
    QTest::newRow("begun") << Use([](ScreenPicture& picture) { picture.begin(); });
    QTest::newRow("secured") << Use([](ScreenPicture& picture) { QVERIFY(picture.secure()); });
    QTest::newRow("completed") << Use([](ScreenPicture& picture) { picture.complete(); });
}

void ScreenPictureTest::oneThatNobodyTakesIsNoHarm()
{
    QFETCH(Use, use);
    {
        ScreenPicture forgotten(*QGuiApplication::primaryScreen());
        use(forgotten);
    }
    QCOMPARE(ScreenPicture(*QGuiApplication::primaryScreen()).take(), pattern());
}

QTEST_MAIN(ScreenPictureTest)
#include "screenpicturetest.moc"

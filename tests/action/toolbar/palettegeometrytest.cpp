#include "action/toolbar/palettegeometry.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

using namespace VcAction::Toolbar;

class PaletteGeometryTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void theHandleIsTheLeftStripAboveTheTabs_data();
    void theHandleIsTheLeftStripAboveTheTabs();
    void theTabStripIsMadeOfThreeSlices_data();
    void theTabStripIsMadeOfThreeSlices();
    void theBackgroundIsAsWideAsThePaletteButNeverSqueezed_data();
    void theBackgroundIsAsWideAsThePaletteButNeverSqueezed();
    void theShutterHandleLiesOnTheHandleAboveTheTabs_data();
    void theShutterHandleLiesOnTheHandleAboveTheTabs();
    void aClosedPaletteLeavesOutTheEmptyCornerBelowItsHandle();
    void thePaletteLiesInTheFramesBottomRightCorner_data();
    void thePaletteLiesInTheFramesBottomRightCorner();
};

void PaletteGeometryTest::theHandleIsTheLeftStripAboveTheTabs_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("onHandle");

    QTest::newRow("top left corner") << QPoint(0, 0) << true;
    QTest::newRow("last column of the handle") << QPoint(39, 20) << true;
    QTest::newRow("right of the handle") << QPoint(40, 20) << false;
    QTest::newRow("last row of the handle") << QPoint(10, 51) << true;
    QTest::newRow("below the handle") << QPoint(10, 52) << false;
    QTest::newRow("bottom left corner") << QPoint(0, 84) << false;
}

void PaletteGeometryTest::theHandleIsTheLeftStripAboveTheTabs()
{
    QFETCH(QPoint, point);

    const bool result = isOnHandle(point, QSize(305, 85));

    QTEST(result, "onHandle");
}

void PaletteGeometryTest::theTabStripIsMadeOfThreeSlices_data()
{
    QTest::addColumn<int>("tabs");
    QTest::addColumn<int>("tabWidth");
    QTest::addColumn<QRect>("middle");
    QTest::addColumn<QRect>("rightCap");

    QTest::newRow("one tab") << 1 << 126 << QRect(41, 67, 126, 33) << QRect(166, 67, 7, 33);
    QTest::newRow("three tabs") << 3 << 126 << QRect(41, 67, 378, 33) << QRect(418, 67, 7, 33);
    QTest::newRow("narrow tabs") << 2 << 50 << QRect(41, 67, 100, 33) << QRect(140, 67, 7, 33);
}

void PaletteGeometryTest::theTabStripIsMadeOfThreeSlices()
{
    // Given
    QFETCH(int, tabs);
    QFETCH(int, tabWidth);
    QFETCH(QRect, middle);
    QFETCH(QRect, rightCap);

    // When
    const QList<ImageSlice> slices = tabStripSlices(QSize(600, 100), QSize(30, 11), tabs, tabWidth);

    // Then
    QCOMPARE(slices.size(), 3);
    QCOMPARE(slices.at(0).target, QRect(34, 67, 7, 33));
    QCOMPARE(slices.at(0).source, QRect(0, 0, 7, 11));
    QCOMPARE(slices.at(1).target, middle);
    QCOMPARE(slices.at(1).source, QRect(7, 0, 1, 11));
    QCOMPARE(slices.at(2).target, rightCap);
    QCOMPARE(slices.at(2).source, QRect(23, 0, 7, 11));
}

void PaletteGeometryTest::theBackgroundIsAsWideAsThePaletteButNeverSqueezed_data()
{
    QTest::addColumn<QSize>("palette");
    QTest::addColumn<int>("tabs");
    QTest::addColumn<QSize>("background");

    QTest::newRow("no tabs") << QSize(305, 85) << 0 << QSize(305, 85);
    QTest::newRow("tabs") << QSize(305, 118) << 2 << QSize(305, 85);
    QTest::newRow("as wide as both slices") << QSize(69, 85) << 0 << QSize(69, 85);
    QTest::newRow("shutter closed") << QSize(40, 118) << 1 << QSize(69, 85);
}

void PaletteGeometryTest::theBackgroundIsAsWideAsThePaletteButNeverSqueezed()
{
    QFETCH(QSize, palette);
    QFETCH(int, tabs);

    const QSize result = backFrameSize(palette, tabs);

    QTEST(result, "background");
}

void PaletteGeometryTest::theShutterHandleLiesOnTheHandleAboveTheTabs_data()
{
    QTest::addColumn<QSize>("palette");

    QTest::newRow("the pen's size with tabs") << QSize(305, 118);
    QTest::newRow("tall") << QSize(200, 400);
}

void PaletteGeometryTest::theShutterHandleLiesOnTheHandleAboveTheTabs()
{
    QFETCH(QSize, palette);

    const QRect place = shutterHandlePlace(palette);

    QVERIFY(isOnHandle(place.topLeft(), palette));
    QVERIFY(isOnHandle(place.bottomRight(), palette));
    QVERIFY(place.left() > 0 && place.top() > 0);
}

void PaletteGeometryTest::aClosedPaletteLeavesOutTheEmptyCornerBelowItsHandle()
{
    QCOMPARE(closedRegion(QSize(40, 118)), QRegion(0, 0, 40, 85));
    // On its way there the tab strip is still to be seen.
    QCOMPARE(closedRegion(QSize(100, 118)), QRegion(0, 0, 40, 85) + QRegion(40, 0, 60, 118));
}

void PaletteGeometryTest::thePaletteLiesInTheFramesBottomRightCorner_data()
{
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<QPoint>("corner");

    QTest::newRow("large frame") << QSize(1280, 800) << QPoint(895, 635);
    QTest::newRow("just large enough") << QSize(385, 165) << QPoint(0, 0);
    QTest::newRow("too narrow") << QSize(384, 800) << QPoint(-1, 635);
    QTest::newRow("too low") << QSize(1280, 100) << QPoint(895, -65);
    QTest::newRow("no frame at all") << QSize(0, 0) << QPoint(-385, -165);
}

void PaletteGeometryTest::thePaletteLiesInTheFramesBottomRightCorner()
{
    QFETCH(QSize, frame);

    const QPoint result = cornerPosition(frame, QSize(305, 85));

    QTEST(result, "corner");
}

REGISTER_TEST(PaletteGeometryTest, QCoreApplication)
#include "palettegeometrytest.moc"

#include "pen/pencontrols.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace VcAction::Toolbar;

namespace {

QImage imageOf(const QIcon& icon)
{
    return icon.pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
}

}

class PenControlsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void aCustomSizeIsACentredSquareOfAtMostThirty_data();
    void aCustomSizeIsACentredSquareOfAtMostThirty();
    void anySizeHasASquareOrNone_data();
    void anySizeHasASquareOrNone();
    void aSquareFillsItsCorners();
    void aDiscLeavesItsCorners();
    void iconsHaveThePixelsOfTheScreen();
};

void PenControlsTest::aCustomSizeIsACentredSquareOfAtMostThirty_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");

    QTest::newRow("1") << 1 << 15 << 15;
    QTest::newRow("2") << 2 << 15 << 16;
    QTest::newRow("5") << 5 << 13 << 17;
    QTest::newRow("15") << 15 << 8 << 22;
    QTest::newRow("29") << 29 << 1 << 29;
    QTest::newRow("30") << 30 << 1 << 30;
    QTest::newRow("31") << 31 << 1 << 30;
    QTest::newRow("32") << 32 << 1 << 30;
    QTest::newRow("33") << 33 << 1 << 30;
    QTest::newRow("40") << 40 << 1 << 30;
    QTest::newRow("the largest number") << std::numeric_limits<int>::max() << 1 << 30;
}

void PenControlsTest::aCustomSizeIsACentredSquareOfAtMostThirty()
{
    QFETCH(int, size);
    QFETCH(int, first);
    QFETCH(int, last);

    const QRect square = customSizeSquare(size);

    QCOMPARE(square, QRect(QPoint(first, first), QPoint(last, last)));
}

void PenControlsTest::anySizeHasASquareOrNone_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("nothing") << 0;
    QTest::newRow("negative") << -7;
    QTest::newRow("very negative") << -70;
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min();
}

void PenControlsTest::anySizeHasASquareOrNone()
{
    // Given
    QFETCH(int, size);

    // When
    const QRect square = customSizeSquare(size);

    // Then
    QVERIFY(square.isEmpty());
    QVERIFY(!squareIcon(square, 1).isNull());
}

void PenControlsTest::aSquareFillsItsCorners()
{
    // When
    const QImage image = imageOf(squareIcon(QRect(QPoint(8, 8), QPoint(22, 22)), 1));

    // Then
    QCOMPARE(TestSupport::colourAt(image, QPoint(9, 9)), QColor(Qt::black));
    QCOMPARE(TestSupport::colourAt(image, QPoint(22, 22)), QColor(Qt::black));
    QCOMPARE(TestSupport::colourAt(image, QPoint(6, 15)).alpha(), 0);
    QCOMPARE(TestSupport::colourAt(image, QPoint(25, 15)).alpha(), 0);
}

void PenControlsTest::aDiscLeavesItsCorners()
{
    // When
    const QImage image = imageOf(discIcon(6, 25, 1));

    // Then
    QCOMPARE(TestSupport::colourAt(image, QPoint(15, 15)), QColor(Qt::black));
    QCOMPARE(TestSupport::colourAt(image, QPoint(7, 15)), QColor(Qt::black));
    QCOMPARE(TestSupport::colourAt(image, QPoint(24, 15)), QColor(Qt::black));
    QCOMPARE(TestSupport::colourAt(image, QPoint(7, 7)).alpha(), 0);
    QCOMPARE(TestSupport::colourAt(image, QPoint(24, 24)).alpha(), 0);
    QCOMPARE(TestSupport::colourAt(image, QPoint(28, 15)).alpha(), 0);
}

void PenControlsTest::iconsHaveThePixelsOfTheScreen()
{
    QCOMPARE(discIcon(6, 25, 2).availableSizes(), QList<QSize>({QSize(64, 64)}));
    QCOMPARE(squareIcon(QRect(8, 8, 15, 15), 2).availableSizes(), QList<QSize>({QSize(64, 64)}));
}

REGISTER_TEST(PenControlsTest, QApplication)
#include "pencontrolstest.moc"

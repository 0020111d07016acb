#include "action/widget/densesheet.h"

#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

using namespace VcAction::Widget;

/// Sheets for dense screens, as text.
class DenseSheetTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cutsGrowWithTheImage_data();
    void cutsGrowWithTheImage();
};

void DenseSheetTest::cutsGrowWithTheImage_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QString>("expected");

    const QString one("A {border-image: url(:/a.png) 4 19 5 6;border-top: 4px;}");
    const QString twice("A {border-image: url(:/a-2x.png) 8 38 10 12;border-top: 4px;}");
    const QString thrice("A {border-image: url(:/a-3x.png) 12 57 15 18;border-top: 4px;}");
    QTest::newRow("an ordinary screen") << one << 1.0 << one;
    QTest::newRow("a little denser") << one << 1.25 << twice;
    QTest::newRow("twice as dense") << one << 2.0 << twice;
    QTest::newRow("thrice as dense") << one << 3.0 << thrice;
    QTest::newRow("denser than any image") << one << 4.0 << thrice;
    QTest::newRow("several images") << one + one << 2.0 << twice + twice;
    const QString whole("A {image: url(:/a.png);} B {border-image: url(:/b.png);}");
    QTest::newRow("images that are not cut") << whole << 2.0 << whole;
}

void DenseSheetTest::cutsGrowWithTheImage()
{
    QFETCH(QString, sheet);
    QFETCH(qreal, ratio);
    QFETCH(QString, expected);

    QCOMPARE(StyleSheets::forDensity(sheet, ratio), expected);
}

REGISTER_TEST(DenseSheetTest, QCoreApplication)
#include "densesheettest.moc"

#include "action/widget/stylesheets.h"
#include "action/widget/vctabholder.h"
#include "tests/action/probes.h"
#include "tests/action/widget/expectedsheets.h"
#include "tests/support/images.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QFrame>
#include <QRegularExpression>
#include <QTest>

using namespace TestSupport;

namespace {

// The test image is 20 pixels wide and three rows high. Its left cap is red, the column that is
// stretched green and its right cap blue, each with a darker first column and a lighter bottom row;
// what lies between is magenta and must not be seen.
const QColor leftEdge(0x80, 0, 0);
const QColor leftCap(0xff, 0, 0);
const QColor middle(0, 0xff, 0);
const QColor rightEdge(0, 0, 0x80);
const QColor rightCap(0, 0, 0xff);
const QColor leftBottom(0xff, 0xc0, 0xc0);
const QColor middleBottom(0xc0, 0xff, 0xc0);
const QColor rightBottom(0xc0, 0xc0, 0xff);

/// Tells with what sizes its back image is made.
class TabbedPalette : public ActionTest::PaletteProbe {
public:
    explicit TabbedPalette(QWidget* parent)
        : PaletteProbe(parent, QSize(400, 80))
    {
    }

    QList<QSize> imageSizes;

    void createBackImage(QSize size) override
    {
        imageSizes.append(size);
        PaletteProbe::createBackImage(size);
    }
};

}

class PaletteTabsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void theFirstTabMakesThePaletteTaller();
    void laterTabsDoNot();
    void aTabsPageLiesAboveTheStrip();
    void aTabHasAnIconIfItIsGivenOne();
    void theBackgroundEndsAboveTheStrip();
    void theStripIsPaintedInThreeSlices_data();
    void theStripIsPaintedInThreeSlices();
    void aDerivedPaletteMayMakeItsOwnImage();
    void theTabWidthReachesTheTabsAndTheImage();
    void anotherTabWidthMakesTheImageAStripTooLow();

private:
    const Images strip{QStringLiteral(TAB_STRIP)};
};

void PaletteTabsTest::theFirstTabMakesThePaletteTaller()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);

    // When
    palette.addTab("First");

    // Then
    QCOMPARE(palette.size(), QSize(400, 113));
    QCOMPARE(palette.tabHolder->geometry(), QRect(40, 0, 360, 113));
    QCOMPARE(palette.tabHolder->minimumSize(), QSize(360, 113));
}

void PaletteTabsTest::laterTabsDoNot()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    QWidget* const first = palette.addTab("First");

    // When
    QWidget* const second = palette.addTab(QIcon(), "Second");
    QWidget* const third = palette.addTab("Third");

    // Then
    QCOMPARE(palette.size(), QSize(400, 113));
    QCOMPARE(palette.tabs, QList<QWidget*>({first, second, third}));
    QCOMPARE(palette.tabHolder->count(), 3);
    QCOMPARE(palette.tabHolder->widget(1), second);
    QCOMPARE(palette.tabHolder->tabText(2), QString("Third"));
}

void PaletteTabsTest::aTabsPageLiesAboveTheStrip()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);

    // When
    QWidget* const page = palette.addTab("First");

    // Then
    QVERIFY(qobject_cast<VcAction::Widget::VcTab*>(page));
    QCOMPARE(page->minimumSize(), QSize(360, 80));
    QCOMPARE(page->maximumSize(), QSize(360, 80));
    QVERIFY(palette.isAncestorOf(page));
}

void PaletteTabsTest::aTabHasAnIconIfItIsGivenOne()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    QPixmap red(16, 16);
    red.fill(Qt::red);

    // When
    palette.addTab(QIcon(red), "First");
    palette.addTab("Second");

    // Then
    QCOMPARE(palette.tabHolder->tabText(0), QString("First"));
    QCOMPARE(colourAt(palette.tabHolder->tabIcon(0).pixmap(16, 16).toImage(), QPoint(8, 8)),
             QColor(Qt::red));
    QVERIFY(palette.tabHolder->tabIcon(1).isNull());
}

void PaletteTabsTest::theBackgroundEndsAboveTheStrip()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    palette.start();
    frame.show();
    palette.addTab("First");

    // When
    palette.resize(400, 120);

    // Then
    QCOMPARE(palette.backFrame->size(), QSize(400, 87));
    QCOMPARE(palette.imageSizes.last(), QSize(400, 120));
}

void PaletteTabsTest::theStripIsPaintedInThreeSlices_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<QColor>("colour");

    QTest::newRow("above the strip") << QPoint(35, 66) << QColor(0, 0, 0, 0);
    QTest::newRow("left of the strip") << QPoint(33, 70) << QColor(0, 0, 0, 0);
    QTest::newRow("left cap, first column") << QPoint(34, 67) << leftEdge;
    QTest::newRow("left cap, second column") << QPoint(35, 67) << leftCap;
    QTest::newRow("left cap, last column") << QPoint(40, 88) << leftCap;
    QTest::newRow("left cap, bottom third") << QPoint(40, 89) << leftBottom;
    QTest::newRow("left cap, bottom row") << QPoint(40, 99) << leftBottom;
    QTest::newRow("middle, first column") << QPoint(41, 67) << middle;
    QTest::newRow("middle, last column before the cap") << QPoint(139, 70) << middle;
    QTest::newRow("middle, bottom row") << QPoint(100, 99) << middleBottom;
    QTest::newRow("right cap, over the middle's end") << QPoint(140, 67) << rightEdge;
    QTest::newRow("right cap, second column") << QPoint(141, 67) << rightCap;
    QTest::newRow("right cap, last column") << QPoint(146, 67) << rightCap;
    QTest::newRow("right cap, bottom row") << QPoint(146, 99) << rightBottom;
    QTest::newRow("right of the strip") << QPoint(147, 70) << QColor(0, 0, 0, 0);
}

void PaletteTabsTest::theStripIsPaintedInThreeSlices()
{
    // Given
    QFETCH(QPoint, at);
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    palette.addTab("First");
    palette.addTab("Second");
    palette.setTabWidth(50);

    // When
    palette.createBackImage(QSize(300, 100));

    // Then
    const QImage image = palette.backImage.toImage();
    QCOMPARE(image.deviceIndependentSize(), QSizeF(300, 100));
    QTEST(colourAt(image, at), "colour");
}

void PaletteTabsTest::aDerivedPaletteMayMakeItsOwnImage()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    palette.start();
    frame.show();
    palette.imageSizes.clear();

    // When
    palette.resize(350, 90);

    // Then
    QCOMPARE(palette.imageSizes, QList<QSize>({QSize(350, 90)}));
}

void PaletteTabsTest::theTabWidthReachesTheTabsAndTheImage()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    palette.addTab("First");
    QString sheet(ActionTest::tabHolderSheet);
    sheet.replace("width: 114px;height", "width: 88px;height");

    // When
    palette.setTabWidth(100);

    // Then
    QCOMPARE(palette.tabWidth, 100);
    QCOMPARE(palette.tabHolder->styleSheet(),
             VcAction::Widget::StyleSheets::forDensity(sheet, palette.devicePixelRatioF()));
    QCOMPARE(inkBox(palette.backImage.toImage(), Qt::transparent), QRectF(34, 47, 113, 33));
}

void PaletteTabsTest::anotherTabWidthMakesTheImageAStripTooLow()
{
    // Given
    ActionTest::FrameProbe frame;
    TabbedPalette palette(&frame);
    palette.start();
    frame.show();
    palette.addTab("First");
    palette.imageSizes.clear();

    // When
    palette.setTabWidth(100);

    // Then
    QCOMPARE(palette.imageSizes, QList<QSize>({QSize(400, 80)}));

    // When
    palette.resize(401, 113);

    // Then
    QCOMPARE(palette.imageSizes.last(), QSize(401, 113));
}

REGISTER_TEST(PaletteTabsTest, QApplication)
#include "palettetabstest.moc"

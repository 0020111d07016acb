#include "pen/pentoolbar.h"

#include "action/widget/vccheckbox.h"
#include "action/widget/vccolorcombobox.h"
#include "action/widget/vcgroupbox.h"
#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/metamethods.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/testprogram.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QPropertyAnimation>
#include <QRegularExpression>
#include <QTest>

using namespace PenTest;
using VcAction::Toolbar::PenToolbar;

namespace {

const QColor yellow(255, 255, 0);

/// A palette that tests can look into.
class PaletteProbe : public PenToolbar {
public:
    explicit PaletteProbe(VcAction::Frame::PenFrame& frame)
        : PenToolbar(&frame)
    {
    }
    // The palette leaves its animations to the end of the process; a test has many palettes.
    ~PaletteProbe() override
    {
        delete opacityAnimation;
        delete sizeAnimation;
    }

    using PenToolbar::colorComboBox;
    using PenToolbar::shapeComboBox;
    using PenToolbar::sizeComboBox;
    using PenToolbar::sizeGroupBox;
    using PenToolbar::styleButtonGroup;
    using PenToolbar::transparencyCheckBox;

    [[nodiscard]] QStringList sizes() const { return texts(*sizeComboBox); }
    [[nodiscard]] QStringList colours() const { return texts(*colorComboBox); }
    [[nodiscard]] static QStringList texts(const QComboBox& box)
    {
        QStringList all;
        for (int index = 0; index < box.count(); ++index)
            all.append(box.itemText(index));
        return all;
    }
};

struct Tool {
    explicit Tool(int size = 20, const QColor& colour = yellow, bool transparent = false)
        : canvas(size, colour, Freehand, transparent)
    {
    }

    Canvas canvas;
    PaletteProbe palette{canvas.frame};
};

QImage iconOf(const QComboBox& box, int index)
{
    return box.itemIcon(index).pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
}

QComboBox& boxOfSizes(const PaletteProbe& palette)
{
    return *palette.sizeComboBox;
}

QComboBox& boxOfColours(const PaletteProbe& palette)
{
    return *palette.colorComboBox;
}

/// What a box's list looks like, whole.
QImage listOf(QComboBox& box)
{
    box.view()->resize(150, 400);
    return box.view()->grab().toImage();
}

}

class PenToolbarTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void itHasFiveSlotsAndNothingElse();
    void itsControlsLieAsAgreed();
    void itHasNoShapeChooser();
    void itsListsAreNotMadeBeforeTheyOpen();
    void itsListsShowTheIconsAsLargeAsTheBoxes();
    void itOffersSevenSizes();
    void aPresetSizeIsSelected_data();
    void aPresetSizeIsSelected();
    void anotherSizeIsAddedAndSelected_data();
    void anotherSizeIsAddedAndSelected();
    void aCustomSizeIsShownAsASquare();
    void aPresetSizeIsShownAsADisc_data();
    void aPresetSizeIsShownAsADisc();
    void itOffersEightColours();
    void aPresetColourIsSelected_data();
    void aPresetColourIsSelected();
    void anotherColourIsAddedAndSelected();
    void transparencyIsTakenFromTheFrame_data();
    void transparencyIsTakenFromTheFrame();
    void buildingItLeavesTheFramesPenAlone();
    void choosingASizeSetsThePens();
    void choosingACustomSizeSetsThePens();
    void choosingAColourSetsThePens();
    void steppingThroughTheColoursSetsThePens();
    void clickingTheBoxTogglesTransparency();
    void theSlotForTransparencySetsBoxAndPen();
    void itNeedsNoImages();
    void theTabKeyBeginsWithTheSizes();
    void eachOfItsBoxesHasAnAccessibleName();
};

void PenToolbarTest::itHasFiveSlotsAndNothingElse()
{
    const QMetaObject& type = PenToolbar::staticMetaObject;

    QCOMPARE(QString(type.className()), QString("VcAction::Toolbar::PenToolbar"));
    QCOMPARE(type.superClass(), &VcAction::Toolbar::ActionToolbar::staticMetaObject);
    QCOMPARE(
        TestSupport::ownMethods(type),
        QStringList({"public slot updateColor(QColor color)", "public slot updateSize(int index)",
                     "public slot updateShape(int index)", "public slot chooseStyle(int style)",
                     "public slot setTransparency(bool value)"}));
    QVERIFY(TestSupport::hasMethodsOnly(type));
}

void PenToolbarTest::itsControlsLieAsAgreed()
{
    // When
    const Tool tool;

    // Then
    const PaletteProbe& palette = tool.palette;
    QCOMPARE(palette.size(), QSize(305, 85));
    QCOMPARE(palette.sizeGroupBox->parentWidget(), &palette);
    QCOMPARE(palette.sizeGroupBox->geometry(), QRect(40, 7, 80, 65));
    QCOMPARE(palette.sizeGroupBox->title(), QString("Size"));
    QCOMPARE(palette.sizeComboBox->parentWidget(), palette.sizeGroupBox);
    QCOMPARE(palette.sizeComboBox->geometry(), QRect(5, 14, 71, 51));
    QCOMPARE(palette.sizeComboBox->minimumSize(), palette.sizeComboBox->maximumSize());
    QCOMPARE(palette.sizeComboBox->iconSize(), QSize(32, 32));
    const auto* colours =
        qobject_cast<VcAction::Widget::VcGroupBox*>(palette.colorComboBox->parentWidget());
    QVERIFY(colours);
    QCOMPARE(colours->parentWidget(), &palette);
    QCOMPARE(colours->geometry(), QRect(125, 7, 80, 65));
    QCOMPARE(colours->title(), QString("Color"));
    QCOMPARE(colours->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
    QCOMPARE(palette.colorComboBox->geometry(), QRect(5, 14, 71, 51));
    QCOMPARE(palette.colorComboBox->minimumSize(), palette.colorComboBox->maximumSize());
    QCOMPARE(palette.transparencyCheckBox->parentWidget(), &palette);
    QCOMPARE(palette.transparencyCheckBox->pos(), QPoint(205, 45));
    QCOMPARE(palette.transparencyCheckBox->text(), QString("Transparent"));
}

void PenToolbarTest::itsListsAreNotMadeBeforeTheyOpen()
{
    // Given: later versions of Qt make a box's list with its first item (seen in 6.8.2, not in
    // 6.4.2).
    QComboBox filled;
    filled.addItem("item");
    const auto madeByQt = filled.findChildren<QAbstractItemView*>().size();
    Tool tool;

    // When
    tool.palette.ensurePolished();
    tool.palette.grab();

    // Then
    const auto boxes = tool.palette.findChildren<QComboBox*>().size();
    QCOMPARE(tool.palette.findChildren<QAbstractItemView*>().size(), boxes * madeByQt);
}

void PenToolbarTest::itsListsShowTheIconsAsLargeAsTheBoxes()
{
    // Given
    const Tool tool;
    const Tool told;

    for (const auto box : {&boxOfSizes, &boxOfColours}) {
        // When
        QComboBox& asItIs = box(tool.palette);
        QComboBox& explicitly = box(told.palette);
        explicitly.setIconSize(explicitly.iconSize());

        // Then
        QCOMPARE(listOf(asItIs), listOf(explicitly));
    }
}

void PenToolbarTest::itHasNoShapeChooser()
{
    const Tool tool;

    QVERIFY(!tool.palette.shapeComboBox);
    QVERIFY(!tool.palette.styleButtonGroup);
}

void PenToolbarTest::itOffersSevenSizes()
{
    // When
    const Tool tool;

    // Then
    QCOMPARE(tool.palette.sizes(), QStringList({"8", "12", "16", "20", "24", "28", "32"}));
    for (int index = 0; index < tool.palette.sizeComboBox->count(); ++index) {
        QCOMPARE(tool.palette.sizeComboBox->itemData(index, Qt::UserRole),
                 QVariant(tool.palette.sizeComboBox->itemText(index).toInt()));
    }
}

void PenToolbarTest::aPresetSizeIsSelected_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("index");

    QTest::newRow("smallest") << 8 << 0;
    QTest::newRow("as without arguments") << 20 << 3;
    QTest::newRow("largest") << 32 << 6;
}

void PenToolbarTest::aPresetSizeIsSelected()
{
    QFETCH(int, size);

    const Tool tool(size);

    QCOMPARE(tool.palette.sizeComboBox->count(), 7);
    QTEST(tool.palette.sizeComboBox->currentIndex(), "index");
}

void PenToolbarTest::anotherSizeIsAddedAndSelected_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("text");

    QTest::newRow("between presets") << 15 << "15";
    QTest::newRow("beyond the presets") << 40 << "40";
    QTest::newRow("none") << 0 << "0";
    QTest::newRow("negative") << -4 << "-4";
    QTest::newRow("the largest number") << 2147483647 << "2147483647";
}

void PenToolbarTest::anotherSizeIsAddedAndSelected()
{
    QFETCH(int, size);
    QFETCH(QString, text);

    const Tool tool(size);

    QCOMPARE(tool.palette.sizeComboBox->count(), 8);
    QCOMPARE(tool.palette.sizeComboBox->currentIndex(), 7);
    QCOMPARE(tool.palette.sizeComboBox->currentText(), text);
    QCOMPARE(tool.palette.sizeComboBox->currentData(), QVariant(size));
}

void PenToolbarTest::aCustomSizeIsShownAsASquare()
{
    // When
    const Tool tool(15);

    // Then
    const QImage icon = iconOf(*tool.palette.sizeComboBox, 7);
    QVERIFY(isAbout(TestSupport::inkBox(icon, Qt::transparent), QRectF(8, 8, 15, 15)));
    QCOMPARE(TestSupport::colourAt(icon, QPoint(9, 9)), QColor(Qt::black));
}

void PenToolbarTest::aPresetSizeIsShownAsADisc_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");

    QTest::newRow("8") << 0 << 12 << 19;
    QTest::newRow("12") << 1 << 10 << 21;
    QTest::newRow("16") << 2 << 8 << 23;
    QTest::newRow("20") << 3 << 6 << 25;
    QTest::newRow("24") << 4 << 4 << 27;
    QTest::newRow("28") << 5 << 2 << 29;
    QTest::newRow("32") << 6 << 1 << 30;
}

void PenToolbarTest::aPresetSizeIsShownAsADisc()
{
    // Given
    QFETCH(int, index);
    QFETCH(int, first);
    QFETCH(int, last);

    // When
    const Tool tool;

    // Then
    const QImage icon = iconOf(*tool.palette.sizeComboBox, index);
    const QRectF disc(QRect(QPoint(first, first), QPoint(last, last)));
    QVERIFY(isAbout(TestSupport::inkBox(icon, Qt::transparent), disc));
    QCOMPARE(TestSupport::colourAt(icon, QPoint(15, 15)), QColor(Qt::black));
    QVERIFY(TestSupport::colourAt(icon, QPoint(first, first)).alpha() < 128);
}

void PenToolbarTest::itOffersEightColours()
{
    // When
    const Tool tool;

    // Then
    QCOMPARE(tool.palette.colours(),
             QStringList({"red", "Orange", "Yellow", "Green", "Aqua", "Blue", "Purple", "Black",
                          "Pick Color"}));
    const QList<QColor> expected{QColor(255, 0, 0),   QColor(255, 80, 0),  QColor(255, 255, 0),
                                 QColor(0, 255, 0),   QColor(0, 255, 255), QColor(0, 0, 255),
                                 QColor(255, 0, 255), QColor(0, 0, 0)};
    for (int index = 0; index < expected.size(); ++index)
        QCOMPARE(tool.palette.colorComboBox->itemData(index).value<QColor>(), expected.at(index));
}

void PenToolbarTest::aPresetColourIsSelected_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QString>("name");

    QTest::newRow("as without arguments") << QColor(255, 255, 0) << "Yellow";
    QTest::newRow("the first") << QColor(255, 0, 0) << "red";
    QTest::newRow("the last") << QColor(0, 0, 0) << "Black";
}

void PenToolbarTest::aPresetColourIsSelected()
{
    QFETCH(QColor, colour);

    const Tool tool(20, colour);

    QCOMPARE(tool.palette.colorComboBox->count(), 9);
    QTEST(tool.palette.colorComboBox->currentText(), "name");
}

void PenToolbarTest::anotherColourIsAddedAndSelected()
{
    const Tool tool(20, QColor(1, 2, 3));

    QCOMPARE(tool.palette.colorComboBox->count(), 10);
    QCOMPARE(tool.palette.colorComboBox->currentText(), QString("Custom"));
    QCOMPARE(tool.palette.colorComboBox->currentIndex(), 8);
    QCOMPARE(tool.palette.colorComboBox->currentData().value<QColor>(), QColor(1, 2, 3));
}

void PenToolbarTest::transparencyIsTakenFromTheFrame_data()
{
    QTest::addColumn<bool>("transparent");
    QTest::addColumn<Qt::CheckState>("state");
    QTest::addColumn<double>("opacity");

    QTest::newRow("on") << true << Qt::Checked << 0.5;
    QTest::newRow("off") << false << Qt::Unchecked << 1.0;
}

void PenToolbarTest::transparencyIsTakenFromTheFrame()
{
    QFETCH(bool, transparent);

    const Tool tool(20, yellow, transparent);

    QTEST(tool.palette.transparencyCheckBox->checkState(), "state");
    QTEST(tool.canvas.frame.penOpacity(), "opacity");
}

void PenToolbarTest::buildingItLeavesTheFramesPenAlone()
{
    // Given
    Canvas canvas(15, QColor(1, 2, 3), Freehand, true);
    TestSupport::takeOverrideCursors();

    // When
    const PaletteProbe palette(canvas.frame);

    // Then
    QCOMPARE(canvas.frame.penWidth(), 15);
    QCOMPARE(canvas.frame.penColor(), QColor(1, 2, 3));
    QCOMPARE(canvas.frame.penOpacity(), 0.5);
    QVERIFY(TestSupport::takeOverrideCursors().isEmpty());
}

void PenToolbarTest::choosingASizeSetsThePens()
{
    // Given
    Tool tool;

    // When
    tool.palette.sizeComboBox->setCurrentIndex(0);

    // Then
    QCOMPARE(tool.canvas.frame.penWidth(), 8);
}

void PenToolbarTest::choosingACustomSizeSetsThePens()
{
    // Given
    Tool tool;

    // When
    tool.palette.chooseCustomSize(17);

    // Then
    QCOMPARE(tool.canvas.frame.penWidth(), 17);
    QCOMPARE(tool.palette.sizes().last(), QString("17"));

    // When
    tool.palette.chooseCustomSize(12);
    tool.palette.chooseCustomSize(17);

    // Then
    QCOMPARE(tool.canvas.frame.penWidth(), 17);
    QCOMPARE(tool.palette.sizeComboBox->count(), 8);
}

void PenToolbarTest::choosingAColourSetsThePens()
{
    // Given
    Tool tool;

    // When
    tool.palette.colorComboBox->setCurrentIndex(5);

    // Then
    QCOMPARE(tool.canvas.frame.penColor(), QColor(Qt::blue));
}

void PenToolbarTest::steppingThroughTheColoursSetsThePens()
{
    // Given
    Tool tool;

    // When
    tool.palette.incrementColor(-1);

    // Then
    QCOMPARE(tool.palette.colorComboBox->currentText(), QString("Orange"));
    QCOMPARE(tool.canvas.frame.penColor(), QColor(255, 80, 0));

    // When
    tool.palette.incrementColor(3);

    // Then
    QCOMPARE(tool.canvas.frame.penColor(), QColor(0, 255, 255));
}

void PenToolbarTest::clickingTheBoxTogglesTransparency()
{
    // Given
    Tool tool;

    // When
    tool.palette.transparencyCheckBox->click();

    // Then
    QVERIFY(tool.palette.transparencyCheckBox->isChecked());
    QCOMPARE(tool.canvas.frame.penOpacity(), 0.5);

    // When
    tool.palette.transparencyCheckBox->click();

    // Then
    QVERIFY(!tool.palette.transparencyCheckBox->isChecked());
    QCOMPARE(tool.canvas.frame.penOpacity(), 1.0);
}

void PenToolbarTest::theSlotForTransparencySetsBoxAndPen()
{
    // Given
    Tool tool;

    // When
    tool.palette.setTransparency(true);

    // Then
    QCOMPARE(tool.palette.transparencyCheckBox->checkState(), Qt::Checked);
    QCOMPARE(tool.canvas.frame.penOpacity(), 0.5);
}

void PenToolbarTest::itNeedsNoImages()
{
    // Given
    Tool tool;
    tool.canvas.frame.setToolbar(&tool.palette);

    // When
    tool.palette.start();

    // Then
    QVERIFY(tool.canvas.show());
    QVERIFY(tool.palette.isVisible());
    QVERIFY(!tool.canvas.screen().isNull());
}

void PenToolbarTest::theTabKeyBeginsWithTheSizes()
{
    // Given
    Tool tool;
    tool.canvas.frame.setToolbar(&tool.palette);
    TestSupport::expectRaiseWarning();
    tool.canvas.frame.start();
    QVERIFY(QTest::qWaitForWindowActive(&tool.canvas.frame));

    // When
    QStringList names;
    for (int step = 0; step < 5; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        const QString text = button ? button->text() : QString();
        names.append(text.isEmpty() ? QApplication::focusWidget()->accessibleName() : text);
    }

    // Then
    QCOMPARE(names, QStringList({"Size", "Color", "Transparent", "Close", "Size"}));
}

void PenToolbarTest::eachOfItsBoxesHasAnAccessibleName()
{
    // When
    const Tool tool;

    // Then
    QCOMPARE(tool.palette.sizeComboBox->accessibleName(), QString("Size"));
    QCOMPARE(tool.palette.colorComboBox->accessibleName(), QString("Color"));
}

REGISTER_TEST(PenToolbarTest, QApplication)
#include "pentoolbartest.moc"

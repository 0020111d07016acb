#include "action/widget/vccombobox.h"
#include "action/widget/vcgroupbox.h"
#include "pen/pentoolbar.h"
#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QTest>

using namespace PenTest;

namespace {

/// A palette that has the shape chooser, and buttons for two of the shapes besides.
class ShapePalette : public VcAction::Toolbar::PenToolbar {
public:
    explicit ShapePalette(VcAction::Frame::PenFrame& frame)
        : PenToolbar(&frame)
    {
        createShapeChooser();
        for (const int style : {2, 3}) {
            auto* button = new QRadioButton(this);
            button->hide();
            styleButtonGroup->addButton(button, style);
        }
    }

    using PenToolbar::shapeComboBox;
    using PenToolbar::sizeComboBox;
    using PenToolbar::sizeGroupBox;
    using PenToolbar::styleButtonGroup;
};

struct ShapeTool {
    /// What a drag leaves: the colour at the corner of its box, beside it and in its middle.
    [[nodiscard]] QString drawnShape()
    {
        *canvas.frame.background() = TestSupport::plainPicture(canvas.frame, paper);
        canvas.draw({{100, 100}, {220, 180}});
        const bool corner = canvas.inPicture(101, 101) == QColor(Qt::red);
        const bool nearCorner = canvas.inPicture(108, 106) == QColor(Qt::red);
        const bool edge = canvas.inPicture(160, 102) == QColor(Qt::red);
        if (!edge)
            return "stroke";
        if (corner)
            return "rectangle";
        return nearCorner ? "round rectangle" : "ellipse";
    }

    explicit ShapeTool(int style = Freehand)
        : canvas(4, Qt::red, style)
    {
    }

    Canvas canvas;
    ShapePalette palette{canvas.frame};
};

}

class ShapeChooserTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aPaletteHasNoneUntilItIsBuilt();
    void itBeginsWithTheFramesStyle_data();
    void itBeginsWithTheFramesStyle();
    void itsButtonsSwitchBetweenFreehandAndShapes();
    void choosingFromTheListDrawsThatShape();
    void itKeepsClearOfTheOtherControls();
    void itOffersThreeShapes();
    void fillingItAgainDoesNotDoubleIt();
    void itsIconsShowTheShapes_data();
    void itsIconsShowTheShapes();
    void itsIconsAreSmooth_data();
    void itsIconsAreSmooth();
    void eachOfItsControlsHasAnAccessibleName();
    void itsButtonsIconsAreReadableUnderADarkTheme();
    void choosingAShapeSetsTheFramesStyle_data();
    void choosingAShapeSetsTheFramesStyle();
    void shapeModeShowsTheShapesInPlaceOfTheSizes();
    void otherModesShowTheSizesInPlaceOfTheShapes_data();
    void otherModesShowTheSizesInPlaceOfTheShapes();
    void aModeWithoutAButtonLeavesTheButtonsAlone();
};

void ShapeChooserTest::aPaletteHasNoneUntilItIsBuilt()
{
    // Given
    Canvas canvas;

    // When
    const VcAction::Toolbar::PenToolbar palette(&canvas.frame);

    // Then
    QVERIFY(palette.findChildren<QButtonGroup*>().isEmpty());
    QCOMPARE(palette.findChildren<QComboBox*>().size(), 2);
}

void ShapeChooserTest::itBeginsWithTheFramesStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shape");

    QTest::newRow("freehand") << 0 << 0 << "Size"
                              << "stroke";
    QTest::newRow("ellipse") << 1 << 1 << "Shape"
                             << "ellipse";
    QTest::newRow("rectangle") << 2 << 1 << "Shape"
                               << "rectangle";
    QTest::newRow("round rectangle") << 3 << 1 << "Shape"
                                     << "round rectangle";
}

void ShapeChooserTest::itBeginsWithTheFramesStyle()
{
    // Given
    QFETCH(int, style);

    // When
    ShapeTool tool(style);

    // Then
    QTEST(tool.palette.styleButtonGroup->checkedId(), "button");
    QTEST(tool.palette.sizeGroupBox->title(), "title");
    QTEST(tool.drawnShape(), "shape");
}

void ShapeChooserTest::itsButtonsSwitchBetweenFreehandAndShapes()
{
    // Given
    ShapeTool tool;

    // When
    tool.palette.styleButtonGroup->button(1)->click();

    // Then
    QCOMPARE(tool.palette.sizeGroupBox->title(), QString("Shape"));
    QCOMPARE(tool.drawnShape(), QString("ellipse"));

    // When
    tool.palette.styleButtonGroup->button(0)->click();

    // Then
    QCOMPARE(tool.palette.sizeGroupBox->title(), QString("Size"));
    QCOMPARE(tool.drawnShape(), QString("stroke"));
}

void ShapeChooserTest::choosingFromTheListDrawsThatShape()
{
    // Given
    ShapeTool tool;
    tool.palette.styleButtonGroup->button(1)->click();

    // When
    tool.palette.shapeComboBox->setCurrentIndex(2);

    // Then
    QCOMPARE(tool.drawnShape(), QString("round rectangle"));
}

void ShapeChooserTest::itKeepsClearOfTheOtherControls()
{
    // Given
    const ShapeTool tool;

    // When
    const QRect freehand = tool.palette.styleButtonGroup->button(0)->geometry();
    const QRect shapes = tool.palette.styleButtonGroup->button(1)->geometry();

    // Then
    QVERIFY(!freehand.intersects(shapes));
    for (const QWidget* other :
         tool.palette.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool isControl = qobject_cast<const QGroupBox*>(other)
            || qobject_cast<const QCheckBox*>(other) || qobject_cast<const QPushButton*>(other);
        if (isControl)
            QVERIFY(!other->geometry().intersects(freehand | shapes));
    }
    QCOMPARE(tool.palette.shapeComboBox->geometry(), tool.palette.sizeComboBox->geometry());
}

void ShapeChooserTest::itOffersThreeShapes()
{
    // When
    const ShapeTool tool;

    // Then
    const QComboBox& shapes = *tool.palette.shapeComboBox;
    QCOMPARE(shapes.iconSize(), QSize(32, 32));
    QCOMPARE(shapes.count(), 3);
    QCOMPARE(shapes.itemText(0), QString("Ellipse"));
    QCOMPARE(shapes.itemText(1), QString("Rectangle"));
    QCOMPARE(shapes.itemText(2), QString("Round Rect"));
    for (int index = 0; index < 3; ++index)
        QCOMPARE(shapes.itemData(index, Qt::UserRole), QVariant(index + 1));
}

void ShapeChooserTest::fillingItAgainDoesNotDoubleIt()
{
    // Given
    ShapeTool tool;

    // When
    tool.palette.fillShapeCB();
    tool.palette.fillSizeCB();

    // Then
    QCOMPARE(tool.palette.shapeComboBox->count(), 3);
    QCOMPARE(tool.palette.sizeComboBox->count(), 7);
}

void ShapeChooserTest::itsIconsShowTheShapes_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("fillsCorner");
    QTest::addColumn<bool>("fillsNearCorner");

    QTest::newRow("ellipse") << 0 << false << false;
    QTest::newRow("rectangle") << 1 << true << true;
    QTest::newRow("round rectangle") << 2 << false << true;
}

void ShapeChooserTest::itsIconsShowTheShapes()
{
    // Given
    QFETCH(int, index);

    // When
    const ShapeTool tool;

    // Then
    const QImage icon = tool.palette.shapeComboBox->itemIcon(index).pixmap(32, 32).toImage();
    const QRectF ink = TestSupport::inkBox(icon, Qt::transparent);
    QVERIFY(isAbout(ink, QRectF(QRect(QPoint(2, 6), QPoint(29, 25)))));
    QCOMPARE(TestSupport::colourAt(icon, QPoint(15, 15)), QColor(Qt::gray));
    const QPoint topmost = (QPointF(15, ink.top()) * icon.devicePixelRatio()).toPoint();
    QCOMPARE(icon.pixelColor(topmost), QColor(Qt::black));
    QTEST(TestSupport::colourAt(icon, QPoint(2, 6)).alpha() != 0, "fillsCorner");
    QTEST(TestSupport::colourAt(icon, QPoint(5, 7)).alpha() != 0, "fillsNearCorner");
}

void ShapeChooserTest::itsIconsAreSmooth_data()
{
    QTest::addColumn<int>("index");

    QTest::newRow("ellipse") << 0;
    QTest::newRow("round rectangle") << 2;
}

void ShapeChooserTest::itsIconsAreSmooth()
{
    // Given
    QFETCH(int, index);

    // When
    const ShapeTool tool;

    // Then
    const QImage icon = tool.palette.shapeComboBox->itemIcon(index).pixmap(32, 32).toImage();
    int softPixels = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const int alpha = icon.pixelColor(x, y).alpha();
            softPixels += alpha > 0 && alpha < 255 ? 1 : 0;
        }
    }
    QVERIFY(softPixels > 20);
}

void ShapeChooserTest::eachOfItsControlsHasAnAccessibleName()
{
    // When
    const ShapeTool tool;

    // Then
    QCOMPARE(tool.palette.shapeComboBox->accessibleName(), QString("Shape"));
    QCOMPARE(tool.palette.styleButtonGroup->button(0)->accessibleName(), QString("Freehand"));
    QCOMPARE(tool.palette.styleButtonGroup->button(1)->accessibleName(), QString("Shape"));
}

void ShapeChooserTest::itsButtonsIconsAreReadableUnderADarkTheme()
{
    // Given
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(QPalette(QColor(40, 40, 44), QColor(30, 30, 34)));

    // When
    const ShapeTool tool;

    // Then
    for (QAbstractButton* button : tool.palette.styleButtonGroup->buttons().first(2)) {
        QImage picture(button->size(), QImage::Format_ARGB32);
        picture.fill(Qt::white);
        button->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        QVERIFY(picture.pixelColor(4, 4).lightness() > 150);
    }
    QApplication::setPalette(QPalette());
}

void ShapeChooserTest::choosingAShapeSetsTheFramesStyle_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("shape");

    QTest::newRow("ellipse") << 0 << "ellipse";
    QTest::newRow("rectangle") << 1 << "rectangle";
    QTest::newRow("round rectangle") << 2 << "round rectangle";
}

void ShapeChooserTest::choosingAShapeSetsTheFramesStyle()
{
    // Given
    QFETCH(int, index);
    ShapeTool tool;

    // When
    tool.palette.updateShape(index);

    // Then
    QTEST(tool.drawnShape(), "shape");
}

void ShapeChooserTest::shapeModeShowsTheShapesInPlaceOfTheSizes()
{
    // Given
    ShapeTool tool;
    tool.palette.shapeComboBox->setCurrentIndex(1);

    // When
    tool.palette.chooseStyle(1);

    // Then
    QCOMPARE(tool.palette.styleButtonGroup->checkedId(), 1);
    QVERIFY(tool.palette.shapeComboBox->isEnabled());
    QVERIFY(!tool.palette.shapeComboBox->isHidden());
    QVERIFY(!tool.palette.sizeComboBox->isEnabled());
    QVERIFY(tool.palette.sizeComboBox->isHidden());
    QCOMPARE(tool.palette.sizeGroupBox->title(), QString("Shape"));
    QCOMPARE(tool.drawnShape(), QString("rectangle"));
}

void ShapeChooserTest::otherModesShowTheSizesInPlaceOfTheShapes_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("shape");

    QTest::newRow("freehand") << 0 << "stroke";
    QTest::newRow("style 2") << 2 << "rectangle";
    QTest::newRow("style 3") << 3 << "round rectangle";
}

void ShapeChooserTest::otherModesShowTheSizesInPlaceOfTheShapes()
{
    // Given
    QFETCH(int, style);
    ShapeTool tool;
    tool.palette.chooseStyle(1);

    // When
    tool.palette.chooseStyle(style);

    // Then
    QCOMPARE(tool.palette.styleButtonGroup->checkedId(), style);
    QVERIFY(!tool.palette.shapeComboBox->isEnabled());
    QVERIFY(tool.palette.shapeComboBox->isHidden());
    QVERIFY(tool.palette.sizeComboBox->isEnabled());
    QVERIFY(!tool.palette.sizeComboBox->isHidden());
    QCOMPARE(tool.palette.sizeGroupBox->title(), QString("Size"));
    QTEST(tool.drawnShape(), "shape");
}

void ShapeChooserTest::aModeWithoutAButtonLeavesTheButtonsAlone()
{
    // Given
    ShapeTool tool;
    tool.palette.chooseStyle(0);

    // When
    tool.palette.chooseStyle(77);

    // Then
    QCOMPARE(tool.palette.styleButtonGroup->checkedId(), 0);
    QCOMPARE(tool.canvas.frame.penStyle(), 77);
}

REGISTER_TEST(ShapeChooserTest, QApplication)
#include "shapechoosertest.moc"

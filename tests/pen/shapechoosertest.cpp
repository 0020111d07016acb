#include "action/widget/vccombobox.h"
#include "action/widget/vcgroupbox.h"
#include "pen/pentoolbar.h"
#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

using namespace PenTest;

namespace {

/// A palette that has the shape chooser, as a tool with shapes would derive it.
class ShapePalette : public VcAction::Toolbar::PenToolbar {
public:
    explicit ShapePalette(VcAction::Frame::PenFrame& frame)
        : PenToolbar(&frame)
    {
        shapeComboBox = new QComboBox(sizeGroupBox);
        styleButtonGroup = new QButtonGroup(this);
        for (int style = 0; style <= 3; ++style)
            styleButtonGroup->addButton(new QRadioButton(this), style);
        fillShapeCB();
        shapeComboBox->hide();
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

    Canvas canvas{4, Qt::red};
    ShapePalette palette{canvas.frame};
};

}

class ShapeChooserTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void itOffersThreeShapes();
    void fillingItAgainDoesNotDoubleIt();
    void itsIconsShowTheShapes_data();
    void itsIconsShowTheShapes();
    void choosingAShapeSetsTheFramesStyle_data();
    void choosingAShapeSetsTheFramesStyle();
    void shapeModeShowsTheShapesInPlaceOfTheSizes();
    void otherModesShowTheSizesInPlaceOfTheShapes_data();
    void otherModesShowTheSizesInPlaceOfTheShapes();
};

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

QTEST_MAIN(ShapeChooserTest)
#include "shapechoosertest.moc"

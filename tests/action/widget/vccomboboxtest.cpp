#include "action/widget/vccombobox.h"
#include "tests/support/images.h"
#include "tests/support/offscreenwarnings.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QTest>
#include <QtMath>

#include <memory>

using namespace TestSupport;
using VcAction::Widget::VcComboBox;

namespace {

const QColor border(255, 80, 0);

QPixmap plainIcon(QSize size, const QColor& colour)
{
    QPixmap icon(size);
    icon.fill(colour);
    return icon;
}

/// A box as on a palette, with entries that are told apart by their icons.
struct BoxInWindow {
    BoxInWindow()
    {
        box.setFixedSize(71, 51);
        box.setIconSize(QSize(35, 35));
    }

    void add(const QColor& colour, const QString& text, const QVariant& data)
    {
        box.addItem(plainIcon(QSize(35, 35), colour), text, data);
    }

    /// The list as it opens.
    QImage openList()
    {
        window.show();
        expectRoundedListWarnings();
        box.showPopup();
        return painted(*box.view()->window());
    }

    QWidget window;
    VcComboBox box{&window};
};

/// The area that is exactly of a colour, in logical pixels.
QRectF areaOf(const QImage& image, const QColor& colour)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                area |= QRect(x, y, 1, 1);
        }
    }
    const qreal ratio = image.devicePixelRatio();
    return {QPointF(area.topLeft()) / ratio, QSizeF(area.size()) / ratio};
}

}

class VcComboBoxTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void anIconIsInTheMiddleOfItsField_data();
    void anIconIsInTheMiddleOfItsField();
    void aBoxWithRoomForItShowsTheTextToo();
    void aWhiteSwatchHasAnEdge();
    void anIconThatIsNoSwatchHasNone();
    void aWhiteSwatchHasAnEdgeInTheList();
    void aSelectedSwatchKeepsItsColour();
    void anOpenListHasNoGreyCorners();
    void anOpenListsBorderIsRounded();
    void anOpenListIsWideEnoughForItsEntries_data();
    void anOpenListIsWideEnoughForItsEntries();
    void theListIsCalledWhatTheBoxIs();

private:
    Images images;
};

void VcComboBoxTest::initTestCase()
{
    QVERIFY(images.areThere());
    QApplication::setStyle(QStyleFactory::create("Fusion"));
}

void VcComboBoxTest::anIconIsInTheMiddleOfItsField_data()
{
    QTest::addColumn<QSize>("iconSize");

    QTest::newRow("disc") << QSize(32, 32);
    QTest::newRow("swatch") << QSize(35, 35);
}

void VcComboBoxTest::anIconIsInTheMiddleOfItsField()
{
    // Given
    QFETCH(QSize, iconSize);
    const QColor colour(1, 2, 254);
    BoxInWindow in;
    in.box.setIconSize(iconSize);
    in.box.addItem(plainIcon(iconSize, colour), "x", 8);

    // When
    const QRectF icon = areaOf(painted(in.box), colour);

    // Then
    const QRectF field(1, 1, 51, 49);
    QCOMPARE(icon.size(), QSizeF(iconSize));
    QVERIFY(qAbs(icon.center().x() - field.center().x()) <= 0.5);
    QVERIFY(qAbs(icon.center().y() - field.center().y()) <= 0.5);
}

void VcComboBoxTest::aBoxWithRoomForItShowsTheTextToo()
{
    // Given
    BoxInWindow in;
    in.add(Qt::blue, QString(), 1);
    in.box.setFixedSize(160, 51);
    const QImage without = painted(in.box);

    // When
    in.box.setItemText(0, "Text");

    // Then
    QVERIFY(!differingBox(without, painted(in.box)).isEmpty());
}

void VcComboBoxTest::aWhiteSwatchHasAnEdge()
{
    // Given
    BoxInWindow in;

    // When
    in.add(Qt::white, "White", QColor(Qt::white));

    // Then
    const QImage picture = painted(in.box);
    QCOMPARE(colourAt(picture, QPoint(26, 25)), QColor(Qt::white));
    for (const QPoint edge : {QPoint(9, 25), QPoint(43, 25), QPoint(26, 8), QPoint(26, 42)})
        QVERIFY(colourAt(picture, edge).lightness() < 200);
}

void VcComboBoxTest::anIconThatIsNoSwatchHasNone()
{
    // Given
    BoxInWindow in;

    // When
    in.add(Qt::white, "White", 8);

    // Then
    const QImage picture = painted(in.box);
    QCOMPARE(colourAt(picture, QPoint(9, 25)), QColor(Qt::white));
}

void VcComboBoxTest::aWhiteSwatchHasAnEdgeInTheList()
{
    // Given
    BoxInWindow in;
    in.add(Qt::blue, "Blue", QColor(Qt::blue));
    in.add(Qt::white, "White", QColor(Qt::white));

    // When
    const QImage list = in.openList();

    // Then
    const QRectF blue = areaOf(list, Qt::blue);
    const int rowHeight = in.box.view()->visualRect(in.box.model()->index(1, 0)).top()
        - in.box.view()->visualRect(in.box.model()->index(0, 0)).top();
    const int row = qFloor(blue.center().y()) + rowHeight;
    QCOMPARE(colourAt(list, QPoint(qFloor(blue.center().x()), row)), QColor(Qt::white));
    QVERIFY(colourAt(list, QPoint(qFloor(blue.left()) - 1, row)).lightness() < 200);
    QVERIFY(colourAt(list, QPoint(qCeil(blue.right()), row)).lightness() < 200);
}

void VcComboBoxTest::aSelectedSwatchKeepsItsColour()
{
    // Given
    BoxInWindow in;
    in.add(Qt::yellow, "Yellow", QColor(Qt::yellow));
    in.add(Qt::blue, "Blue", QColor(Qt::blue));

    // When
    const QImage list = in.openList();

    // Then
    QCOMPARE(in.box.view()->currentIndex().row(), 0);
    QVERIFY(areaOf(list, Qt::yellow).height() > 30);
}

void VcComboBoxTest::anOpenListHasNoGreyCorners()
{
    // Given
    BoxInWindow in;
    in.add(Qt::yellow, "Yellow", QColor(Qt::yellow));

    // When
    const QImage list = in.openList();

    // Then
    const QSize size = in.box.view()->window()->size();
    const QRegion shown = in.box.view()->window()->mask();
    QVERIFY(!shown.isEmpty());
    const QRegion corners =
        QRegion(QRect(QPoint(), size)) - QRect(3, 3, size.width() - 6, size.height() - 6);
    const int ratio = qRound(list.devicePixelRatio());
    for (const QRect& part : corners& shown) {
        for (int y = part.top() * ratio; y < (part.bottom() + 1) * ratio; ++y) {
            for (int x = part.left() * ratio; x < (part.right() + 1) * ratio; ++x)
                QVERIFY(areClose(list.pixelColor(x, y), border, 2));
        }
    }
}

void VcComboBoxTest::anOpenListsBorderIsRounded()
{
    // Given
    BoxInWindow in;
    in.add(Qt::yellow, "Yellow", QColor(Qt::yellow));

    // When
    (void)in.openList();

    // Then
    const QWidget& list = *in.box.view()->window();
    const QRegion shown = list.mask();
    QCOMPARE(shown.boundingRect(), list.rect());
    for (const QPoint corner : {list.rect().topLeft(), list.rect().topRight(),
                                list.rect().bottomLeft(), list.rect().bottomRight()})
        QVERIFY(!shown.contains(corner));
    QVERIFY(shown.contains(QPoint(0, 5)));
    QVERIFY(shown.contains(QPoint(5, 0)));
}

void VcComboBoxTest::anOpenListIsWideEnoughForItsEntries_data()
{
    QTest::addColumn<QString>("style");

    QTest::newRow("list over the box") << "Fusion";
    QTest::newRow("list below the box") << "Windows";
}

void VcComboBoxTest::anOpenListIsWideEnoughForItsEntries()
{
    // Given
    QFETCH(QString, style);
    const std::unique_ptr<QStyle> boxStyle(QStyleFactory::create(style));
    BoxInWindow in;
    in.box.setStyle(boxStyle.get());
    in.add(Qt::yellow, "A name longer than the box", QColor(Qt::yellow));

    // When
    (void)in.openList();

    // Then
    const QModelIndex entry = in.box.model()->index(0, 0);
    QVERIFY(in.box.view()->viewport()->width() >= in.box.view()->sizeHintForIndex(entry).width());
}

void VcComboBoxTest::theListIsCalledWhatTheBoxIs()
{
    // Given
    BoxInWindow in;
    in.box.setAccessibleName("Size");
    in.add(Qt::yellow, "Yellow", QColor(Qt::yellow));

    // When
    (void)in.openList();

    // Then
    QCOMPARE(in.box.view()->accessibleName(), QString("Size"));
}

REGISTER_TEST(VcComboBoxTest, QApplication)
#include "vccomboboxtest.moc"

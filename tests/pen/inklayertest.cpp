#include "pen/inklayer.h"

#include "pen/stroke.h"
#include "tests/support/pixels.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace VcAction::Frame;

namespace {

constexpr QSize layerSize(200, 160);

/// A layer over nothing, as on the live desktop.
class Board {
public:
    explicit Board(int style = Freehand, bool transparent = false)
    {
        layer.setStyle(style);
        layer.setColor(Qt::red);
        layer.setWidth(10);
        layer.setTransparency(transparent);
    }

    void draw(const QList<QPointF>& points)
    {
        layer.begin(points.first());
        for (const QPointF point : points.mid(1))
            layer.moveTo(point);
        layer.end();
    }

    [[nodiscard]] QImage picture() const
    {
        QImage image(layerSize * ratio(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio());
        image.fill(Qt::transparent);
        QPainter painter(&image);
        layer.paint(painter);
        painter.end();
        return image;
    }
    [[nodiscard]] QColor at(int x, int y) const
    {
        return TestSupport::colourAt(picture(), QPoint(x, y));
    }

    static qreal ratio() { return qApp->devicePixelRatio(); }

    InkLayer layer{layerSize, ratio()};
};

bool isHalf(const QColor& colour, const QColor& ink)
{
    return TestSupport::areClose(colour, QColor(ink.red(), ink.green(), ink.blue(), 128), 2);
}

/// Whether two pictures cover the same pixels, but for those at the edges of what is drawn.
int differencesInside(const QImage& one, const QImage& other)
{
    int differences = 0;
    for (int y = 1; y + 1 < one.height(); ++y) {
        for (int x = 1; x + 1 < one.width(); ++x) {
            const QRgb here = one.pixel(x, y);
            const bool isInside = here == one.pixel(x - 1, y) && here == one.pixel(x + 1, y)
                && here == one.pixel(x, y - 1) && here == one.pixel(x, y + 1);
            if (isInside && here != other.pixel(x, y))
                ++differences;
        }
    }
    return differences;
}

}

class InkLayerTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }

    void itIsTransparentAtFirst();
    void aStrokeStays();
    void aPressAloneLeavesADot();
    void aHalfTransparentStrokeIsOfOneOpacityWhereItCrossesItself();
    void laterStrokesBlendWithEarlierOnes();
    void aShapeIsTheSameWhicheverWayItIsDragged_data();
    void aShapeIsTheSameWhicheverWayItIsDragged();
    void theShapeUnderWayCoversWhatItLeaves_data() { addShapes(); }
    void theShapeUnderWayCoversWhatItLeaves();
    void aHalfTransparentShapeBlendsOnce_data() { addShapes(); }
    void aHalfTransparentShapeBlendsOnce();
    void aRoundRectangleTakesThePlaceOfTheInkBelow();
    void whatIsToBeRepaintedCoversAllThatChanges_data();
    void whatIsToBeRepaintedCoversAllThatChanges();
    void movesWithoutAPressDrawNothing();
    void aLostReleaseLosesNothing();
    void aNewStyleWaitsForTheNextPress();

private:
    static void addShapes();
};

void InkLayerTest::addShapes()
{
    QTest::addColumn<int>("style");

    QTest::newRow("ellipse") << int(Ellipse);
    QTest::newRow("rectangle") << int(Rectangle);
    QTest::newRow("round rectangle") << int(RoundRect);
}

void InkLayerTest::itIsTransparentAtFirst()
{
    QVERIFY(TestSupport::inkBox(Board().picture(), Qt::transparent).isEmpty());
}

void InkLayerTest::aStrokeStays()
{
    Board board;

    board.draw({{30, 30}, {90, 30}, {90, 80}});
    board.draw({{20, 120}, {150, 120}});

    QCOMPARE(board.at(60, 30), QColor(Qt::red));
    QCOMPARE(board.at(90, 60), QColor(Qt::red));
    QCOMPARE(board.at(100, 120), QColor(Qt::red));
    QCOMPARE(board.at(60, 60).alpha(), 0);
}

void InkLayerTest::aPressAloneLeavesADot()
{
    Board board;

    board.draw({{50, 50}});

    QCOMPARE(board.at(50, 50), QColor(Qt::red));
    QCOMPARE(board.at(53, 50), QColor(Qt::red));
    QCOMPARE(board.at(57, 50).alpha(), 0);
}

void InkLayerTest::aHalfTransparentStrokeIsOfOneOpacityWhereItCrossesItself()
{
    Board board(Freehand, true);

    board.draw({{30, 50}, {100, 50}, {100, 90}, {60, 90}, {60, 20}});

    QVERIFY(isHalf(board.at(40, 50), Qt::red));
    QVERIFY(isHalf(board.at(60, 50), Qt::red));
    QVERIFY(isHalf(board.at(100, 50), Qt::red));
}

void InkLayerTest::laterStrokesBlendWithEarlierOnes()
{
    Board board(Freehand, true);
    board.draw({{30, 50}, {100, 50}});

    board.layer.setColor(Qt::blue);
    board.draw({{60, 20}, {60, 90}});

    const QColor crossing = board.at(60, 50);
    QVERIFY(TestSupport::areClose(crossing, QColor(85, 0, 170, 191), 3));
}

void InkLayerTest::aShapeIsTheSameWhicheverWayItIsDragged_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");

    const QList<QPair<QPointF, QPointF>> directions = {{{40, 40}, {140, 100}},
                                                       {{140, 100}, {40, 40}},
                                                       {{140, 40}, {40, 100}},
                                                       {{40, 100}, {140, 40}}};
    for (const int style : {Ellipse, Rectangle, RoundRect}) {
        for (const auto& [from, to] : directions)
            QTest::addRow("style %d from %g,%g", style, from.x(), from.y()) << style << from << to;
    }
}

void InkLayerTest::aShapeIsTheSameWhicheverWayItIsDragged()
{
    // Given
    QFETCH(int, style);
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    Board board(style);

    // When
    board.draw({from, QPointF(90, 20), to});

    // Then
    const QRectF box = TestSupport::inkBox(board.picture(), Qt::transparent);
    QVERIFY(QRectF(39, 39, 103, 63).contains(box));
    QVERIFY(box.contains(QRectF(42, 42, 97, 57)));
    QCOMPARE(board.at(90, 70), QColor(Qt::red));
    QCOMPARE(board.at(41, 41).alpha() == 0, style != Rectangle);
    QCOMPARE(board.at(52, 45).alpha() == 0, style == Ellipse);
}

void InkLayerTest::theShapeUnderWayCoversWhatItLeaves()
{
    // Given
    QFETCH(int, style);
    Board board(style, true);
    board.layer.begin({40, 40});
    board.layer.moveTo({140, 100});
    const QImage preview = board.picture();

    // When
    board.layer.end();

    // Then
    QVERIFY(!TestSupport::inkBox(preview, Qt::transparent).isEmpty());
    QCOMPARE(differencesInside(preview, board.picture()), 0);
}

void InkLayerTest::aHalfTransparentShapeBlendsOnce()
{
    // Given
    QFETCH(int, style);
    Board board(style, true);
    board.layer.begin({40, 40});
    for (int step = 0; step < 20; ++step)
        board.layer.moveTo({60.0 + step * 4, 60.0 + step * 2});
    const QColor before = board.at(90, 70);

    // When
    board.layer.end();

    // Then
    QVERIFY(isHalf(before, Qt::red));
    QVERIFY(isHalf(board.at(90, 70), Qt::red));
}

void InkLayerTest::aRoundRectangleTakesThePlaceOfTheInkBelow()
{
    // Given
    Board board(Rectangle);
    board.layer.setColor(Qt::blue);
    board.draw({{20, 20}, {160, 140}});
    board.layer.setStyle(RoundRect);
    board.layer.setTransparency(true);
    board.layer.setColor(Qt::red);

    // When
    board.draw({{60, 60}, {120, 100}});

    // Then
    QVERIFY(isHalf(board.at(90, 80), Qt::red));
    QCOMPARE(board.at(30, 30), QColor(Qt::blue));
}

void InkLayerTest::whatIsToBeRepaintedCoversAllThatChanges_data()
{
    QTest::addColumn<int>("style");

    for (const int style : {Freehand, Ellipse, Rectangle, RoundRect})
        QTest::addRow("style %d", style) << style;
}

void InkLayerTest::whatIsToBeRepaintedCoversAllThatChanges()
{
    // Given
    QFETCH(int, style);
    Board board(style, true);
    QImage before = board.picture();
    QRegion told;
    QStringList missed;
    const auto check = [&](const QRegion& region, const char* step) {
        const QImage now = board.picture();
        const QRect changed = TestSupport::differingBox(before, now);
        const QRectF logical(QPointF(changed.topLeft()) / Board::ratio(),
                             QSizeF(changed.size()) / Board::ratio());
        if (changed.isValid() && !QRectF(region.boundingRect()).contains(logical))
            missed << step;
        before = now;
    };

    // When
    check(board.layer.begin({100, 80}), "press");
    for (const QPointF point :
         {QPointF(150, 120), QPointF(60, 140), QPointF(20, 20), QPointF(101, 79), QPointF(130, 30)})
        check(board.layer.moveTo(point), "move");
    check(board.layer.end(), "release");

    // Then
    QCOMPARE(missed, QStringList());
}

void InkLayerTest::movesWithoutAPressDrawNothing()
{
    Board board;

    const QRegion moved = board.layer.moveTo({50, 50});
    const QRegion ended = board.layer.end();

    QVERIFY(moved.isEmpty());
    QVERIFY(ended.isEmpty());
    QVERIFY(TestSupport::inkBox(board.picture(), Qt::transparent).isEmpty());
}

void InkLayerTest::aLostReleaseLosesNothing()
{
    Board board(Rectangle);
    board.layer.begin({20, 20});
    board.layer.moveTo({60, 60});

    board.draw({{100, 100}, {140, 140}});

    QCOMPARE(board.at(40, 40), QColor(Qt::red));
    QCOMPARE(board.at(120, 120), QColor(Qt::red));
}

void InkLayerTest::aNewStyleWaitsForTheNextPress()
{
    Board board;
    board.layer.begin({20, 20});
    board.layer.moveTo({150, 20});

    board.layer.setStyle(Rectangle);
    board.layer.moveTo({150, 120});
    board.layer.end();

    QCOMPARE(board.at(80, 20), QColor(Qt::red));
    QCOMPARE(board.at(80, 70).alpha(), 0);
}

REGISTER_TEST(InkLayerTest, QApplication)
#include "inklayertest.moc"

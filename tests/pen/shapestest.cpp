#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace PenTest;
using TestSupport::areClose;

namespace {

/// Whether a pixel and all around it are of one colour.
bool isAmidOneColour(const QImage& image, int x, int y)
{
    const QRgb colour = image.pixel(x, y);
    for (int dy = -2; dy <= 2; ++dy) {
        for (int dx = -2; dx <= 2; ++dx) {
            if (image.pixel(x + dx, y + dy) != colour)
                return false;
        }
    }
    return true;
}

/// Whether pixels that differ lie at the edges of what both images show.
bool showTheSameShape(const QImage& first, const QImage& second)
{
    for (int y = 2; y < first.height() - 2; ++y) {
        for (int x = 2; x < first.width() - 2; ++x) {
            if (first.pixel(x, y) == second.pixel(x, y))
                continue;
            if (isAmidOneColour(first, x, y) || isAmidOneColour(second, x, y))
                return false;
        }
    }
    return true;
}

}

class ShapesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aShapeIsCommittedAsItWasShown_data();
    void aShapeIsCommittedAsItWasShown();
    void everyStyleHasItsShape_data();
    void everyStyleHasItsShape();
    void onlyTheCommittedShapeIsSmooth();
    void aShapeHasNoOutline();
    void aHalfTransparentShapeBlendsOnce_data();
    void aHalfTransparentShapeBlendsOnce();
    void aRoundRectangleShowsOnlyOnWhatIsThere();
    void aShapeFollowsThePointerWithoutATrace();
    void aShapeReachesThePictureOnReleaseOnly();
    void betweenShapesNothingIsShown();
    void aClickLeavesOnePixel();
    void aReleaseWithoutAPressLeavesNothing();
    void aShapeLeavesTheBackgroundsSwitchAlone();
    void anUnknownStyleDrawsALineInsideTheShapesBox();
};

void ShapesTest::aShapeIsCommittedAsItWasShown_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QRectF>("ink");

    const QList<std::pair<const char*, int>> styles{
        {"ellipse", Ellipse}, {"rectangle", Rectangle}, {"round rectangle", RoundRect}};
    for (const auto& [name, style] : styles) {
        QTest::addRow("%s, right and down", name)
            << style << QPointF(210, 160) << QRectF(150, 120, 61, 41);
        QTest::addRow("%s, left and down", name)
            << style << QPointF(90, 160) << QRectF(91, 120, 59, 41);
        QTest::addRow("%s, right and up", name)
            << style << QPointF(210, 80) << QRectF(150, 81, 61, 39);
        QTest::addRow("%s, left and up", name)
            << style << QPointF(90, 80) << QRectF(91, 81, 59, 39);
    }
}

void ShapesTest::aShapeIsCommittedAsItWasShown()
{
    // Given
    QFETCH(int, style);
    QFETCH(QPointF, to);
    QFETCH(QRectF, ink);
    Canvas canvas(10, Qt::red, style);
    QVERIFY(canvas.show());

    // When
    canvas.press({150, 120});
    canvas.moveTo(to);
    const QImage shown = canvas.screen();
    canvas.release(to);

    // Then
    QVERIFY(isAbout(TestSupport::inkBox(shown, paper), ink));
    QVERIFY(isAbout(canvas.inkInPicture(), ink));
    QVERIFY(showTheSameShape(shown, canvas.picture()));
    const QPoint middle = ink.toRect().center();
    QCOMPARE(canvas.inPicture(middle.x(), middle.y()), QColor(Qt::red));
}

void ShapesTest::everyStyleHasItsShape_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("fillsCorner");
    QTest::addColumn<bool>("fillsNearCorner");

    QTest::newRow("ellipse") << int(Ellipse) << false << false;
    QTest::newRow("rectangle") << int(Rectangle) << true << true;
    QTest::newRow("round rectangle") << int(RoundRect) << false << true;
}

void ShapesTest::everyStyleHasItsShape()
{
    // Given
    QFETCH(int, style);
    Canvas canvas(10, Qt::red, style);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{100, 100}, {220, 180}});

    // Then
    QTEST(canvas.inPicture(101, 101) == QColor(Qt::red), "fillsCorner");
    QTEST(canvas.inPicture(108, 106) == QColor(Qt::red), "fillsNearCorner");
    QCOMPARE(canvas.inPicture(160, 101), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(101, 140), QColor(Qt::red));
}

void ShapesTest::onlyTheCommittedShapeIsSmooth()
{
    // Given
    Canvas canvas(10, Qt::red, Ellipse);
    QVERIFY(canvas.show());
    const auto isMixed = [](const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour != paper && colour != QColor(Qt::red))
                    return true;
            }
        }
        return false;
    };

    // When
    canvas.press({100, 100});
    canvas.moveTo({221, 177});
    const QImage shown = canvas.screen();
    canvas.release({221, 177});

    // Then
    QVERIFY(!isMixed(shown));
    QVERIFY(isMixed(canvas.picture()));
}

void ShapesTest::aShapeHasNoOutline()
{
    // Given
    Canvas canvas(30, Qt::red, Rectangle);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{100, 100}, {150, 150}});

    // Then
    QVERIFY(isAbout(canvas.inkInPicture(), QRectF(100, 100, 51, 51)));
}

void ShapesTest::aHalfTransparentShapeBlendsOnce_data()
{
    QTest::addColumn<int>("style");

    QTest::newRow("ellipse") << int(Ellipse);
    QTest::newRow("rectangle") << int(Rectangle);
}

void ShapesTest::aHalfTransparentShapeBlendsOnce()
{
    // Given
    QFETCH(int, style);
    Canvas canvas(10, Qt::red, style, true);
    QVERIFY(canvas.show());

    // When
    canvas.press({100, 100});
    canvas.moveTo({200, 200});
    canvas.frame.repaint();
    const QColor shown = canvas.onScreen(150, 150);
    canvas.release({200, 200});

    // Then
    QVERIFY(areClose(shown, QColor(255, 127, 127), 1));
    QVERIFY(areClose(canvas.inPicture(150, 150), QColor(255, 127, 127), 1));
}

void ShapesTest::aRoundRectangleShowsOnlyOnWhatIsThere()
{
    // Given
    Canvas canvas(10, Qt::red, RoundRect);
    QImage device(200, 200, QImage::Format_ARGB32_Premultiplied);
    device.fill(Qt::transparent);
    QPainter(&device).fillRect(QRect(0, 0, 100, 200), paper);

    // When
    canvas.press({20, 20});
    canvas.moveTo({180, 180});
    canvas.frame.draw(&device);

    // Then
    QCOMPARE(device.pixelColor(60, 100), QColor(Qt::red));
    QCOMPARE(device.pixelColor(140, 100).alpha(), 0);
}

void ShapesTest::aShapeFollowsThePointerWithoutATrace()
{
    // Given
    Canvas canvas(10, Qt::red, Rectangle);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{100, 100}, {250, 250}, {50, 60}, {120, 130}});

    // Then
    QVERIFY(isAbout(canvas.inkInPicture(), QRectF(100, 100, 21, 31)));
    QCOMPARE(TestSupport::differingBox(canvas.screen(), canvas.picture()), QRect());
}

void ShapesTest::aShapeReachesThePictureOnReleaseOnly()
{
    // Given
    Canvas canvas(10, Qt::red, RoundRect);
    QVERIFY(canvas.show());

    // When
    canvas.press({100, 100});
    canvas.moveTo({150, 150});

    // Then
    QVERIFY(canvas.inkInPicture().isEmpty());
    QCOMPARE(canvas.onScreen(125, 125), QColor(Qt::red));
}

void ShapesTest::betweenShapesNothingIsShown()
{
    // Given
    Canvas canvas(10, Qt::red, Ellipse);
    QVERIFY(canvas.show());

    // When
    canvas.hoverTo({100, 100});
    canvas.hoverTo({120, 120});

    // Then
    QVERIFY(canvas.inkOnScreen().isEmpty());
}

void ShapesTest::aClickLeavesOnePixel()
{
    // Given
    Canvas canvas(10, Qt::red, Rectangle);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{100, 100}});

    // Then
    QCOMPARE(canvas.inkInPicture(), QRectF(100, 100, 1, 1));
}

void ShapesTest::aReleaseWithoutAPressLeavesNothing()
{
    // Given
    Canvas canvas(10, Qt::red, Rectangle);
    QVERIFY(canvas.show());
    canvas.hoverTo({100, 100});
    canvas.hoverTo({150, 150});

    // When
    canvas.release({150, 150});

    // Then
    QVERIFY(canvas.inkInPicture().isEmpty());
}

void ShapesTest::aShapeLeavesTheBackgroundsSwitchAlone()
{
    // Given
    Canvas canvas(10, Qt::red, Rectangle);
    canvas.frame.setDrawBack(false);

    // When
    canvas.draw({{100, 100}, {150, 150}});

    // Then
    QVERIFY(!canvas.frame.getDrawBack());
}

void ShapesTest::anUnknownStyleDrawsALineInsideTheShapesBox()
{
    // Given
    Canvas canvas(20, Qt::red, 5);
    QVERIFY(canvas.show());

    // When
    canvas.press({100, 100});
    canvas.moveTo({200, 120});
    canvas.moveTo({200, 200});
    const QImage shown = canvas.screen();
    canvas.release({200, 200});

    // Then
    for (const QImage& image : {shown, canvas.picture()}) {
        QCOMPARE(TestSupport::colourAt(image, QPoint(195, 160)), QColor(Qt::red));
        QCOMPARE(TestSupport::colourAt(image, QPoint(205, 160)), paper);
        QCOMPARE(TestSupport::colourAt(image, QPoint(150, 110)), paper);
        QCOMPARE(TestSupport::colourAt(image, QPoint(195, 205)), paper);
        QVERIFY(isAbout(TestSupport::inkBox(image, paper), QRectF(190, 110, 11, 91)));
    }
    canvas.hoverTo({250, 250});
    QCOMPARE(TestSupport::differingBox(canvas.screen(), canvas.picture()), QRect());
}

REGISTER_TEST(ShapesTest, QApplication)
#include "shapestest.moc"

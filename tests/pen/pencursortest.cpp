#include "action/toolbar/actiontoolbar.h"
#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/images.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QBitmap>
#include <QRegularExpression>
#include <QTest>

using namespace TestSupport;
using PenTest::Canvas;

namespace {

QImage penImage(const char* name)
{
    const QString variant = qApp->devicePixelRatio() > 1 ? "@2x.png" : ".png";
    const QImage image(":/resource/action/pen/Img/" + (name + variant));
    return image.convertToFormat(QImage::Format_ARGB32);
}

QImage shown(const QCursor& cursor)
{
    return cursor.pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
}

/// How many pixels of a cursor are not as the two images and the pen's colour make them.
struct Findings {
    int seenThrough = 0;
    int coloured = 0;
    int wrong = 0;
};

Findings compare(const QImage& cursor, const QColor& colour)
{
    const QImage shape = penImage("pointerMul");
    const QImage mask = QPixmap::fromImage(shape).mask().toImage();
    const QImage top = penImage("pointerTop");
    Findings findings;
    for (int y = 0; y < cursor.height(); ++y) {
        for (int x = 0; x < cursor.width(); ++x) {
            const QColor pixel = cursor.pixelColor(x, y);
            const int shapeAlpha = shape.pixelColor(x, y).alpha();
            const int topAlpha = top.pixelColor(x, y).alpha();
            if (mask.pixelIndex(x, y) == 0) {
                ++findings.seenThrough;
                findings.wrong += pixel.alpha() != 0;
            } else if (shapeAlpha == 255 && topAlpha == 0) {
                ++findings.coloured;
                findings.wrong += pixel != colour;
            } else if (shapeAlpha == 255 && topAlpha == 255) {
                findings.wrong += pixel != top.pixelColor(x, y);
            }
        }
    }
    return findings;
}

}

class PenCursorTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { takeOverrideCursors(); }

    void itIsThePensImageInThePensColour_data();
    void itIsThePensImageInThePensColour();
    void itsHotSpotIsThePensTip();
    void itIsPushedOnConstructionAndWithEachColour();
    void aSizeOrStylePushesNone();
    void aPressPushesItWithoutMakingANewOne();
    void overThePaletteItIsNotPushed();
    void withoutImagesThePenStillDraws();
};

void PenCursorTest::itIsThePensImageInThePensColour_data()
{
    QTest::addColumn<QColor>("colour");

    QTest::newRow("yellow") << QColor(255, 255, 0);
    QTest::newRow("black") << QColor(Qt::black);
    QTest::newRow("some colour") << QColor(12, 34, 56);
}

void PenCursorTest::itIsThePensImageInThePensColour()
{
    // Given
    QFETCH(QColor, colour);
    Images images;
    QVERIFY(images.areThere());
    Canvas canvas(20, Qt::red);

    // When
    canvas.frame.setPen(colour);

    // Then
    const QImage cursor = shown(takeOverrideCursors().first());
    QCOMPARE(cursor.deviceIndependentSize(), QSizeF(32, 32));
    const Findings findings = compare(cursor, colour);
    QVERIFY(findings.seenThrough > 0);
    QVERIFY(findings.coloured > 0);
    QCOMPARE(findings.wrong, 0);
}

void PenCursorTest::itsHotSpotIsThePensTip()
{
    Images images;

    const Canvas canvas;

    QCOMPARE(takeOverrideCursors().first().hotSpot(), QPoint(6, 29));
}

void PenCursorTest::itIsPushedOnConstructionAndWithEachColour()
{
    // Given
    Images images;

    // When
    Canvas canvas;

    // Then
    QCOMPARE(takeOverrideCursors().size(), 1);

    // When
    canvas.frame.setPen(Qt::blue);
    canvas.frame.setPen(Qt::green);

    // Then
    const QList<QCursor> pushed = takeOverrideCursors();
    QCOMPARE(pushed.size(), 2);
    QVERIFY(!lookAlike(pushed.at(0), pushed.at(1)));
}

void PenCursorTest::aSizeOrStylePushesNone()
{
    // Given
    Canvas canvas;
    takeOverrideCursors();

    // When
    canvas.frame.setPenSize(30);
    canvas.frame.setStyle(PenTest::Ellipse);
    canvas.frame.setTransparency(true);

    // Then
    QVERIFY(takeOverrideCursors().isEmpty());
}

void PenCursorTest::aPressPushesItWithoutMakingANewOne()
{
    // Given
    Images images;
    Canvas canvas;
    const QCursor first = takeOverrideCursors().first();

    // When
    for (int round = 0; round < 5; ++round)
        canvas.draw({{50, 50}, {60, 60}});

    // Then
    const QList<QCursor> pushed = takeOverrideCursors();
    QCOMPARE(pushed.size(), 5);
    for (const QCursor& cursor : pushed) {
        QVERIFY(areSameObject(cursor, first));
        QCOMPARE(cursor.pixmap().cacheKey(), first.pixmap().cacheKey());
    }
}

void PenCursorTest::overThePaletteItIsNotPushed()
{
    // Given
    Canvas canvas;
    VcAction::Toolbar::ActionToolbar palette(&canvas.frame, QSize(100, 60));
    canvas.frame.setToolbar(&palette);
    palette.move(100, 100);
    QVERIFY(canvas.show());
    putPointer(canvas.frame.mapToGlobal(QPoint(120, 120)));
    takeOverrideCursors();

    // When
    canvas.frame.updateCursor();

    // Then
    QVERIFY(takeOverrideCursors().isEmpty());

    // When
    putPointer(canvas.frame.mapToGlobal(QPoint(99, 120)));
    takeOverrideCursors();
    canvas.frame.updateCursor();

    // Then
    QCOMPARE(takeOverrideCursors().size(), 1);
}

void PenCursorTest::withoutImagesThePenStillDraws()
{
    // Given
    Canvas canvas(10, Qt::red);
    QVERIFY(canvas.show());

    // When
    canvas.frame.setPen(Qt::blue);
    canvas.draw({{50, 50}, {100, 50}});

    // Then
    QCOMPARE(canvas.inPicture(75, 50), QColor(Qt::blue));
}

REGISTER_TEST(PenCursorTest, QApplication)
#include "pencursortest.moc"

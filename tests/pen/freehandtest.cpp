#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <functional>

using namespace PenTest;
using TestSupport::areClose;

namespace {

const QColor halfRed(255, 127, 127);

using Change = std::function<void(VcAction::Frame::PenFrame&)>;

/// Whether each move has a turn of the event loop of its own, or all are in one.
enum class Pace { OneByOne, Queued };

/// How a stroke looks before and after its release.
struct Pictures {
    QImage shown;
    QImage kept;
};

/// Scribbles over the canvas, always the same; changes something half the way.
Pictures scribble(Canvas& canvas, const Change& change, Pace pace)
{
    QRandomGenerator random(11);
    QPointF at(150, 150);
    canvas.press(at);
    for (int move = 0; move < 60; ++move) {
        at += QPointF(random.bounded(40.0) - 20, random.bounded(40.0) - 20);
        canvas.moveTo(at);
        if (pace == Pace::OneByOne)
            Canvas::endTurn();
        if (move == 30)
            change(canvas.frame);
    }
    const QImage shown = canvas.screen();
    canvas.release(at);
    return {shown, canvas.picture()};
}

}

class FreehandTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void aClickLeavesARoundDotAsWideAsThePen_data();
    void aClickLeavesARoundDotAsWideAsThePen();
    void aPressShowsTheDotAtOnce();
    void aStrokeIsAsWideAsThePenWithRoundEnds_data();
    void aStrokeIsAsWideAsThePenWithRoundEnds();
    void aStrokeTurnsRoundCorners();
    void aStrokeReachesThePictureOnReleaseOnly();
    void aStrokeIsCommittedAsItWasShown();
    void aStrokeIsOfOneOpacityThroughout();
    void aSecondStrokeBlendsWithTheFirst();
    void paintingAgainDoesNotHardenTheEdge();
    void afterAStrokeNothingOfItIsLeftForTheNext();
    void movesWithoutAPressLeaveNothing();
    void aReleaseWithoutAPressLeavesNothing();
    void otherButtonsLeaveNothing_data();
    void otherButtonsLeaveNothing();
    void otherButtonsDoNotInterruptAStroke();
    void aHiddenFrameKeepsEverySegment();
    void transparencyChangesOnlyLaterSegments();
    void aColourChosenInMidStrokeBeginsWithTheNewestSegment();
    void aSizeChosenInMidStrokeBeginsWithTheNewestSegment();
    void aQueueOfMovesLeavesWhatSingleOnesLeave_data();
    void aQueueOfMovesLeavesWhatSingleOnesLeave();
    void fractionsOfAPixelCount();
    void withoutItsBackgroundTheStrokeBringsItsOwn();
};

void FreehandTest::aClickLeavesARoundDotAsWideAsThePen_data()
{
    QTest::addColumn<int>("size");

    for (const int size : {4, 10, 20, 32, 77})
        QTest::addRow("size %d", size) << size;
}

void FreehandTest::aClickLeavesARoundDotAsWideAsThePen()
{
    // Given
    QFETCH(int, size);
    Canvas canvas(size);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{100, 100}});

    // Then
    const qreal half = size / 2.0;
    QVERIFY(isAbout(canvas.inkInPicture(), QRectF(100 - half, 100 - half, size, size)));
    QCOMPARE(canvas.inPicture(100, 100), QColor(Qt::red));
    const int corner = qRound(100 - half * 0.8);
    QCOMPARE(canvas.inPicture(corner - 1, corner - 1), paper);
}

void FreehandTest::aPressShowsTheDotAtOnce()
{
    // Given
    Canvas canvas(20);
    QVERIFY(canvas.show());

    // When
    canvas.press({100, 100});

    // Then
    QVERIFY(isAbout(canvas.inkOnScreen(), QRectF(90, 90, 20, 20)));
    QVERIFY(canvas.inkInPicture().isEmpty());
}

void FreehandTest::aStrokeIsAsWideAsThePenWithRoundEnds_data()
{
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QRectF>("ink");

    QTest::newRow("rightwards") << QPointF(250, 150) << QRectF(140, 140, 120, 20);
    QTest::newRow("leftwards") << QPointF(50, 150) << QRectF(40, 140, 120, 20);
    QTest::newRow("upwards") << QPointF(150, 50) << QRectF(140, 40, 20, 120);
    QTest::newRow("downwards") << QPointF(150, 250) << QRectF(140, 140, 20, 120);
    QTest::newRow("right and down") << QPointF(250, 250) << QRectF(140, 140, 120, 120);
    QTest::newRow("left and up") << QPointF(50, 50) << QRectF(40, 40, 120, 120);
    QTest::newRow("out of the frame") << QPointF(150, -50) << QRectF(140, 0, 20, 160);
}

void FreehandTest::aStrokeIsAsWideAsThePenWithRoundEnds()
{
    // Given
    QFETCH(QPointF, to);
    QFETCH(QRectF, ink);
    Canvas canvas(20);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{150, 150}, to});

    // Then
    QVERIFY(isAbout(canvas.inkInPicture(), ink));
    QCOMPARE(canvas.inPicture(150, 150), QColor(Qt::red));
    const QPoint corner = ink.toRect().topLeft();
    if (QRectF(canvas.frame.rect()).contains(to))
        QCOMPARE(canvas.inPicture(corner.x() + 1, corner.y() + 1), paper);
}

void FreehandTest::aStrokeTurnsRoundCorners()
{
    // Given
    Canvas canvas(20);
    QVERIFY(canvas.show());

    // When
    canvas.draw({{50, 50}, {150, 50}, {150, 150}});

    // Then
    QCOMPARE(canvas.inPicture(100, 50), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(150, 100), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(100, 100), paper);
    QCOMPARE(canvas.inPicture(155, 45), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(158, 41), paper);
}

void FreehandTest::aStrokeReachesThePictureOnReleaseOnly()
{
    // Given
    Canvas canvas;
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.moveTo({100, 50});
    canvas.moveTo({100, 100});

    // When
    const QRectF before = canvas.inkInPicture();
    canvas.release({100, 100});

    // Then
    QVERIFY(before.isEmpty());
    QVERIFY(isAbout(canvas.inkInPicture(), QRectF(45, 45, 60, 60)));
}

void FreehandTest::aStrokeIsCommittedAsItWasShown()
{
    // Given
    Canvas canvas(13, QColor(10, 120, 250), Freehand, true);
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.moveTo({120, 77});
    canvas.moveTo({60, 110});
    canvas.moveTo({70, 30});
    const QImage shown = canvas.screen();

    // When
    canvas.release({70, 30});

    // Then
    QCOMPARE(TestSupport::differingBox(canvas.picture(), shown), QRect());
}

void FreehandTest::aStrokeIsOfOneOpacityThroughout()
{
    // Given
    Canvas canvas(20, Qt::red, Freehand, true);
    QVERIFY(canvas.show());

    // When
    canvas.press({50, 100});
    canvas.moveTo({150, 100});
    canvas.moveTo({150, 50});
    canvas.moveTo({100, 50});
    canvas.moveTo({100, 150});
    canvas.moveTo({100, 50});
    const QImage shown = canvas.screen();
    canvas.release({100, 50});

    // Then
    for (const QPoint point : {QPoint(70, 100), QPoint(100, 100), QPoint(130, 100), QPoint(150, 75),
                               QPoint(150, 100), QPoint(100, 50), QPoint(100, 140)}) {
        QVERIFY(areClose(TestSupport::colourAt(shown, point), halfRed, 1));
        QVERIFY(areClose(canvas.inPicture(point.x(), point.y()), halfRed, 1));
    }
}

void FreehandTest::aSecondStrokeBlendsWithTheFirst()
{
    // Given
    Canvas canvas(20, Qt::red, Freehand, true);
    QVERIFY(canvas.show());
    canvas.draw({{50, 100}, {150, 100}});

    // When
    canvas.draw({{100, 50}, {100, 150}});

    // Then
    QVERIFY(areClose(canvas.inPicture(100, 100), QColor(255, 63, 63), 2));
    QVERIFY(areClose(canvas.inPicture(70, 100), halfRed, 1));
}

void FreehandTest::paintingAgainDoesNotHardenTheEdge()
{
    // Given
    Canvas canvas(11);
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.moveTo({130, 83});
    const QImage first = canvas.screen();

    // When
    for (int round = 0; round < 5; ++round)
        canvas.frame.repaint();

    // Then
    QCOMPARE(TestSupport::differingBox(canvas.screen(), first), QRect());
    canvas.release({130, 83});
    QCOMPARE(TestSupport::differingBox(canvas.picture(), first), QRect());
}

void FreehandTest::afterAStrokeNothingOfItIsLeftForTheNext()
{
    // Given
    Canvas canvas(20);
    QVERIFY(canvas.show());
    canvas.draw({{50, 100}, {150, 100}});
    *canvas.frame.background() = TestSupport::plainPicture(canvas.frame, paper);

    // When
    canvas.frame.setPen(Qt::blue);
    canvas.frame.setPenSize(4);
    canvas.draw({{30, 50}, {170, 50}, {170, 150}, {30, 150}});

    // Then
    QCOMPARE(canvas.inPicture(100, 150), QColor(Qt::blue));
    const auto ratio = static_cast<int>(canvas.frame.devicePixelRatioF());
    const QRect firstStroke(QPoint(30, 80) * ratio, QSize(130, 40) * ratio);
    QVERIFY(TestSupport::inkBox(canvas.picture().copy(firstStroke), paper).isEmpty());
}

void FreehandTest::movesWithoutAPressLeaveNothing()
{
    // Given
    Canvas canvas;
    QVERIFY(canvas.show());

    // When
    canvas.hoverTo({50, 50});
    canvas.hoverTo({150, 50});
    canvas.moveTo({150, 150});

    // Then
    QVERIFY(canvas.inkInPicture().isEmpty());
    QVERIFY(isAbout(canvas.inkOnScreen(), QRectF(145, 145, 10, 10)));
}

void FreehandTest::aReleaseWithoutAPressLeavesNothing()
{
    // Given
    Canvas canvas;
    QVERIFY(canvas.show());
    canvas.hoverTo({50, 50});
    canvas.hoverTo({150, 50});

    // When
    canvas.release({150, 50});
    canvas.release({150, 50});

    // Then
    QVERIFY(canvas.inkInPicture().isEmpty());
}

void FreehandTest::otherButtonsLeaveNothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");

    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void FreehandTest::otherButtonsLeaveNothing()
{
    // Given
    QFETCH(Qt::MouseButton, button);
    Canvas canvas;
    QVERIFY(canvas.show());

    // When
    canvas.press({50, 50}, button);
    canvas.moveTo({100, 50});
    canvas.release({100, 50}, button);

    // Then
    QVERIFY(canvas.inkInPicture().isEmpty());
}

void FreehandTest::otherButtonsDoNotInterruptAStroke()
{
    // Given
    Canvas canvas;
    QVERIFY(canvas.show());
    canvas.press({50, 50});
    canvas.moveTo({100, 50});

    // When
    canvas.press({100, 50}, Qt::RightButton);
    canvas.release({100, 50}, Qt::RightButton);

    // Then
    QVERIFY(canvas.inkInPicture().isEmpty());

    // When
    canvas.moveTo({150, 50});
    canvas.release({150, 50});

    // Then
    QVERIFY(isAbout(canvas.inkInPicture(), QRectF(45, 45, 110, 10)));
    QCOMPARE(canvas.inPicture(75, 50), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(125, 50), QColor(Qt::red));
}

void FreehandTest::aHiddenFrameKeepsEverySegment()
{
    // Given
    Canvas canvas;

    // When
    canvas.draw({{50, 50}, {150, 50}, {150, 150}, {50, 150}});

    // Then
    QCOMPARE(canvas.inPicture(50, 50), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(100, 50), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(150, 100), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(100, 150), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(100, 100), paper);
}

void FreehandTest::transparencyChangesOnlyLaterSegments()
{
    // Given
    Canvas canvas(20);
    QVERIFY(canvas.show());
    canvas.press({50, 100});
    canvas.moveTo({150, 100});

    // When
    canvas.frame.setTransparency(true);
    canvas.frame.repaint();

    // Then
    QCOMPARE(canvas.onScreen(100, 100), QColor(Qt::red));

    // When
    canvas.moveTo({250, 100});
    canvas.release({250, 100});

    // Then
    QCOMPARE(canvas.inPicture(100, 100), QColor(Qt::red));
    QVERIFY(areClose(canvas.inPicture(200, 100), halfRed, 1));
}

void FreehandTest::aColourChosenInMidStrokeBeginsWithTheNewestSegment()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({50, 100});
    canvas.moveTo({150, 100});
    canvas.moveTo({250, 100});

    // When
    canvas.frame.setPen(Qt::blue);

    // Then
    QCOMPARE(canvas.onScreen(100, 100), QColor(Qt::red));
    QCOMPARE(canvas.onScreen(200, 100), QColor(Qt::blue));

    // When
    canvas.moveTo({250, 200});
    canvas.release({250, 200});

    // Then
    QCOMPARE(canvas.inPicture(100, 100), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(200, 100), QColor(Qt::blue));
    QCOMPARE(canvas.inPicture(250, 150), QColor(Qt::blue));
}

void FreehandTest::aSizeChosenInMidStrokeBeginsWithTheNewestSegment()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.press({50, 100});
    canvas.moveTo({150, 100});
    canvas.moveTo({250, 100});

    // When
    canvas.frame.setPenSize(30);

    // Then
    QCOMPARE(canvas.onScreen(100, 110), paper);
    QCOMPARE(canvas.onScreen(200, 110), QColor(Qt::red));

    // When
    canvas.moveTo({250, 200});
    canvas.release({250, 200});

    // Then
    QCOMPARE(canvas.inPicture(100, 110), paper);
    QCOMPARE(canvas.inPicture(200, 110), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(260, 150), QColor(Qt::red));
}

void FreehandTest::aQueueOfMovesLeavesWhatSingleOnesLeave_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("transparent");
    QTest::addColumn<Change>("change");

    using VcAction::Frame::PenFrame;
    const Change nothing = [](PenFrame&) {};
    const Change colour = [](PenFrame& frame) { frame.setPen(QColor(10, 120, 250, 200)); };
    const Change width = [](PenFrame& frame) { frame.setPenSize(21); };
    const Change opacity = [](PenFrame& frame) { frame.setTransparency(true); };
    const Change style = [](PenFrame& frame) {
        frame.setStyle(Rectangle);
        frame.setStyle(Freehand);
    };
    QTest::newRow("opaque") << 9 << false << nothing;
    QTest::newRow("transparent") << 9 << true << nothing;
    QTest::newRow("one pixel wide") << 1 << false << nothing;
    QTest::newRow("as thin as can be") << 0 << true << nothing;
    QTest::newRow("another colour half the way") << 9 << true << colour;
    QTest::newRow("another width half the way") << 9 << false << width;
    QTest::newRow("another opacity half the way") << 9 << false << opacity;
    QTest::newRow("another style and back half the way") << 9 << false << style;
}

void FreehandTest::aQueueOfMovesLeavesWhatSingleOnesLeave()
{
    // Given
    QFETCH(int, size);
    QFETCH(bool, transparent);
    QFETCH(Change, change);
    Canvas single(size, Qt::red, Freehand, transparent);
    Canvas queued(size, Qt::red, Freehand, transparent);
    QVERIFY(single.show());
    QVERIFY(queued.show());

    // When
    const Pictures expected = scribble(single, change, Pace::OneByOne);
    const Pictures found = scribble(queued, change, Pace::Queued);

    // Then
    QCOMPARE(TestSupport::differingBox(found.shown, expected.shown), QRect());
    QCOMPARE(TestSupport::differingBox(found.kept, expected.kept), QRect());
    QVERIFY(!TestSupport::inkBox(found.kept, paper).isEmpty());
}

void FreehandTest::fractionsOfAPixelCount()
{
    // Given
    Canvas whole(1);
    Canvas half(1);

    // When
    whole.draw({{50, 50}, {90, 70}});
    half.draw({{50.5, 50.5}, {90.5, 70.5}});

    // Then
    QVERIFY(!half.inkInPicture().isEmpty());
    QVERIFY(whole.picture() != half.picture());
}

void FreehandTest::withoutItsBackgroundTheStrokeBringsItsOwn()
{
    // Given
    Canvas canvas(10);
    QVERIFY(canvas.show());
    canvas.draw({{300, 300}, {310, 300}});
    canvas.frame.setDrawBack(false);
    QImage device = canvas.picture();
    device.fill(Qt::black);

    // When
    canvas.press({50, 50});
    canvas.moveTo({100, 50});
    canvas.frame.draw(&device);

    // Then
    QCOMPARE(TestSupport::colourAt(device, QPoint(75, 50)), QColor(Qt::red));
    QCOMPARE(TestSupport::colourAt(device, QPoint(75, 42)), paper);
    QCOMPARE(TestSupport::colourAt(device, QPoint(75, 90)), QColor(Qt::black));
    QCOMPARE(TestSupport::colourAt(device, QPoint(300, 300)), QColor(Qt::black));

    // When
    canvas.release({100, 50});

    // Then
    QVERIFY(canvas.frame.getDrawBack());
}

REGISTER_TEST(FreehandTest, QApplication)
#include "freehandtest.moc"

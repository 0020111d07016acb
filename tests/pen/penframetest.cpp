#include "tests/pen/canvas.h"
#include "tests/support/cursorstack.h"
#include "tests/support/metamethods.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

#include <limits>

using namespace PenTest;
using VcAction::Frame::PenFrame;

/// A tool that uses what is there for it.
class DerivedFrame : public PenFrame {
public:
    DerivedFrame()
        : PenFrame(nullptr, 5, Qt::red, Freehand, false)
    {
    }

    using PenFrame::blankPixmap;
};

/// The pen frame as a whole; strokes, shapes, wheel and cursor have tests of their own.
class PenFrameTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup() { TestSupport::takeOverrideCursors(); }

    void itHasThreeSlotsAndNothingElse();
    void itBeginsAsItIsTold_data();
    void itBeginsAsItIsTold();
    void itCoversTheScreenAndIsHidden();
    void itsPenChangesAsItIsTold();
    void aColourKeepsItsAlpha();
    void choosingAStyleShowsTheBackground();
    void thePensTipFollowsThePointer();
    void anEventWithoutAPlaceInTheWindowIsFollowedByItsPlaceInTheFrame();
    void thePensTipTakesANewColourAndSizeAtOnce();
    void anySizeIsSurvived_data();
    void anySizeIsSurvived();
    void aHugePenCoversEverything();
    void aDerivedToolHasABlankPixmap();
    void aFailedPictureIsHarmless_data();
    void aFailedPictureIsHarmless();
};

void PenFrameTest::itHasThreeSlotsAndNothingElse()
{
    const QMetaObject& type = PenFrame::staticMetaObject;

    QCOMPARE(QString(type.className()), QString("VcAction::Frame::PenFrame"));
    QCOMPARE(type.superClass(), &VcAction::Frame::ActionFrame::staticMetaObject);
    QCOMPARE(TestSupport::ownMethods(type),
             QStringList({"public slot setPen(QColor color)", "public slot setPenSize(int size)",
                          "public slot setStyle(int style)"}));
    QVERIFY(TestSupport::hasMethodsOnly(type));
}

void PenFrameTest::itBeginsAsItIsTold_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("transparent");
    QTest::addColumn<double>("opacity");

    QTest::newRow("as without arguments") << 20 << QColor(255, 255, 0) << false << 1.0;
    QTest::newRow("as with 5 0 0 255 1") << 5 << QColor(0, 0, 255) << true << 0.5;
    QTest::newRow("invalid colour") << 20 << QColor() << false << 1.0;
}

void PenFrameTest::itBeginsAsItIsTold()
{
    QFETCH(int, size);
    QFETCH(QColor, colour);
    QFETCH(bool, transparent);

    const PenFrame frame(nullptr, size, colour, Freehand, transparent);

    QCOMPARE(frame.penWidth(), size);
    QCOMPARE(frame.penColor(), colour);
    QTEST(frame.penOpacity(), "opacity");
    QVERIFY(frame.getDrawBack());
}

void PenFrameTest::itCoversTheScreenAndIsHidden()
{
    const PenFrame frame(nullptr, 20, Qt::red, Freehand, false);

    QCOMPARE(frame.geometry(), QGuiApplication::primaryScreen()->geometry());
    QVERIFY(frame.isHidden());
}

void PenFrameTest::itsPenChangesAsItIsTold()
{
    // Given
    Canvas canvas;

    // When
    canvas.frame.setPen(Qt::blue);
    canvas.frame.setPenSize(33);
    canvas.frame.setTransparency(true);

    // Then
    QCOMPARE(canvas.frame.penColor(), QColor(Qt::blue));
    QCOMPARE(canvas.frame.penWidth(), 33);
    QCOMPARE(canvas.frame.penOpacity(), 0.5);

    // When
    canvas.frame.setTransparency(false);

    // Then
    QCOMPARE(canvas.frame.penOpacity(), 1.0);
}

void PenFrameTest::aColourKeepsItsAlpha()
{
    // Given
    Canvas canvas(20, QColor(255, 0, 0, 51));

    // When
    canvas.draw({{100, 100}, {150, 100}});

    // Then
    QVERIFY(TestSupport::areClose(canvas.inPicture(125, 100), QColor(255, 204, 204), 1));
}

void PenFrameTest::choosingAStyleShowsTheBackground()
{
    // Given
    Canvas canvas;
    canvas.frame.setDrawBack(false);

    // When
    canvas.frame.setStyle(Rectangle);

    // Then
    QVERIFY(canvas.frame.getDrawBack());
}

void PenFrameTest::thePensTipFollowsThePointer()
{
    // Given
    Canvas canvas(20);
    QVERIFY(canvas.show());

    // When
    canvas.hoverTo({100, 100});
    canvas.hoverTo({200, 150});

    // Then
    QVERIFY(isAbout(canvas.inkOnScreen(), QRectF(190, 140, 20, 20)));
    QCOMPARE(canvas.onScreen(200, 150), QColor(Qt::red));
    QCOMPARE(canvas.onScreen(192, 142), paper);
    QVERIFY(canvas.inkInPicture().isEmpty());
}

void PenFrameTest::anEventWithoutAPlaceInTheWindowIsFollowedByItsPlaceInTheFrame()
{
    // Given
    Canvas canvas;
    QVERIFY(canvas.show());

    // When
    // As Qt sends the first one after the pointer has left the palette.
    QMouseEvent move(QEvent::MouseMove, QPointF(90, 60), QPointF(-1, -1),
                     canvas.frame.mapToGlobal(QPointF(90, 60)), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&canvas.frame, &move);

    // Then
    QCOMPARE(canvas.onScreen(90, 60), QColor(Qt::red));
}

void PenFrameTest::thePensTipTakesANewColourAndSizeAtOnce()
{
    // Given
    Canvas canvas(20);
    QVERIFY(canvas.show());
    canvas.hoverTo({100, 100});

    // When
    canvas.frame.setPen(Qt::blue);
    canvas.frame.setPenSize(30);
    canvas.frame.setTransparency(true);

    // Then
    QVERIFY(isAbout(canvas.inkOnScreen(), QRectF(85, 85, 30, 30)));
    QVERIFY(TestSupport::areClose(canvas.onScreen(100, 100), QColor(127, 127, 255), 1));
}

void PenFrameTest::anySizeIsSurvived_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("negative") << -1;
    QTest::newRow("more negative") << -300;
    QTest::newRow("larger than any frame") << 100000;
    QTest::newRow("the largest number") << std::numeric_limits<int>::max();
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min();
}

void PenFrameTest::anySizeIsSurvived()
{
    // Given
    QFETCH(int, size);
    Canvas canvas(size);
    QVERIFY(canvas.show());

    // When
    canvas.hoverTo({30, 30});
    canvas.draw({{50, 50}, {80, 90}, {80, 90}});
    canvas.frame.setPenSize(20);
    canvas.frame.setPenSize(size);
    canvas.frame.setPen(Qt::blue);
    canvas.frame.setPenSize(10);
    *canvas.frame.background() = TestSupport::plainPicture(canvas.frame, paper);
    canvas.draw({{100, 100}, {150, 100}});

    // Then
    QCOMPARE(canvas.inPicture(125, 100), QColor(Qt::blue));
    QVERIFY(isAbout(canvas.inkInPicture(), QRectF(95, 95, 60, 10)));
}

void PenFrameTest::aHugePenCoversEverything()
{
    // Given
    Canvas canvas(5000);

    // When
    canvas.draw({{100, 100}, {110, 100}});

    // Then
    QCOMPARE(canvas.inPicture(0, 0), QColor(Qt::red));
    QCOMPARE(canvas.inPicture(canvas.frame.width() - 1, canvas.frame.height() - 1),
             QColor(Qt::red));
}

void PenFrameTest::aDerivedToolHasABlankPixmap()
{
    // Given
    DerivedFrame frame;

    // When
    QPixmap& blank = frame.blankPixmap();

    // Then
    QCOMPARE(blank.deviceIndependentSize().toSize(), frame.size());
    QCOMPARE(blank.toImage().pixelColor(5, 5), QColor(0, 0, 0, 1));
    QCOMPARE(&frame.blankPixmap(), &blank);
}

void PenFrameTest::aFailedPictureIsHarmless_data()
{
    QTest::addColumn<int>("style");

    QTest::newRow("freehand") << int(Freehand);
    QTest::newRow("ellipse") << int(Ellipse);
    QTest::newRow("rectangle") << int(Rectangle);
    QTest::newRow("round rectangle") << int(RoundRect);
}

void PenFrameTest::aFailedPictureIsHarmless()
{
    // Given
    QFETCH(int, style);
    Canvas canvas(10, Qt::red, style);
    *canvas.frame.background() = QPixmap();
    QVERIFY(canvas.show());

    // When
    canvas.draw({{50, 50}, {100, 100}, {150, 120}});
    canvas.hoverTo({200, 200});

    // Then
    QVERIFY(canvas.frame.background()->isNull());
}

REGISTER_TEST(PenFrameTest, QApplication)
#include "penframetest.moc"

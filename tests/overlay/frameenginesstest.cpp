#include "overlay/frameenginess.h"

#include "overlay/transparentframe.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace Helpers::NQt;

namespace {

constexpr int firstScreen = 0;
constexpr QSize smallFrame{40, 30};

/// A picture in which no two pixels are alike.
QImage pattern(QSize logical, qreal ratio)
{
    const QSize pixels = (QSizeF(logical) * ratio).toSize();
    QImage image(pixels, QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            image.setPixel(x, y, qRgb(x, y, 77));
    }
    image.setDevicePixelRatio(ratio);
    return image;
}

QImage whiteImage(QSize logical, qreal ratio)
{
    QImage image((QSizeF(logical) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

/// A frame that draws one black square.
class DrawingFrame : public TransparentFrame {
public:
    DrawingFrame()
        : TransparentFrame(nullptr, 0, smallFrame.width(), smallFrame.height())
    {
    }

    void draw(QPaintDevice* device) override
    {
        devices.append(device);
        QPainter(device).fillRect(square, Qt::black);
    }

    static constexpr QRect square{3, 4, 5, 6};
    QList<QPaintDevice*> devices;
};

/// Where and from where the background was asked for.
class NotingEngine : public FrameEngineSS {
public:
    using FrameEngineSS::drawBack;
    using FrameEngineSS::FrameEngineSS;

    void drawBack(QPaintDevice* device, QPoint at, QRect source) override
    {
        asked = {device, at, source};
    }

    struct Request {
        QPaintDevice* device = nullptr;
        QPoint at;
        QRect source;

        bool operator==(const Request&) const = default;
    };
    Request asked;
};

/// The three ways to draw a part of the picture.
enum class Way { Device, Painter, PainterWithFractions };

void drawPart(FrameEngineSS& engine, Way way, QImage& target, QPoint at, QRect source)
{
    if (way == Way::Device) {
        engine.drawBack(&target, at, source);
        return;
    }
    QPainter painter(&target);
    if (way == Way::Painter)
        engine.drawBack(&painter, at, source);
    else
        engine.drawBack(&painter, at, QRectF(source));
}

}

/// The engine that shows a picture of the desktop, with pictures made up here.
class FrameEngineSSTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theBackgroundIsEmptyBeforeTheFirstPicture();
    void onlyTakingAPictureTouchesTheFrame();
    void theBackgroundKeepsItsAddress();
    void aNewPictureReplacesTheOld();
    void theContentLiesOverThePicture_data();
    void theContentLiesOverThePicture();
    void withoutTheBackgroundOnlyTheContentIsPainted();
    void theWholeFrameIsAskedFor();
    void aPartIsDrawnPixelForPixel_data();
    void aPartIsDrawnPixelForPixel();
    void aPartMayBeginBetweenPixels();
    void thePaintersClipHolds();
    void thePainterIsGivenBackAsItWas();
};

void FrameEngineSSTest::theBackgroundIsEmptyBeforeTheFirstPicture()
{
    // given
    DrawingFrame frame;

    // when
    FrameEngineSS engine(&frame, firstScreen);

    // then
    QVERIFY(engine.background());
    QVERIFY(engine.background()->isNull());
}

void FrameEngineSSTest::onlyTakingAPictureTouchesTheFrame()
{
    // given
    DrawingFrame frame;
    frame.setAttribute(Qt::WA_OpaquePaintEvent, false);
    FrameEngineSS engine(&frame, firstScreen);
    QVERIFY(!frame.testAttribute(Qt::WA_OpaquePaintEvent));

    // when
    engine.init();

    // then
    QVERIFY(frame.testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(!frame.testAttribute(Qt::WA_TranslucentBackground));
}

void FrameEngineSSTest::theBackgroundKeepsItsAddress()
{
    // given
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    const QPixmap* before = engine.background();

    // when
    engine.init();

    // then
    QCOMPARE(engine.background(), before);
}

void FrameEngineSSTest::aNewPictureReplacesTheOld()
{
    // given
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    *engine.background() = QPixmap::fromImage(pattern(smallFrame * 2, 1.0));

    // when
    engine.init();

    // then
    const qreal ratio = frame.devicePixelRatioF();
    QCOMPARE(engine.background()->size(), (QSizeF(smallFrame) * ratio).toSize());
    QCOMPARE(engine.background()->devicePixelRatio(), ratio);
}

void FrameEngineSSTest::theContentLiesOverThePicture_data()
{
    QTest::addColumn<qreal>("ratio");

    QTest::newRow("one to one") << 1.0;
    QTest::newRow("one and a half") << 1.5;
    QTest::newRow("twice") << 2.0;
}

void FrameEngineSSTest::theContentLiesOverThePicture()
{
    // given
    QFETCH(qreal, ratio);
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    *engine.background() = QPixmap::fromImage(pattern(smallFrame, ratio));
    QImage target = whiteImage(smallFrame, ratio);

    // when
    engine.paint(&target);

    // then
    QImage expected = pattern(smallFrame, ratio);
    QPainter(&expected).fillRect(DrawingFrame::square, Qt::black);
    QCOMPARE(target, expected);
    QCOMPARE(frame.devices, QList<QPaintDevice*>({&target}));
}

void FrameEngineSSTest::withoutTheBackgroundOnlyTheContentIsPainted()
{
    // given
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    *engine.background() = QPixmap::fromImage(pattern(smallFrame, 1.0));
    QImage target = whiteImage(smallFrame, 1.0);

    // when
    engine.setDrawBack(false);
    engine.paint(&target);

    // then
    QImage expected = whiteImage(smallFrame, 1.0);
    QPainter(&expected).fillRect(DrawingFrame::square, Qt::black);
    QCOMPARE(target, expected);
}

void FrameEngineSSTest::theWholeFrameIsAskedFor()
{
    // given
    DrawingFrame frame;
    NotingEngine engine(&frame, firstScreen);
    QImage target = whiteImage(smallFrame, 1.0);

    // when
    engine.paint(&target);

    // then
    QCOMPARE(engine.asked, NotingEngine::Request({&target, QPoint(0, 0), frame.rect()}));
    QCOMPARE(frame.rect().size(), smallFrame);
}

void FrameEngineSSTest::aPartIsDrawnPixelForPixel_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<QRect>("source");
    QTest::addColumn<QRect>("part"); // of the source that the picture holds

    const struct {
        const char* name;
        Way way;
    } ways[] = {{"device", Way::Device},
                {"painter", Way::Painter},
                {"painter, fractions", Way::PainterWithFractions}};
    for (const auto& [name, way] : ways) {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            QTest::addRow("%s, %.1f, in place", name, ratio)
                << way << ratio << QPoint(10, 6) << QRect(10, 6, 12, 8) << QRect(10, 6, 12, 8);
            QTest::addRow("%s, %.1f, moved", name, ratio)
                << way << ratio << QPoint(2, 20) << QRect(10, 6, 12, 8) << QRect(10, 6, 12, 8);
            QTest::addRow("%s, %.1f, beyond the picture", name, ratio)
                << way << ratio << QPoint(4, 4) << QRect(30, 20, 100, 100) << QRect(30, 20, 10, 10);
        }
    }
}

void FrameEngineSSTest::aPartIsDrawnPixelForPixel()
{
    // given
    QFETCH(Way, way);
    QFETCH(qreal, ratio);
    QFETCH(QPoint, at);
    QFETCH(QRect, source);
    QFETCH(QRect, part);
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    const QImage picture = pattern(smallFrame, ratio);
    *engine.background() = QPixmap::fromImage(picture);
    QImage target = whiteImage(smallFrame, ratio);

    // when
    drawPart(engine, way, target, at, source);

    // then
    const auto toPixels = [ratio](const QRect& logical) {
        return QRectF(QPointF(logical.topLeft()) * ratio, QSizeF(logical.size()) * ratio).toRect();
    };
    QImage plain = whiteImage(smallFrame, ratio);
    plain.setDevicePixelRatio(1.0);
    QImage copied = picture.copy(toPixels(part));
    copied.setDevicePixelRatio(1.0);
    QPainter(&plain).drawImage(toPixels({at, part.size()}).topLeft(), copied);
    target.setDevicePixelRatio(1.0);
    QCOMPARE(target, plain);
}

void FrameEngineSSTest::aPartMayBeginBetweenPixels()
{
    // given
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    const QImage picture = pattern(smallFrame, 2.0);
    *engine.background() = QPixmap::fromImage(picture);
    QImage target = whiteImage(smallFrame, 2.0);

    // when
    {
        QPainter painter(&target);
        engine.drawBack(&painter, QPoint(0, 0), QRectF(10.5, 6.5, 4, 4));
    }

    // then
    QCOMPARE(target.copy(0, 0, 8, 8), picture.copy(21, 13, 8, 8));
    QCOMPARE(target.pixelColor(8, 0), QColor(Qt::white));
    QCOMPARE(target.pixelColor(0, 8), QColor(Qt::white));
}

void FrameEngineSSTest::thePaintersClipHolds()
{
    // given
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    *engine.background() = QPixmap::fromImage(pattern(smallFrame, 1.0));
    QImage target = whiteImage(smallFrame, 1.0);
    QPainter painter(&target);
    painter.setClipRect(0, 0, 5, 5);

    // when
    engine.drawBack(&painter, QPoint(0, 0), QRect(QPoint(), smallFrame));
    painter.end();

    // then
    QCOMPARE(target.pixelColor(4, 4), QColor(4, 4, 77));
    QCOMPARE(target.pixelColor(5, 4), QColor(Qt::white));
    QCOMPARE(target.pixelColor(4, 5), QColor(Qt::white));
}

void FrameEngineSSTest::thePainterIsGivenBackAsItWas()
{
    // given
    DrawingFrame frame;
    FrameEngineSS engine(&frame, firstScreen);
    *engine.background() = QPixmap::fromImage(pattern(smallFrame, 1.0));
    QImage target = whiteImage(smallFrame, 1.0);
    QPainter painter(&target);
    painter.setClipRect(0, 0, 20, 20);

    // when
    engine.drawBack(&painter, QPoint(0, 0), QRect(0, 0, 2, 2));
    engine.drawBack(&painter, QPoint(0, 0), QRectF(0, 0, 2, 2));

    // then
    QVERIFY(painter.isActive());
    QVERIFY(painter.hasClipping());
    QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 20, 20));
    QVERIFY(painter.transform().isIdentity());
}

REGISTER_TEST(FrameEngineSSTest, QApplication)
#include "frameenginesstest.moc"

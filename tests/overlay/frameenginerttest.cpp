#include "overlay/frameenginert.h"

#include "overlay/transparentframe.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace Helpers::NQt;

namespace {

constexpr int liveEngine = 1;

/// A frame that notes down where it is told to draw.
class NotingFrame : public TransparentFrame {
public:
    NotingFrame()
        : TransparentFrame(nullptr, liveEngine, 40, 30)
    {
    }

    void draw(QPaintDevice* device) override { devices.append(device); }

    QList<QPaintDevice*> devices;
};

}

/// The engine that lets the desktop shine through.
class FrameEngineRTTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theFrameBecomesTranslucent();
    void itLivesWithoutAFrame();
    void thereIsNoBackground();
    void theFrameDrawsOntoItself();
    void nothingLiesBehindTheDrawing_data();
    void nothingLiesBehindTheDrawing();
    void alphaIsNotUpdated();
};

void FrameEngineRTTest::theFrameBecomesTranslucent()
{
    // given
    NotingFrame frame;
    frame.setAttribute(Qt::WA_TranslucentBackground, false);

    // when
    const FrameEngineRT engine(&frame);

    // then
    QVERIFY(frame.testAttribute(Qt::WA_TranslucentBackground));
}

void FrameEngineRTTest::itLivesWithoutAFrame()
{
    // given
    FrameEngineRT engine(nullptr);

    // when
    engine.init();
    engine.setDrawBack(false);

    // then
    QCOMPARE(engine.background(), nullptr);
}

void FrameEngineRTTest::thereIsNoBackground()
{
    // given
    NotingFrame frame;
    FrameEngineRT engine(&frame);

    // when
    engine.init();

    // then
    QCOMPARE(engine.background(), nullptr);
    QVERIFY(!frame.testAttribute(Qt::WA_OpaquePaintEvent));
}

void FrameEngineRTTest::theFrameDrawsOntoItself()
{
    // given
    NotingFrame frame;
    FrameEngineRT engine(&frame);
    QImage other(40, 30, QImage::Format_ARGB32_Premultiplied);

    // when
    engine.paint(&other);

    // then
    QCOMPARE(frame.devices, QList<QPaintDevice*>({&frame}));
}

void FrameEngineRTTest::nothingLiesBehindTheDrawing_data()
{
    QTest::addColumn<bool>("drawBack");

    QTest::newRow("background wanted") << true;
    QTest::newRow("background not wanted") << false;
}

void FrameEngineRTTest::nothingLiesBehindTheDrawing()
{
    // given
    QFETCH(bool, drawBack);
    NotingFrame frame;

    // when
    frame.setDrawBack(drawBack);
    QImage seen(40, 30, QImage::Format_ARGB32_Premultiplied);
    seen.fill(Qt::transparent);
    frame.render(&seen, QPoint(), QRegion(), QWidget::RenderFlags());

    // then
    QImage expected(seen.size(), seen.format());
    expected.fill(Qt::transparent);
    QCOMPARE(frame.getDrawBack(), drawBack);
    QCOMPARE(seen, expected);
    QCOMPARE(frame.devices.size(), 1);
}

void FrameEngineRTTest::alphaIsNotUpdated()
{
    // given
    NotingFrame frame;
    FrameEngineRT engine(&frame);
    QPixmap mask(40, 30);
    mask.fill(Qt::black);

    // when
    engine.updateAlpha(nullptr);
    engine.updateAlpha(&mask);

    // then
    QVERIFY(frame.mask().isEmpty());
    QCOMPARE(frame.windowOpacity(), 1.0);
    QCOMPARE(engine.background(), nullptr);
}

REGISTER_TEST(FrameEngineRTTest, QApplication)
#include "frameenginerttest.moc"

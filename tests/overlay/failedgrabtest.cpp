#include "overlay/transparentframe.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace Helpers::NQt;

namespace {

constexpr int screenshotEngine = 0;
constexpr QRect square{3, 4, 5, 6};

/// A frame that draws one black square.
class DrawingFrame : public TransparentFrame {
public:
    DrawingFrame()
        : TransparentFrame(nullptr, screenshotEngine, 40, 30)
    {
    }

    void draw(QPaintDevice* device) override { QPainter(device).fillRect(square, Qt::black); }
};

}

/// What is left of the frame where the window system refuses every picture.
class FailedGrabTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void onlyTheContentIsPainted();
    void aResizeFailsAgain();
};

void FailedGrabTest::onlyTheContentIsPainted()
{
    // given
    DrawingFrame frame;
    QImage seen(40, 30, QImage::Format_RGB32);
    seen.fill(Qt::magenta);
    QImage expected = seen;
    QPainter(&expected).fillRect(square, Qt::black);

    // when
    frame.render(&seen, QPoint(), QRegion(), QWidget::RenderFlags());

    // then
    QVERIFY(frame.background()->isNull());
    QCOMPARE(frame.paintDevice(), static_cast<QPaintDevice*>(frame.background()));
    QCOMPARE(seen, expected);
}

void FailedGrabTest::aResizeFailsAgain()
{
    // given
    DrawingFrame frame;
    frame.show();
    *frame.background() = QPixmap(40, 30);

    // when
    frame.resize(60, 50);

    // then
    QTRY_VERIFY(frame.background()->isNull());
}

REGISTER_TEST(FailedGrabTest, QApplication)
#include "failedgrabtest.moc"

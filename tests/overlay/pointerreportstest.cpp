#include "overlay/transparentframe.h"

#include "tests/desktop/harness/pointer.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/support/reportcount.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTest>

using namespace Helpers::NQt;

namespace {

/// Knows where the pointer has last moved to.
class TrackingFrame : public TransparentFrame {
public:
    TrackingFrame()
        : TransparentFrame(nullptr, LiveEngine, 0, 0)
    {
        setWindowFlag(Qt::BypassWindowManagerHint);
    }

    void makeNativeWindowAnew()
    {
        destroy();
        create();
    }

    QPoint last;

protected:
    void mouseMoveEvent(QMouseEvent* event) override { last = event->position().toPoint(); }
};

}

/// What reaches a frame of the pointer.
class PointerReportsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aFrameIsToldOfEachMoveOnce();
    void aFrameWithANewNativeWindowIsToldOnceToo();

private:
    void expectOneReportEach(TrackingFrame& frame) const;

    const XConnection x{qgetenv("DISPLAY")};
    const Pointer pointer{x};
};

void PointerReportsTest::expectOneReportEach(TrackingFrame& frame) const
{
    // given: the first event of a device has others come along
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    pointer.moveTo({100, 100});
    QTRY_COMPARE(frame.last, QPoint(100, 100));
    const ReportCount reports;

    // when
    pointer.moveTo({120, 110});
    pointer.moveTo({140, 120});

    // then
    QTRY_COMPARE(frame.last, QPoint(140, 120));
    QCOMPARE(reports.motions, 2);
}

void PointerReportsTest::aFrameIsToldOfEachMoveOnce()
{
    TrackingFrame frame;

    expectOneReportEach(frame);
}

void PointerReportsTest::aFrameWithANewNativeWindowIsToldOnceToo()
{
    TrackingFrame frame;
    frame.show();
    frame.hide();
    frame.makeNativeWindowAnew();

    expectOneReportEach(frame);
}

REGISTER_TEST(PointerReportsTest, QApplication)
#include "pointerreportstest.moc"

#include "overlay/transparentframe.h"
#include "overlay/windowutils.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/overlay/enginepicture.h"
#include "tests/support/testprogram.h"

#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWindow>

using namespace Helpers::NQt;

namespace {

constexpr int screenshotEngine = 0;

// In device pixels. There is nothing above the right one and below the left one.
constexpr QRect left(0, 0, 700, 500);
constexpr QRect right(700, 300, 580, 500);

/// Divides the server's one screen.
bool setMonitor(const QString& name, const QRect& place, const QString& output)
{
    const QString geometry = QStringLiteral("%1/%1x%2/%2+%3+%4")
                                 .arg(place.width())
                                 .arg(place.height())
                                 .arg(place.x())
                                 .arg(place.y());
    return QProcess::execute("xrandr", {"--setmonitor", name, geometry, output}) == 0;
}

/// Divides the screen before Qt looks at it.
class TwoScreens {
public:
    TwoScreens()
    {
        if (!setMonitor("left", left, "screen") || !setMonitor("right", right, "none"))
            qFatal("The server's screen cannot be divided.");
    }

private:
    /// The server forgets its monitors when its last client leaves.
    const XConnection staying{qgetenv("DISPLAY")};
};

class ApplicationOnTwoScreens : TwoScreens, public QApplication {
public:
    ApplicationOnTwoScreens(int& argc, char** argv)
        : QApplication(argc, argv)
    {
    }
};

}

/// Two screens side by side, of the same density or not.
class MonitorsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void thePointersScreenIsFound_data();
    void thePointersScreenIsFound();
    void theWholeDesktopIsPutTogether();
    void theFirstScreenIsGrabbedAlone();
    void anAreaOverBothIsPutTogether();
    void aFrameOpensOnThePointersScreen_data();
    void aFrameOpensOnThePointersScreen();
    void onTheFirstScreenAFrameShowsItsPlace();
    void onTheSecondScreenAFrameShowsTheWholeDesktop();
    void onTheSecondScreenTheWholeDesktopIsShownFromItsCorner();

private:
    [[nodiscard]] static bool putPointer(const QScreen& screen);

    const XConnection x{qgetenv("DISPLAY")};
    const Backdrop backdrop{x};
    /// What there is to see: black where there is no screen.
    QImage desktop;
    QScreen* first = nullptr;
    QScreen* second = nullptr;
};

void MonitorsTest::initTestCase()
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    QCOMPARE(screens.size(), 2);
    first = screens[0];
    second = screens[1];
    QCOMPARE(first->geometry().topLeft(), left.topLeft());
    QCOMPARE(second->geometry().topLeft(), right.topLeft());

    backdrop.paintPattern();
    const QImage pattern = Backdrop::pattern(x.size());
    desktop = QImage(x.size(), QImage::Format_RGB32);
    desktop.fill(Qt::black);
    QPainter painter(&desktop);
    for (const QRect& screen : {left, right})
        painter.drawImage(screen.topLeft(), pattern, screen);
}

bool MonitorsTest::putPointer(const QScreen& screen)
{
    const QPoint point = screen.geometry().topLeft() + QPoint(20, 20);
    QCursor::setPos(point);
    return QTest::qWaitFor([point] { return QCursor::pos() == point; });
}

void MonitorsTest::thePointersScreenIsFound_data()
{
    QTest::addColumn<int>("screen");

    QTest::newRow("first") << 0;
    QTest::newRow("second") << 1;
}

void MonitorsTest::thePointersScreenIsFound()
{
    // given
    QFETCH(int, screen);
    QVERIFY(putPointer(*QGuiApplication::screens()[screen]));

    // then
    QCOMPARE(Utils::findScreenHoldingMouse(), screen);
}

void MonitorsTest::theWholeDesktopIsPutTogether()
{
    // when
    const QPixmap picture = pictureTaken(second->geometry(), 1);

    // then
    QCOMPARE(picture.devicePixelRatio(), second->devicePixelRatio());
    QCOMPARE(pixels(picture), desktop);
}

void MonitorsTest::theFirstScreenIsGrabbedAlone()
{
    // when
    const QPixmap picture = pictureTaken(first->geometry(), 0);

    // then
    QCOMPARE(picture.devicePixelRatio(), first->devicePixelRatio());
    QCOMPARE(pixels(picture), desktop.copy(left));
}

void MonitorsTest::anAreaOverBothIsPutTogether()
{
    // given: it begins on the first screen and ends on the second, in device pixels
    const qreal ratio = first->devicePixelRatio();
    const QRect place(600, 200, 300, 240);
    const QRect area((QPointF(place.topLeft()) / ratio).toPoint(),
                     (QSizeF(place.size()) / ratio).toSize());

    // when
    const QPixmap picture = pictureTaken(area, 0);

    // then
    QCOMPARE(picture.devicePixelRatio(), ratio);
    QCOMPARE(pixels(picture), desktop.copy(place));
}

void MonitorsTest::aFrameOpensOnThePointersScreen_data()
{
    QTest::addColumn<int>("screen");
    QTest::addColumn<QSize>("asked");

    QTest::newRow("first, whole") << 0 << QSize(0, 0);
    QTest::newRow("first, smaller") << 0 << QSize(100, 80);
    QTest::newRow("second, whole") << 1 << QSize(0, 0);
    QTest::newRow("second, one side") << 1 << QSize(100, 0);
    QTest::newRow("second, smaller") << 1 << QSize(100, 80);
}

void MonitorsTest::aFrameOpensOnThePointersScreen()
{
    // given
    QFETCH(int, screen);
    QFETCH(QSize, asked);
    QScreen& home = *QGuiApplication::screens()[screen];
    QVERIFY(putPointer(home));

    // when
    TransparentFrame frame(nullptr, screenshotEngine, asked.width(), asked.height());
    frame.show();

    // then
    QCOMPARE(frame.windowHandle()->screen(), &home);
    QCOMPARE(frame.pos(), home.geometry().topLeft());
    QCOMPARE(frame.size(), asked.isEmpty() ? home.size() : asked);
    QCOMPARE(frame.screen(), &home);
    QCOMPARE(frame.devicePixelRatio(), home.devicePixelRatio());
}

void MonitorsTest::onTheFirstScreenAFrameShowsItsPlace()
{
    // given
    QVERIFY(putPointer(*first));

    // when
    TransparentFrame frame(nullptr, screenshotEngine, 0, 0);

    // then
    QCOMPARE(pixels(*frame.background()), desktop.copy(left));
}

void MonitorsTest::onTheSecondScreenAFrameShowsTheWholeDesktop()
{
    // given
    QVERIFY(putPointer(*second));

    // when
    TransparentFrame frame(nullptr, screenshotEngine, 100, 80);

    // then
    QCOMPARE(frame.background()->devicePixelRatio(), second->devicePixelRatio());
    QCOMPARE(pixels(*frame.background()), desktop);
}

void MonitorsTest::onTheSecondScreenTheWholeDesktopIsShownFromItsCorner()
{
    // given
    QVERIFY(putPointer(*second));
    TransparentFrame frame(nullptr, screenshotEngine, 100, 80);

    // when
    const QPixmap seen = frame.grab();

    // then
    const QSize size = (QSizeF(100, 80) * second->devicePixelRatio()).toSize();
    QCOMPARE(pixels(seen), desktop.copy(QRect(QPoint(0, 0), size)));
}

REGISTER_TEST(MonitorsTest, ApplicationOnTwoScreens)
#include "monitorstest.moc"

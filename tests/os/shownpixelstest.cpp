#include "os/x11/shownpixels.h"

#include "os/x11/sharedpicture.h"

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/screen.h"
#include "tests/desktop/harness/xconnection.h"
#include "tests/support/windowprobe.h"

#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace osUtils;
using osUtils::System::SharedPixels;

namespace {

constexpr QSize size{60, 40};

/// A white window at the screen's corner.
class Window : public ClientWindow {
public:
    Window(const XConnection& connection, QSize windowSize)
        : ClientWindow(connection, Kind::Unmanaged, QRect({0, 0}, windowSize), Qt::white)
    {
    }
};

}

/// Pixels that the server copies to a window by itself.
class ShownPixelsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void theyAreShownInTheRegion_data();
    void theyAreShownInTheRegion();
    void theyAreShownAsTheyAreNow();
    void aWindowOfAnotherSizeIsLeftAlone_data();
    void aWindowOfAnotherSizeIsLeftAlone();
    void aWindowOfAnotherDepthIsLeftAlone();
    void aWindowThatIsGoneIsNoHarm();

private:
    [[nodiscard]] QImage shown() const
    {
        finishToolkitRequests();
        return screen.grab(QRect({0, 0}, size));
    }

    const XConnection x{qgetenv("DISPLAY")};
    const Backdrop backdrop{x};
    const Screen screen{x};
    const QImage pattern = Backdrop::pattern(x.size()).copy(QRect({0, 0}, size));
    SharedPixels pixels;
};

void ShownPixelsTest::initTestCase()
{
    backdrop.paintPattern();
    const X11::SharedPicture shared(x.raw(), size);
    QVERIFY(shared.isTaken() && shared.reserve() && shared.write(x.raw(), {0, 0}));
    pixels = shared.pixels();
}

void ShownPixelsTest::theyAreShownInTheRegion_data()
{
    QTest::addColumn<QRegion>("region");

    QTest::newRow("all") << QRegion(QRect({0, 0}, size));
    QTest::newRow("a part") << QRegion(10, 5, 20, 30);
    QTest::newRow("all but a part") << QRegion(QRect({0, 0}, size)) - QRegion(10, 5, 20, 30);
    QTest::newRow("two parts") << (QRegion(0, 0, 3, 3) | QRegion(57, 37, 3, 3));
}

void ShownPixelsTest::theyAreShownInTheRegion()
{
    // given
    QFETCH(QRegion, region);
    const Window window(x, size);

    // when
    const bool known = X11::showPixels(window.id(), pixels, region);

    // then
    QVERIFY(known);
    const QImage now = shown();
    for (int row = 0; row < size.height(); ++row) {
        for (int column = 0; column < size.width(); ++column) {
            const QColor wanted = region.contains(QPoint(column, row))
                ? pattern.pixelColor(column, row)
                : QColor(Qt::white);
            QCOMPARE(now.pixelColor(column, row), wanted);
        }
    }
}

void ShownPixelsTest::theyAreShownAsTheyAreNow()
{
    // given
    const Window window(x, size);
    auto* const first = static_cast<QRgb*>(pixels.memory->data());
    const QRgb before = std::exchange(*first, 0xff00ff00);

    // when
    const bool known = X11::showPixels(window.id(), pixels, QRect({0, 0}, size));

    // then
    QVERIFY(known);
    QCOMPARE(shown().pixelColor(0, 0), QColor(Qt::green));
    *first = before;
}

void ShownPixelsTest::aWindowOfAnotherSizeIsLeftAlone_data()
{
    QTest::addColumn<QSize>("windowSize");

    QTest::newRow("a column more") << size + QSize(1, 0);
    QTest::newRow("a row less") << size - QSize(0, 1);
}

void ShownPixelsTest::aWindowOfAnotherSizeIsLeftAlone()
{
    // given
    QFETCH(QSize, windowSize);
    const Window window(x, windowSize);

    // then
    QVERIFY(!X11::showPixels(window.id(), pixels, QRect({0, 0}, size)));
    QCOMPARE(shown().pixelColor(30, 20), QColor(Qt::white));
}

void ShownPixelsTest::aWindowOfAnotherDepthIsLeftAlone()
{
    // given: one that lets the desktop through
    QWindow window;
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    window.setFormat(translucent);
    window.resize(size);
    window.create();

    // then
    QVERIFY(!X11::showPixels(window.winId(), pixels, QRect({0, 0}, size)));
    finishToolkitRequests();
}

void ShownPixelsTest::aWindowThatIsGoneIsNoHarm()
{
    // given
    WId gone = 0;
    {
        const Window window(x, size);
        gone = window.id();
    }

    // then
    QVERIFY(!X11::showPixels(gone, pixels, QRect({0, 0}, size)));
    finishToolkitRequests();
}

QTEST_MAIN(ShownPixelsTest)
#include "shownpixelstest.moc"

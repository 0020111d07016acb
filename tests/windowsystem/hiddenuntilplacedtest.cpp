#include "windowsystem/x11/hiddenuntilplaced.h"

#include "windowsystem/x11/x11window.h"

#include "tests/support/testprogram.h"
#include "tests/support/windowmanagerstub.h"
#include "tests/support/windowprobe.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace Windowing;

namespace {

const QRegion whole(0, 0, 200, 100);

}

/// What is seen of a window while a window manager, played by the test, brings it up.
class HiddenUntilPlacedTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void withoutAWindowManagerItShowsWhenItIsMapped();
    void inAFrameItShowsWhenItIsMoved();
    void itDoesNotShowWhenItIsMovedBeforeItIsMapped();
    void otherWindowsDoNotMatter();
    void afterwardsItStaysAsItIs();
    void aWindowThatIsGoneIsForgotten();

private:
    [[nodiscard]] QRegion visible(const QWindow& of) const
    {
        return WindowProbe(x, idOf(of)).visibleRegion();
    }
    void move(const QWindow& moved, int y) const;
    [[nodiscard]] static std::unique_ptr<QWindow> window();

    const XConnection x{qgetenv("DISPLAY")};
};

void HiddenUntilPlacedTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

std::unique_ptr<QWindow> HiddenUntilPlacedTest::window()
{
    auto made = std::make_unique<QWindow>();
    made->setGeometry(QRect(QPoint(), whole.boundingRect().size()));
    made->create();
    finishQtRequests();
    return made;
}

void HiddenUntilPlacedTest::move(const QWindow& moved, int y) const
{
    finishQtRequests();
    const auto to = static_cast<uint32_t>(y);
    xcb_configure_window(x.raw(), idOf(moved), XCB_CONFIG_WINDOW_Y, &to);
    x.synchronise();
}

void HiddenUntilPlacedTest::withoutAWindowManagerItShowsWhenItIsMapped()
{
    // given
    const auto hidden = window();
    new X11::HiddenUntilPlaced(*hidden);
    const QRegion before = visible(*hidden);

    // when
    hidden->show();

    // then
    QCOMPARE(before, QRegion());
    QTRY_COMPARE(visible(*hidden), whole);
    QTRY_VERIFY(hidden->isExposed());
}

void HiddenUntilPlacedTest::inAFrameItShowsWhenItIsMoved()
{
    // given
    WindowFrames frames(x);
    const auto hidden = window();
    new X11::HiddenUntilPlaced(*hidden);
    frames.enclose(idOf(*hidden));
    move(*hidden, 18);
    hidden->show();
    finishQtRequests();
    QCoreApplication::processEvents();
    const QRegion before = visible(*hidden);

    // when
    move(*hidden, 0);

    // then
    QCOMPARE(before, QRegion());
    QTRY_COMPARE(visible(*hidden), whole);
    QTRY_VERIFY(hidden->isExposed());
}

void HiddenUntilPlacedTest::itDoesNotShowWhenItIsMovedBeforeItIsMapped()
{
    // given
    const auto hidden = window();
    new X11::HiddenUntilPlaced(*hidden);

    // when
    move(*hidden, 18);
    QCoreApplication::processEvents();

    // then
    QCOMPARE(visible(*hidden), QRegion());
}

void HiddenUntilPlacedTest::otherWindowsDoNotMatter()
{
    // given
    const auto hidden = window();
    new X11::HiddenUntilPlaced(*hidden);
    const auto other = window();

    // when
    other->show();
    move(*other, 18);
    QVERIFY(QTest::qWaitForWindowExposed(other.get()));

    // then
    QCOMPARE(visible(*hidden), QRegion());
}

void HiddenUntilPlacedTest::afterwardsItStaysAsItIs()
{
    // given
    const auto hidden = window();
    new X11::HiddenUntilPlaced(*hidden);
    hidden->show();
    QTRY_VERIFY(hidden->children().isEmpty());
    const QRegion part(0, 0, 20, 10);
    X11::setVisibleShape(hidden->winId(), part);

    // when
    move(*hidden, 18);
    QTRY_COMPARE(hidden->y(), 18);

    // then
    QCOMPARE(visible(*hidden), part);
}

void HiddenUntilPlacedTest::aWindowThatIsGoneIsForgotten()
{
    // given
    auto hidden = window();
    new X11::HiddenUntilPlaced(*hidden);
    hidden->show();

    // when
    hidden.reset();
    finishQtRequests();
    QCoreApplication::processEvents();

    // then
    const auto other = window();
    other->show();
    QVERIFY(QTest::qWaitForWindowExposed(other.get()));
}

REGISTER_TEST(HiddenUntilPlacedTest, QGuiApplication)
#include "hiddenuntilplacedtest.moc"

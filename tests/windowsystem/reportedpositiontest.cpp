#include "windowsystem/x11/reportedposition.h"

#include "tests/support/testprogram.h"
#include "tests/support/windowmanagerstub.h"
#include "tests/support/windowprobe.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>

#include <memory>

using namespace Windowing;

namespace {

constexpr QRect Place(30, 40, 200, 100);

}

/// Where Qt believes a window to be, with a window manager that the test plays.
class ReportedPositionTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void withoutAFrameTheServerIsBelieved();
    void aNoticeFromBeforeTheFrameIsBelieved();
    void insideAFrameThatIsNotShownItKeepsItsPlace();
    void insideAFrameThatIsShownTheServerIsBelieved();
    void theWindowManagerIsBelieved();
    void outOfItsFrameTheServerIsBelievedAgain();
    void sizesAreTheServers();
    void anotherWindowIsLeftAlone();

private:
    /// Its position is reported from the beginning.
    [[nodiscard]] static std::unique_ptr<QWindow> window();
    void configure(const QWindow& window, const QRect& inParent) const;
    void report(const QWindow& window, QPoint position) const;

    const XConnection x{qgetenv("DISPLAY")};
};

void ReportedPositionTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
}

std::unique_ptr<QWindow> ReportedPositionTest::window()
{
    auto made = std::make_unique<QWindow>();
    made->setFlags(Qt::FramelessWindowHint);
    made->setGeometry(Place);
    made->create();
    new X11::ReportedPosition(*made);
    finishQtRequests();
    return made;
}

void ReportedPositionTest::configure(const QWindow& window, const QRect& inParent) const
{
    finishQtRequests();
    const uint32_t values[] = {
        static_cast<uint32_t>(inParent.x()), static_cast<uint32_t>(inParent.y()),
        static_cast<uint32_t>(inParent.width()), static_cast<uint32_t>(inParent.height())};
    xcb_configure_window(x.raw(), idOf(window),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                             | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    x.synchronise();
}

void ReportedPositionTest::report(const QWindow& window, QPoint position) const
{
    xcb_configure_notify_event_t notice{};
    notice.response_type = XCB_CONFIGURE_NOTIFY;
    notice.event = idOf(window);
    notice.window = idOf(window);
    notice.x = static_cast<int16_t>(position.x());
    notice.y = static_cast<int16_t>(position.y());
    notice.width = Place.width();
    notice.height = Place.height();
    xcb_send_event(x.raw(), 0, idOf(window), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&notice));
    x.synchronise();
}

void ReportedPositionTest::withoutAFrameTheServerIsBelieved()
{
    // given
    const auto moved = window();
    const QRect elsewhere = Place.translated(7, 9);

    // when
    configure(*moved, elsewhere);

    // then
    QTRY_COMPARE(moved->geometry(), elsewhere);
}

void ReportedPositionTest::aNoticeFromBeforeTheFrameIsBelieved()
{
    // given
    const auto framed = window();
    WindowFrames frames(x);
    const QRect elsewhere = Place.translated(7, 9);

    // when
    configure(*framed, elsewhere);
    frames.enclose(idOf(*framed)); // before the notice is read

    // then
    QTRY_COMPARE(framed->geometry(), elsewhere);
}

void ReportedPositionTest::insideAFrameThatIsNotShownItKeepsItsPlace()
{
    // given
    const auto framed = window();
    WindowFrames frames(x);
    xcb_unmap_window(x.raw(), frames.enclose(idOf(*framed))); // in the corner of the screen
    framed->show();

    // when
    configure(*framed, {0, 5, 210, 100});

    // then
    QTRY_COMPARE(framed->width(), 210);
    QCOMPARE(framed->position(), Place.topLeft());
}

void ReportedPositionTest::insideAFrameThatIsShownTheServerIsBelieved()
{
    // given
    const auto framed = window();
    WindowFrames frames(x);
    frames.enclose(idOf(*framed));
    framed->show();

    // when
    configure(*framed, {0, 5, 210, 100});

    // then
    QTRY_COMPARE(framed->geometry(), QRect(0, 5, 210, 100));
}

void ReportedPositionTest::theWindowManagerIsBelieved()
{
    // given
    const QPoint reported(70, 80);
    const auto framed = window();
    WindowFrames frames(x);
    xcb_unmap_window(x.raw(), frames.enclose(idOf(*framed)));
    report(*framed, reported);
    QTRY_COMPARE(framed->position(), reported);

    // when
    configure(*framed, {0, 5, 210, 100});

    // then
    QTRY_COMPARE(framed->width(), 210);
    QCOMPARE(framed->position(), reported);
}

void ReportedPositionTest::outOfItsFrameTheServerIsBelievedAgain()
{
    // given
    const auto moved = window();
    WindowFrames frames(x);
    frames.enclose(idOf(*moved));
    xcb_reparent_window(x.raw(), idOf(*moved), x.root(), 0, 0);
    const QRect elsewhere = Place.translated(7, 9);

    // when
    configure(*moved, elsewhere);

    // then
    QTRY_COMPARE(moved->geometry(), elsewhere);
}

void ReportedPositionTest::sizesAreTheServers()
{
    // given
    const auto resized = window();

    // when
    configure(*resized, {Place.topLeft(), QSize(150, 90)});

    // then
    QTRY_COMPARE(resized->geometry(), QRect(Place.topLeft(), QSize(150, 90)));
}

void ReportedPositionTest::anotherWindowIsLeftAlone()
{
    // given
    const auto reported = window();
    QWindow other;
    other.setFlags(Qt::FramelessWindowHint);
    other.setGeometry(Place.translated(100, 100));
    other.create();

    // when
    configure(other, Place);

    // then
    QTRY_COMPARE(other.geometry(), Place);
    QCOMPARE(reported->geometry(), Place);
}

REGISTER_TEST(ReportedPositionTest, QGuiApplication)
#include "reportedpositiontest.moc"

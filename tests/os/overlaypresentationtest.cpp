#include "os/presentationmode.h"

#include "tests/desktop/harness/home.h"
#include "tests/support/testprogram.h"
#include "tests/support/windowmanagerstub.h"
#include "tests/support/windowprobe.h"
#include "tests/support/windowwatch.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <memory>
#include <optional>

using namespace osUtils::System;

namespace {

constexpr int normalMode = 0;
constexpr int allHiddenMode = 3;
constexpr Qt::WindowFlags overlayFlags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;

constexpr quint32 ordinaryProgram = 1; // the source of its requests

constexpr auto fullScreen = "_NET_WM_STATE_FULLSCREEN";

const QByteArrayList notification{"_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_NORMAL"};
const QByteArrayList dock{"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NORMAL"};

/// The native window of a widget that it owns.
class Window {
public:
    Window(const QRect& geometry, Qt::WindowFlags flags)
        : widget(std::make_unique<QWidget>(nullptr, flags))
    {
        widget->setGeometry(geometry);
        widget->winId();
    }

    QWindow* operator->() const { return widget->windowHandle(); }
    QWindow& operator*() const { return *widget->windowHandle(); }
    [[nodiscard]] QWindow* get() const { return widget->windowHandle(); }

private:
    std::unique_ptr<QWidget> widget;
};

Window window(const QRect& geometry, Qt::WindowFlags flags)
{
    return {geometry, flags};
}

QRect wholeScreen()
{
    return QGuiApplication::primaryScreen()->geometry();
}

Window overlay(const QRect& geometry = wholeScreen())
{
    return window(geometry, Qt::Window | overlayFlags);
}

Command openbox(const Home& home)
{
    Environment environment = home.environment(qgetenv("DISPLAY"));
    environment.insert("XAUTHORITY", qgetenv("XAUTHORITY"));
    return {
        .program = "/usr/bin/openbox", .arguments = {"--sm-disable"}, .environment = environment};
}

/// What a window has told the window manager of itself.
struct Hints {
    QByteArrayList type;
    QByteArrayList state;
    std::optional<QList<quint32>> sizes;

    bool operator==(const Hints&) const = default;
};

/// The smallest and the largest size that the size hints allow, in device pixels; null where they
/// say nothing.
struct SizeLimits {
    QSize smallest;
    QSize largest;
};

SizeLimits limits(const QList<quint32>& normalHints)
{
    constexpr quint32 saysSmallest = 1U << 4;
    constexpr quint32 saysLargest = 1U << 5;
    const auto size = [&normalHints](qsizetype at) {
        return QSize(static_cast<int>(normalHints.value(at)),
                     static_cast<int>(normalHints.value(at + 1)));
    };
    const quint32 flags = normalHints.value(0);
    return {flags & saysSmallest ? size(5) : QSize(), flags & saysLargest ? size(7) : QSize()};
}

}

/// Overlays as the window manager sees them.
class OverlayPresentationTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { setSystemUIMode(normalMode, 0); }
    void anOverlayIsPresentedBeforeItIsMapped();
    void anOverlayOverTheScreenIsFullScreen();
    void aSmallerOverlayIsNotFullScreen_data();
    void aSmallerOverlayIsNotFullScreen();
    void forXfwmAnOverlayIsADock();
    void whatIsDoneIsLoggedWhenAskedFor();
    void anOverlayKeepsItsSizeAndPlace_data();
    void anOverlayKeepsItsSizeAndPlace();
    void anOverlayShownAgainIsPresentedAgain();
    void aShownOverlayIsPresentedAtOnce();
    void anOverlayThatIsNotShownYetWaits();
    void otherWindowsAreLeftAlone_data();
    void otherWindowsAreLeftAlone();
    void windowsInsideAnOverlayAreLeftAlone();
    void inOtherModesOverlaysAreLeftAlone_data();
    void inOtherModesOverlaysAreLeftAlone();
    void afterTheNormalModeIsBackOverlaysAreLeftAlone();
    void forXfwmAnOverlayInTheNormalModeIsNotOnTop();
    void forXfwmAnOverlayPresentedAgainIsOnTop();

private:
    [[nodiscard]] Hints hints(const QWindow& window) const;
    [[nodiscard]] Hints hintsWhenShown(Qt::WindowFlags flags) const;

    const XConnection x{qgetenv("DISPLAY")};
};

void OverlayPresentationTest::init()
{
    QTest::failOnWarning(QRegularExpression(".?"));
    setSystemUIMode(normalMode, 0);
}

Hints OverlayPresentationTest::hints(const QWindow& window) const
{
    const WindowProbe probe(x, idOf(window));
    return {probe.atoms("_NET_WM_WINDOW_TYPE"), probe.atoms("_NET_WM_STATE"),
            probe.numbers("WM_NORMAL_HINTS")};
}

Hints OverlayPresentationTest::hintsWhenShown(Qt::WindowFlags flags) const
{
    const auto shown = window(wholeScreen(), flags);
    shown->show();
    return hints(*shown);
}

void OverlayPresentationTest::anOverlayIsPresentedBeforeItIsMapped()
{
    // given
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();
    WindowWatch watch(idOf(*window));

    // when
    window->show();

    // then
    const QByteArrayList events = watch.events();
    const qsizetype map = events.indexOf("mapped");
    QVERIFY(map > 0);
    for (const char* property : {"_NET_WM_WINDOW_TYPE", "_NET_WM_STATE", "WM_NORMAL_HINTS"}) {
        QVERIFY2(events.mid(0, map).contains(property), property);
        QVERIFY2(!events.mid(map).contains(property), property);
    }
}

void OverlayPresentationTest::anOverlayOverTheScreenIsFullScreen()
{
    // given
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();

    // when
    window->show();

    // then
    const Hints told = hints(*window);
    QCOMPARE(told.type, notification);
    QVERIFY(told.state.contains(fullScreen));
    QVERIFY(told.state.contains("_NET_WM_STATE_ABOVE"));
    QCOMPARE(window->windowStates(), Qt::WindowStates(Qt::WindowFullScreen));
    QVERIFY(window->flags().testFlags(overlayFlags));
}

void OverlayPresentationTest::aSmallerOverlayIsNotFullScreen_data()
{
    const QRect screen = wholeScreen();
    QTest::addColumn<QRect>("geometry");

    QTest::newRow("small") << QRect(100, 50, 300, 200);
    QTest::newRow("one row short") << screen.adjusted(0, 0, 0, -1);
    QTest::newRow("of the screen's size elsewhere") << screen.translated(1, 0);
}

void OverlayPresentationTest::aSmallerOverlayIsNotFullScreen()
{
    // given
    QFETCH(QRect, geometry);
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay(geometry);

    // when
    window->show();

    // then
    const Hints told = hints(*window);
    QCOMPARE(told.type, notification);
    QVERIFY(!told.state.contains(fullScreen));
    QVERIFY(told.state.contains("_NET_WM_STATE_ABOVE"));
    QCOMPARE(window->windowStates(), Qt::WindowStates(Qt::WindowNoState));
}

void OverlayPresentationTest::forXfwmAnOverlayIsADock()
{
    // given
    const AnnouncedWindowManager manager(x, "Xfwm4");
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();

    // when
    window->show();

    // then
    const Hints told = hints(*window);
    QCOMPARE(told.type, dock);
    QVERIFY(!told.state.contains(fullScreen));
    QVERIFY(told.state.contains("_NET_WM_STATE_ABOVE"));
}

void OverlayPresentationTest::whatIsDoneIsLoggedWhenAskedFor()
{
    // given
    const AnnouncedWindowManager manager(x, "Xfwm4");
    QLoggingCategory::setFilterRules("korvel.*=true");
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();

    // then
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression("Window manager \"Xfwm4\""));
    window->show();
    QLoggingCategory::setFilterRules({});
}

void OverlayPresentationTest::anOverlayKeepsItsSizeAndPlace_data()
{
    QTest::addColumn<QRect>("geometry");

    QTest::newRow("over the screen") << wholeScreen();
    QTest::newRow("smaller") << QRect(100, 50, 300, 200);
}

void OverlayPresentationTest::anOverlayKeepsItsSizeAndPlace()
{
    // given
    QFETCH(QRect, geometry);
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay(geometry);

    // when
    window->show();

    // then
    const SizeLimits told = limits(hints(*window).sizes.value_or(QList<quint32>()));
    const QSize size = WindowProbe(x, idOf(*window)).size();
    QCOMPARE(window->geometry(), geometry);
    QCOMPARE(told.smallest, size);
    QCOMPARE(told.largest, size);
}

void OverlayPresentationTest::anOverlayShownAgainIsPresentedAgain()
{
    // given
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();
    window->show();
    window->hide();
    const uint32_t other = x.atom("_NET_WM_WINDOW_TYPE_NORMAL");
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, idOf(*window),
                        x.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &other);
    x.synchronise();

    // when
    window->show();

    // then
    QCOMPARE(hints(*window).type, notification);
}

void OverlayPresentationTest::aShownOverlayIsPresentedAtOnce()
{
    // given
    const Home home;
    const ChildProcess manager(openbox(home));
    QTRY_VERIFY(WindowProbe(x, x.root()).hasProperty("_NET_CLIENT_LIST"));
    // Openbox announces itself a little too early: a window shown before it listens is forgotten.
    Window window = overlay();
    const auto isShown = [&] {
        window = overlay();
        window->show();
        constexpr int patienceMs = 500;
        return QTest::qWaitForWindowExposed(window.get(), patienceMs);
    };
    QTRY_VERIFY(isShown());
    WindowWatch watch(idOf(*window));

    // when
    setSystemUIMode(allHiddenMode, 0);

    // then
    QTRY_VERIFY(hints(*window).state.contains(fullScreen));
    QCOMPARE(hints(*window).type, notification);
    QCOMPARE(window->geometry(), wholeScreen());
    QVERIFY(!watch.events().contains("unmapped"));
}

void OverlayPresentationTest::anOverlayThatIsNotShownYetWaits()
{
    // given
    const auto window = overlay();
    const Hints before = hints(*window);

    // when
    setSystemUIMode(allHiddenMode, 0);

    // then
    QCOMPARE(hints(*window), before);
}

void OverlayPresentationTest::otherWindowsAreLeftAlone_data()
{
    QTest::addColumn<Qt::WindowFlags>("flags");

    QTest::newRow("ordinary") << Qt::WindowFlags(Qt::Window);
    QTest::newRow("frameless") << (Qt::Window | Qt::FramelessWindowHint);
    QTest::newRow("on top") << (Qt::Window | Qt::WindowStaysOnTopHint);
    QTest::newRow("dialog") << (Qt::Dialog | overlayFlags);
    QTest::newRow("pop-up") << (Qt::Popup | overlayFlags);
    QTest::newRow("tool") << (Qt::Tool | overlayFlags);
    QTest::newRow("tooltip") << (Qt::ToolTip | overlayFlags);
    QTest::newRow("splash screen") << (Qt::SplashScreen | overlayFlags);
}

void OverlayPresentationTest::otherWindowsAreLeftAlone()
{
    // given
    QFETCH(Qt::WindowFlags, flags);
    const Hints inNormalMode = hintsWhenShown(flags);
    const auto early = window(wholeScreen(), flags);
    early->show();

    // when
    setSystemUIMode(allHiddenMode, 0);

    // then
    QCOMPARE(hints(*early), inNormalMode);
    QCOMPARE(hintsWhenShown(flags), inNormalMode);
}

void OverlayPresentationTest::windowsInsideAnOverlayAreLeftAlone()
{
    // given
    setSystemUIMode(allHiddenMode, 0);
    const auto outer = overlay();
    QWindow inner(outer.get());
    inner.setFlags(Qt::Window | overlayFlags);
    inner.setGeometry(10, 10, 20, 20);
    inner.create();
    const Hints before = hints(inner);

    // when
    outer->show();
    inner.show();

    // then
    QCOMPARE(hints(inner).type, before.type);
    QCOMPARE(inner.minimumSize(), QSize(0, 0));
}

void OverlayPresentationTest::inOtherModesOverlaysAreLeftAlone_data()
{
    QTest::addColumn<int>("mode");

    QTest::newRow("normal") << 0;
    QTest::newRow("content suppressed") << 1;
    QTest::newRow("content hidden") << 2;
    QTest::newRow("one past") << 4;
    QTest::newRow("negative") << -3;
}

void OverlayPresentationTest::inOtherModesOverlaysAreLeftAlone()
{
    // given
    QFETCH(int, mode);
    const Hints untouched = hintsWhenShown(Qt::Window | overlayFlags);
    const auto early = overlay();
    early->show();

    // when
    setSystemUIMode(mode, 0);

    // then
    QCOMPARE(hints(*early), untouched);
    QCOMPARE(hintsWhenShown(Qt::Window | overlayFlags), untouched);
}

void OverlayPresentationTest::afterTheNormalModeIsBackOverlaysAreLeftAlone()
{
    // given
    const Hints untouched = hintsWhenShown(Qt::Window | overlayFlags);
    setSystemUIMode(allHiddenMode, 0);

    // when
    setSystemUIMode(normalMode, 0);

    // then
    QCOMPARE(hintsWhenShown(Qt::Window | overlayFlags), untouched);
}

void OverlayPresentationTest::forXfwmAnOverlayInTheNormalModeIsNotOnTop()
{
    // given
    const AnnouncedWindowManager manager(x, "Xfwm4");
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();
    window->show();
    StateRequestWatch watch;

    // when
    setSystemUIMode(normalMode, 0);

    // then
    constexpr quint32 remove = 0;
    QVERIFY(watch.requests().contains(
        StateRequest{idOf(*window), remove, {"_NET_WM_STATE_ABOVE"}, ordinaryProgram}));
}

void OverlayPresentationTest::forXfwmAnOverlayPresentedAgainIsOnTop()
{
    // given
    const AnnouncedWindowManager manager(x, "Xfwm4");
    setSystemUIMode(allHiddenMode, 0);
    const auto window = overlay();
    window->show();
    setSystemUIMode(normalMode, 0);
    StateRequestWatch watch;

    // when
    setSystemUIMode(allHiddenMode, 0);

    // then
    constexpr quint32 add = 1;
    QVERIFY(watch.requests().contains(
        StateRequest{idOf(*window), add, {"_NET_WM_STATE_ABOVE"}, ordinaryProgram}));
}

REGISTER_TEST(OverlayPresentationTest, QApplication)
#include "overlaypresentationtest.moc"

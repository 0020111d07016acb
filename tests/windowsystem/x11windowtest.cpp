#include "windowsystem/x11/x11window.h"

#include "tests/support/testprogram.h"
#include "tests/support/windowmanagerstub.h"
#include "tests/support/windowprobe.h"
#include "tests/support/windowwatch.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

using namespace Windowing;
using Windowing::X11::WindowLayer;

namespace {

/// The number of a window that was there and is no more.
WId deadWindow()
{
    QWindow window;
    window.create();
    return window.winId();
}

}

/// Native properties, read back by another client of the server.
class X11WindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void cleanup();
    void withoutAWindowManagerThereIsNoName();
    void aWindowManagerIsKnownByItsName_data();
    void aWindowManagerIsKnownByItsName();
    void aCrashedWindowManagerHasNoName();
    void aCrashedWindowManagersNumberIsNoName();
    void aBrokenAnnouncementIsNoName_data();
    void aBrokenAnnouncementIsNoName();
    void aLayerIsATypeFollowedByTheNormalOne_data();
    void aLayerIsATypeFollowedByTheNormalOne();
    void aLaterLayerReplacesTheFormer();
    void stayingAboveIsAskedOfTheWindowManager();
    void stayingAboveIsTakenBack();
    void cardinalsAreSetAndDeleted();
    void deletingWhatIsNotThereIsHarmless();
    void aWindowWithoutFramesStandsAlone();
    void framesAreListedFromTheInnermost();
    void aWindowIsSeenFromTheDesktop();
    void aWindowIsMappedWithItsFrames();
    void theMouseIsCaughtInARegion();
    void anEmptyRegionCatchesNothing();
    void withoutARegionTheWholeWindowCatchesTheMouse();
    void theVisibleShapeIsNotTheInputShape();
    void aWindowThatIsGoneIsNotReported();

private:
    const XConnection x{qgetenv("DISPLAY")};
};

void X11WindowTest::cleanup()
{
    xcb_delete_property(x.raw(), x.root(), x.atom("_NET_SUPPORTING_WM_CHECK"));
    x.synchronise();
}

void X11WindowTest::withoutAWindowManagerThereIsNoName()
{
    QCOMPARE(X11::windowManagerName(), QByteArray());
}

void X11WindowTest::aWindowManagerIsKnownByItsName_data()
{
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("one word") << QByteArray("Openbox");
    QTest::newRow("two words") << QByteArray("GNOME Shell");
    QTest::newRow("no ASCII") << QByteArray("\xc3\x9c"
                                            "berfenster");
    QTest::newRow("empty") << QByteArray();
}

void X11WindowTest::aWindowManagerIsKnownByItsName()
{
    // given
    QFETCH(QByteArray, name);
    const AnnouncedWindowManager manager(x, name);

    // when
    const QByteArray found = X11::windowManagerName();

    // then
    QCOMPARE(found, name);
}

void X11WindowTest::aCrashedWindowManagerHasNoName()
{
    // given
    AnnouncedWindowManager manager(x, "Openbox");
    manager.crash();

    // when
    const QByteArray found = X11::windowManagerName();

    // then
    QCOMPARE(found, QByteArray());
}

void X11WindowTest::aCrashedWindowManagersNumberIsNoName()
{
    // given
    QWindow other; // has got the number of the window that announced it
    other.setTitle("Openbox");
    other.create();
    const xcb_window_t number = idOf(other);
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, x.root(),
                        x.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, 1, &number);
    x.synchronise();

    // when
    const QByteArray found = X11::windowManagerName();

    // then
    QCOMPARE(found, QByteArray());
}

void X11WindowTest::aBrokenAnnouncementIsNoName_data()
{
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("too short") << QByteArray("\1\2", 2);
    QTest::newRow("two windows") << QByteArray(8, '\1');
    QTest::newRow("no window") << QByteArray(4, '\0');
}

void X11WindowTest::aBrokenAnnouncementIsNoName()
{
    // given
    QFETCH(QByteArray, value);
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, x.root(),
                        x.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 8,
                        static_cast<uint32_t>(value.size()), value.constData());
    x.synchronise();

    // when
    const QByteArray found = X11::windowManagerName();

    // then
    QCOMPARE(found, QByteArray());
}

void X11WindowTest::aLayerIsATypeFollowedByTheNormalOne_data()
{
    QTest::addColumn<WindowLayer::Type>("type");
    QTest::addColumn<QByteArrayList>("names");

    QTest::newRow("notification") << WindowLayer::Type::Notification
                                  << QByteArrayList{"_NET_WM_WINDOW_TYPE_NOTIFICATION",
                                                    "_NET_WM_WINDOW_TYPE_NORMAL"};
    QTest::newRow("dock") << WindowLayer::Type::Dock
                          << QByteArrayList{"_NET_WM_WINDOW_TYPE_DOCK",
                                            "_NET_WM_WINDOW_TYPE_NORMAL"};
}

void X11WindowTest::aLayerIsATypeFollowedByTheNormalOne()
{
    // given
    QFETCH(WindowLayer::Type, type);
    QWindow window;
    window.create();

    // when
    X11::setWindowLayer(window.winId(), {type, true});

    // then
    const WindowProbe probe(x, idOf(window));
    QTEST(probe.atoms("_NET_WM_WINDOW_TYPE"), "names");
    QVERIFY(!probe.atoms("_NET_WM_STATE").contains("_NET_WM_STATE_FULLSCREEN"));
}

void X11WindowTest::aLaterLayerReplacesTheFormer()
{
    // given
    QWindow window;
    window.create();
    X11::setWindowLayer(window.winId(), {WindowLayer::Type::Dock, false});

    // when
    X11::setWindowLayer(window.winId(), {WindowLayer::Type::Notification, false});

    // then
    QCOMPARE(WindowProbe(x, idOf(window)).atoms("_NET_WM_WINDOW_TYPE"),
             QByteArrayList({"_NET_WM_WINDOW_TYPE_NOTIFICATION", "_NET_WM_WINDOW_TYPE_NORMAL"}));
}

void X11WindowTest::stayingAboveIsAskedOfTheWindowManager()
{
    // given
    QWindow window;
    window.show();
    StateRequestWatch watch;

    // when
    X11::keepAbove(window.winId());

    // then
    constexpr quint32 add = 1;
    constexpr quint32 ordinaryProgram = 1;
    QCOMPARE(watch.requests(),
             QList<StateRequest>({{idOf(window), add, {"_NET_WM_STATE_ABOVE"}, ordinaryProgram}}));
}

void X11WindowTest::stayingAboveIsTakenBack()
{
    // given
    QWindow window;
    window.show();
    StateRequestWatch watch;

    // when
    X11::stopKeepingAbove(window.winId());

    // then
    constexpr quint32 remove = 0;
    constexpr quint32 ordinaryProgram = 1;
    QCOMPARE(
        watch.requests(),
        QList<StateRequest>({{idOf(window), remove, {"_NET_WM_STATE_ABOVE"}, ordinaryProgram}}));
}

void X11WindowTest::cardinalsAreSetAndDeleted()
{
    // given
    QWindow window;
    window.create();
    const WindowProbe probe(x, idOf(window));

    // when
    X11::setCardinals(window.winId(), "_KORVEL_TEST", {1, 2, 4000000000U});
    const auto set = probe.numbers("_KORVEL_TEST");
    X11::setCardinals(window.winId(), "_KORVEL_TEST", {7});
    const auto replaced = probe.numbers("_KORVEL_TEST");
    X11::deleteProperty(window.winId(), "_KORVEL_TEST");

    // then
    QCOMPARE(set, QList<quint32>({1, 2, 4000000000U}));
    QCOMPARE(replaced, QList<quint32>({7}));
    QVERIFY(!probe.hasProperty("_KORVEL_TEST"));
}

void X11WindowTest::deletingWhatIsNotThereIsHarmless()
{
    // given
    QWindow window;
    window.create();

    // when
    X11::deleteProperty(window.winId(), "_KORVEL_NEVER_SET");

    // then
    QVERIFY(!WindowProbe(x, idOf(window)).hasProperty("_KORVEL_NEVER_SET"));
}

void X11WindowTest::aWindowWithoutFramesStandsAlone()
{
    // given
    QWindow window;
    window.create();

    // when
    const std::vector<WId> windows = X11::windowAndFrames(window.winId());

    // then
    QCOMPARE(windows, std::vector<WId>({window.winId()}));
}

void X11WindowTest::framesAreListedFromTheInnermost()
{
    // given
    WindowFrames frames(x);
    QWindow window;
    window.create();
    finishQtRequests();
    const WId inner = frames.enclose(idOf(window));
    const WId outer = frames.enclose(idOf(window));

    // when
    const std::vector<WId> windows = X11::windowAndFrames(window.winId());

    // then
    QCOMPARE(windows, std::vector<WId>({window.winId(), inner, outer}));
}

void X11WindowTest::aWindowIsSeenFromTheDesktop()
{
    // given
    QWindow window;
    window.setGeometry(30, 40, 200, 100);
    QWindow inner(&window);
    inner.setGeometry(5, 6, 20, 10);
    inner.create();

    // when
    const QPoint position = X11::positionOnDesktop(inner.winId());

    // then
    QCOMPARE(position, QPoint(35, 46));
}

void X11WindowTest::aWindowIsMappedWithItsFrames()
{
    // given
    QWindow window;
    window.create();
    QWindow inner(&window);
    inner.show();

    // when
    const bool before = X11::isMappedWithFrames(inner.winId());
    window.show();
    const bool after = X11::isMappedWithFrames(inner.winId());

    // then
    QVERIFY(!before);
    QVERIFY(after);
}

void X11WindowTest::theMouseIsCaughtInARegion()
{
    // given
    QWindow window;
    window.resize(200, 100);
    window.create();
    const QRegion region = QRegion(10, 20, 30, 40) + QRect(100, 0, 5, 5);

    // when
    X11::setInputShape(window.winId(), region);

    // then
    QCOMPARE(WindowProbe(x, idOf(window)).inputRegion(), region);
}

void X11WindowTest::anEmptyRegionCatchesNothing()
{
    // given
    QWindow window;
    window.resize(200, 100);
    window.create();

    // when
    X11::setInputShape(window.winId(), QRegion());

    // then
    QCOMPARE(WindowProbe(x, idOf(window)).inputRegion(), QRegion());
}

void X11WindowTest::withoutARegionTheWholeWindowCatchesTheMouse()
{
    // given
    QWindow window;
    window.resize(200, 100);
    window.create();
    const WindowProbe probe(x, idOf(window));
    X11::setInputShape(window.winId(), QRegion(10, 20, 30, 40));

    // when
    X11::setInputShape(window.winId(), std::nullopt);
    window.resize(400, 300);

    // then
    QTRY_COMPARE(probe.inputRegion(), QRegion(0, 0, 400, 300));
}

void X11WindowTest::theVisibleShapeIsNotTheInputShape()
{
    // given
    QWindow window;
    window.resize(200, 100);
    window.create();
    const WindowProbe probe(x, idOf(window));
    const QRegion whole(0, 0, 200, 100);
    const QRegion part(10, 20, 30, 40);

    // when
    X11::setVisibleShape(window.winId(), part);
    const QRegion visible = probe.visibleRegion();
    X11::setVisibleShape(window.winId(), std::nullopt);
    X11::setInputShape(window.winId(), part);

    // then
    QCOMPARE(visible, part);
    QCOMPARE(probe.visibleRegion(), whole);
    QCOMPARE(probe.inputRegion(), part);
}

void X11WindowTest::aWindowThatIsGoneIsNotReported()
{
    // given
    const WId window = deadWindow();

    // when
    X11::setWindowLayer(window, {});
    X11::keepAbove(window);
    X11::setCardinals(window, "_KORVEL_TEST", {1});
    X11::deleteProperty(window, "_KORVEL_TEST");
    X11::setInputShape(window, QRegion(0, 0, 1, 1));
    X11::setInputShape(window, std::nullopt);
    X11::setVisibleShape(window, QRegion());
    finishQtRequests();
    QCoreApplication::processEvents();

    // then
    QCOMPARE(X11::windowAndFrames(window), std::vector<WId>());
    QCOMPARE(X11::positionOnDesktop(window), QPoint());
    QVERIFY(!X11::isMappedWithFrames(window));
}

REGISTER_TEST(X11WindowTest, QGuiApplication)
#include "x11windowtest.moc"

#include "windowsystem/nativewindow.h"

#include "overlay/windowutils.h"

#include "tests/desktop/harness/pointer.h"
#include "tests/support/testprogram.h"
#include "tests/support/windowmanagerstub.h"
#include "tests/support/windowprobe.h"
#include "tests/support/windowwatch.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTest>
#include <QWidget>

#include <memory>
#include <optional>

using namespace Helpers::NQt;
using Windowing::NativeWindow;

namespace {

constexpr QRect place{40, 30, 200, 100};
constexpr QRect palettePlace{120, 60, 60, 20};

constexpr auto picomShadow = "_COMPTON_SHADOW";
constexpr auto frameExtents = "_GTK_FRAME_EXTENTS";
constexpr auto opaqueRegion = "_NET_WM_OPAQUE_REGION";

using Numbers = std::optional<QList<quint32>>;

const Numbers noShadow = QList<quint32>{0};
const Numbers noExtents = QList<quint32>{0, 0, 0, 0};

/// A frameless window that counts clicks.
class Window : public QWidget {
public:
    explicit Window(QWidget* parent = nullptr)
        : QWidget(parent, parent ? Qt::Widget : Qt::FramelessWindowHint)
    {
        setGeometry(parent ? palettePlace : place);
    }

    xcb_window_t id() { return static_cast<xcb_window_t>(winId()); }

    void makeNativeWindowAnew()
    {
        const bool visible = isVisible();
        destroy();
        create();
        setVisible(visible);
    }

    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

/// The device pixels that a part of a window touches.
QRect toPixels(const QRect& part, const QWidget& window)
{
    const qreal ratio = window.devicePixelRatioF();
    return QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toAlignedRect();
}

/// A rectangle of this size as a property tells it.
Numbers wholeOf(QSize size)
{
    return QList<quint32>{0, 0, static_cast<quint32>(size.width()),
                          static_cast<quint32>(size.height())};
}

bool show(QWidget& widget)
{
    widget.show();
    return QTest::qWaitForWindowExposed(&widget);
}

}

/// Native properties of windows, as another client of the server sees them.
class NativeWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aWindowHasOneMemory();
    void whatWasNotAskedForIsNotSet();

    void aWindowThatIgnoresTheMouseCatchesNothing_data() { addMoments(); }
    void aWindowThatIgnoresTheMouseCatchesNothing();
    void aWindowThatItsChildrenCoverCatchesNothing();
    void aPaletteThatIsNamedStaysClickable_data() { addMoments(); }
    void aPaletteThatIsNamedStaysClickable();
    void thePaletteMayBeNamedLater();
    void whatAMaskCutsOffAPaletteCatchesNothing();
    void theRegionFollowsThePalette();
    void aPaletteThatIsGoneCatchesNothing_data();
    void aPaletteThatIsGoneCatchesNothing();
    void hiddenPalettesDoNotCount();
    void aSecondCallTakesTheMouseBack_data() { addMoments(); }
    void aSecondCallTakesTheMouseBack();
    void aTakenBackMouseStaysCaught();
    void clicksFallThroughButNotThroughThePalette();

    void aShadowIsTakenAwayAndGivenBack_data() { addMoments(); }
    void aShadowIsTakenAwayAndGivenBack();
    void opaqueIsTheInverseOfTransparent_data() { addMoments(); }
    void opaqueIsTheInverseOfTransparent();
    void theOpaqueRegionFollowsTheSize_data();
    void theOpaqueRegionFollowsTheSize();

    void theWindowIsNotMappedAnew();
    void aNewNativeWindowGetsItAll();
    void framesPutAroundAtTheMapGetIt();
    void framesOfAShownWindowGetItAndLoseIt();

    void theTopLayerIsAskedFor_data();
    void theTopLayerIsAskedFor();
    void theTopLayerIsAskedForAgainWhenTheWindowIsShown();
    void theWindowIsRaised();

private:
    static void addMoments();
    [[nodiscard]] WindowProbe probe(Window& window) const { return {x, window.id()}; }

    const XConnection x{qgetenv("DISPLAY")};
    const Pointer pointer{x};
};

// The window functions may be called before a window is shown and while it is.
void NativeWindowTest::addMoments()
{
    QTest::addColumn<bool>("shown");

    QTest::newRow("before it is shown") << false;
    QTest::newRow("while it is shown") << true;
}

void NativeWindowTest::aWindowHasOneMemory()
{
    // given
    Window window;
    Window child(&window);

    // when
    NativeWindow& memory = NativeWindow::of(window);

    // then
    QCOMPARE(&NativeWindow::of(window), &memory);
    QCOMPARE(&NativeWindow::of(child), &memory);
    QCOMPARE(memory.parent(), &window);
}

void NativeWindowTest::whatWasNotAskedForIsNotSet()
{
    // given
    Window window;
    const Window child(&window);

    // when
    NativeWindow::of(window);
    QVERIFY(show(window));
    window.makeNativeWindowAnew();

    // then
    for (const char* property : {picomShadow, frameExtents, opaqueRegion})
        QVERIFY2(!probe(window).hasProperty(property), property);
    QCOMPARE(probe(window).inputRegion(), QRegion(toPixels(window.rect(), window)));
}

void NativeWindowTest::aWindowThatIgnoresTheMouseCatchesNothing()
{
    // given
    QFETCH(bool, shown);
    Window window;
    if (shown)
        QVERIFY(show(window));

    // when
    Utils::setIgnoresMouseEvents(&window, true);

    // then
    QCOMPARE(probe(window).inputRegion(), QRegion());
    QVERIFY(show(window));
    QCOMPARE(probe(window).inputRegion(), QRegion());
}

void NativeWindowTest::aWindowThatItsChildrenCoverCatchesNothing()
{
    // given
    Window window;
    Window cover(&window);
    cover.setGeometry(window.rect());
    QVERIFY(show(window));

    // when
    Utils::setIgnoresMouseEvents(&window, true);

    // then
    QCOMPARE(probe(window).inputRegion(), QRegion());
}

void NativeWindowTest::aPaletteThatIsNamedStaysClickable()
{
    // given
    QFETCH(bool, shown);
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    if (shown)
        QVERIFY(show(window));

    // when
    Utils::setIgnoresMouseEvents(&window, true);

    // then
    const QRegion expected(toPixels(palettePlace, window));
    QCOMPARE(probe(window).inputRegion(), expected);
    QVERIFY(show(window));
    QCOMPARE(probe(window).inputRegion(), expected);
}

void NativeWindowTest::thePaletteMayBeNamedLater()
{
    // given
    Window window;
    Utils::setIgnoresMouseEvents(&window, true);
    QVERIFY(show(window));
    Window palette(&window);
    palette.show();

    // when
    NativeWindow::of(window).goOnCatchingMouseOver(palette);

    // then
    QCOMPARE(probe(window).inputRegion(), QRegion(toPixels(palettePlace, window)));
}

void NativeWindowTest::whatAMaskCutsOffAPaletteCatchesNothing()
{
    // given
    Window window;
    Window palette(&window);
    palette.setMask(QRect(0, 0, 60, 10));
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    QVERIFY(show(window));

    // when
    Utils::setIgnoresMouseEvents(&window, true);

    // then
    QCOMPARE(probe(window).inputRegion(), QRegion(toPixels({120, 60, 60, 10}, window)));
}

void NativeWindowTest::theRegionFollowsThePalette()
{
    // given
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    QVERIFY(show(window));
    Utils::setIgnoresMouseEvents(&window, true);

    // then
    palette.move(7, 9);
    QTRY_COMPARE(probe(window).inputRegion(), QRegion(toPixels({7, 9, 60, 20}, window)));
    palette.resize(31, 13);
    QTRY_COMPARE(probe(window).inputRegion(), QRegion(toPixels({7, 9, 31, 13}, window)));
    palette.hide();
    QTRY_COMPARE(probe(window).inputRegion(), QRegion());
    palette.show();
    QTRY_COMPARE(probe(window).inputRegion(), QRegion(toPixels({7, 9, 31, 13}, window)));
}

void NativeWindowTest::aPaletteThatIsGoneCatchesNothing_data()
{
    QTest::addColumn<bool>("deleted");

    QTest::newRow("deleted") << true;
    QTest::newRow("in another window") << false;
}

void NativeWindowTest::aPaletteThatIsGoneCatchesNothing()
{
    // given
    QFETCH(bool, deleted);
    Window window;
    auto palette = std::make_unique<Window>(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(*palette);
    QVERIFY(show(window));
    Utils::setIgnoresMouseEvents(&window, true);

    // when
    if (deleted)
        palette.reset();
    else
        palette->setParent(nullptr);

    // then
    QTRY_COMPARE(probe(window).inputRegion(), QRegion());
}

void NativeWindowTest::hiddenPalettesDoNotCount()
{
    // given
    Window window;
    Window hidden(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(hidden);
    hidden.hide();
    QVERIFY(show(window));

    // when
    Utils::setIgnoresMouseEvents(&window, true);

    // then
    QCOMPARE(probe(window).inputRegion(), QRegion());
}

void NativeWindowTest::aSecondCallTakesTheMouseBack()
{
    // given
    QFETCH(bool, shown);
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    if (shown)
        QVERIFY(show(window));
    Utils::setIgnoresMouseEvents(&window, true);

    // when
    Utils::setIgnoresMouseEvents(&window, false);
    QVERIFY(show(window));
    window.resize(300, 200);

    // then
    QTRY_COMPARE(probe(window).inputRegion(), QRegion(toPixels(window.rect(), window)));
}

void NativeWindowTest::aTakenBackMouseStaysCaught()
{
    // given
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    QVERIFY(show(window));
    Utils::setIgnoresMouseEvents(&window, true);
    Utils::setIgnoresMouseEvents(&window, false);

    // when
    palette.move(7, 9);
    palette.hide();

    // then
    QCOMPARE(probe(window).inputRegion(), QRegion(toPixels(window.rect(), window)));
}

void NativeWindowTest::clicksFallThroughButNotThroughThePalette()
{
    // given
    Window lower;
    Window upper;
    Window palette(&upper);
    NativeWindow::of(upper).goOnCatchingMouseOver(palette);
    QVERIFY(show(lower));
    QVERIFY(show(upper));
    upper.raise();
    Utils::setIgnoresMouseEvents(&upper, true);
    finishQtRequests();

    // when
    const QPoint corner = place.topLeft() * lower.devicePixelRatio();
    pointer.click(corner + QPoint(10, 10));
    pointer.click(corner + toPixels(palettePlace, upper).center());

    // then
    QTRY_COMPARE(palette.presses, 1);
    QTRY_COMPARE(lower.presses, 1);
    QCOMPARE(upper.presses, 0);
}

void NativeWindowTest::aShadowIsTakenAwayAndGivenBack()
{
    // given
    QFETCH(bool, shown);
    Window window;
    if (shown)
        QVERIFY(show(window));

    // when
    Utils::setWindowShadow(&window, false);
    const Numbers picom = probe(window).numbers(picomShadow);
    const Numbers extents = probe(window).numbers(frameExtents);
    Utils::setWindowShadow(&window, true);

    // then
    QCOMPARE(picom, noShadow);
    QCOMPARE(extents, noExtents);
    QVERIFY(!probe(window).hasProperty(picomShadow));
    QVERIFY(!probe(window).hasProperty(frameExtents));
}

void NativeWindowTest::opaqueIsTheInverseOfTransparent()
{
    // given
    QFETCH(bool, shown);
    Window window;
    if (shown)
        QVERIFY(show(window));
    const QSize size = probe(window).size();

    // when
    Utils::setWindowTransparency(&window, false);
    const Numbers opaque = probe(window).numbers(opaqueRegion);
    Utils::setWindowTransparency(&window, true);

    // then
    QCOMPARE(opaque, wholeOf(size));
    QVERIFY(!probe(window).hasProperty(opaqueRegion));
}

void NativeWindowTest::theOpaqueRegionFollowsTheSize_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("larger") << QSize(300, 150);
    QTest::newRow("smaller") << QSize(100, 50);
}

void NativeWindowTest::theOpaqueRegionFollowsTheSize()
{
    // given
    QFETCH(QSize, size);
    Window window;
    QVERIFY(show(window));
    Utils::setWindowTransparency(&window, false);

    // when
    window.resize(size);

    // then
    const QRect pixels = toPixels({QPoint(), size}, window);
    QTRY_COMPARE(probe(window).numbers(opaqueRegion), wholeOf(pixels.size()));
}

void NativeWindowTest::theWindowIsNotMappedAnew()
{
    // given
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    QVERIFY(show(window));
    const xcb_window_t id = window.id();
    WindowWatch watch(id);

    // when
    for (const bool on : {true, false, true}) {
        Utils::setIgnoresMouseEvents(&window, on);
        Utils::setWindowShadow(&window, on);
        Utils::setWindowTransparency(&window, on);
    }
    QCoreApplication::processEvents();

    // then
    const QByteArrayList events = watch.events();
    QVERIFY(events.contains(picomShadow));
    for (const char* event : {"mapped", "unmapped", "configured"})
        QVERIFY2(!events.contains(event), event);
    QCOMPARE(window.id(), id);
}

void NativeWindowTest::aNewNativeWindowGetsItAll()
{
    // given
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    QVERIFY(show(window));
    Utils::setIgnoresMouseEvents(&window, true);
    Utils::setWindowShadow(&window, false);
    Utils::setWindowTransparency(&window, false);
    const xcb_window_t before = window.id();

    // when
    window.makeNativeWindowAnew();

    // then
    QVERIFY(window.id() != before);
    QCOMPARE(probe(window).inputRegion(), QRegion(toPixels(palettePlace, window)));
    QCOMPARE(probe(window).numbers(picomShadow), noShadow);
    QCOMPARE(probe(window).numbers(frameExtents), noExtents);
    QVERIFY(probe(window).hasProperty(opaqueRegion));
}

void NativeWindowTest::framesPutAroundAtTheMapGetIt()
{
    // given
    WindowFrames frames(x);
    Window window;
    Window palette(&window);
    NativeWindow::of(window).goOnCatchingMouseOver(palette);
    Utils::setIgnoresMouseEvents(&window, true);
    Utils::setWindowShadow(&window, false);
    finishQtRequests();
    const WindowProbe inner(x, frames.enclose(window.id()));
    const WindowProbe outer(x, frames.enclose(window.id()));

    // when
    window.show();

    // then
    const QRegion expected(toPixels(palettePlace, window));
    for (const WindowProbe& frame : {inner, outer}) {
        QTRY_COMPARE(frame.inputRegion(), expected);
        QTRY_COMPARE(frame.numbers(picomShadow), noShadow);
    }
}

void NativeWindowTest::framesOfAShownWindowGetItAndLoseIt()
{
    // given
    WindowFrames frames(x);
    Window window;
    finishQtRequests();
    const WindowProbe frame(x, frames.enclose(window.id()));
    QVERIFY(show(window));
    const QRegion whole = frame.inputRegion();

    // when
    Utils::setIgnoresMouseEvents(&window, true);
    Utils::setWindowShadow(&window, false);
    const QRegion ignoring = frame.inputRegion();
    const Numbers without = frame.numbers(picomShadow);
    Utils::setIgnoresMouseEvents(&window, false);
    Utils::setWindowShadow(&window, true);

    // then
    QCOMPARE(ignoring, QRegion());
    QCOMPARE(without, noShadow);
    QCOMPARE(frame.inputRegion(), whole);
    QVERIFY(!frame.hasProperty(picomShadow));
}

void NativeWindowTest::theTopLayerIsAskedFor_data()
{
    QTest::addColumn<QByteArray>("manager");
    QTest::addColumn<QByteArray>("type");

    QTest::newRow("Openbox") << QByteArray("Openbox")
                             << QByteArray("_NET_WM_WINDOW_TYPE_NOTIFICATION");
    QTest::newRow("Xfwm4") << QByteArray("Xfwm4") << QByteArray("_NET_WM_WINDOW_TYPE_DOCK");
}

void NativeWindowTest::theTopLayerIsAskedFor()
{
    // given
    QFETCH(QByteArray, manager);
    QFETCH(QByteArray, type);
    const AnnouncedWindowManager announced(x, manager);
    Window window;
    QVERIFY(show(window));
    StateRequestWatch watch;

    // when
    Utils::bringToMegaTop(&window);

    // then
    constexpr quint32 add = 1;
    constexpr quint32 ordinaryProgram = 1;
    QCOMPARE(probe(window).atoms("_NET_WM_WINDOW_TYPE").value(0), type);
    QVERIFY(
        watch.requests().contains({window.id(), add, {"_NET_WM_STATE_ABOVE"}, ordinaryProgram}));
}

void NativeWindowTest::theTopLayerIsAskedForAgainWhenTheWindowIsShown()
{
    // given
    const AnnouncedWindowManager announced(x, "Openbox");
    Window window;
    Utils::bringToMegaTop(&window);
    StateRequestWatch watch;

    // when
    QVERIFY(show(window));

    // then
    constexpr quint32 add = 1;
    constexpr quint32 ordinaryProgram = 1;
    QTRY_VERIFY(
        watch.requests().contains({window.id(), add, {"_NET_WM_STATE_ABOVE"}, ordinaryProgram}));
}

void NativeWindowTest::theWindowIsRaised()
{
    // given
    Window window;
    Window other;
    QVERIFY(show(window));
    QVERIFY(show(other));
    other.raise();
    WindowWatch watch(window.id());

    // when
    Utils::bringToMegaTop(&window);
    finishQtRequests();
    pointer.click((place.topLeft() + QPoint(10, 10)) * window.devicePixelRatio());

    // then
    QTRY_COMPARE(window.presses, 1);
    QCOMPARE(other.presses, 0);
    QVERIFY(!watch.events().contains("unmapped"));
}

REGISTER_TEST(NativeWindowTest, QApplication)
#include "nativewindowtest.moc"

#include "overlay/windowutils.h"

#include "tests/support/testprogram.h"

#include <QApplication>
#include <QCursor>
#include <QRegularExpression>
#include <QTest>
#include <QWidget>
#include <QWindow>

using namespace Helpers::NQt;

namespace {

void setShadow(QWidget* widget, bool on)
{
    Utils::setWindowShadow(widget, on);
}

void ignoreMouse(QWidget* widget, bool on)
{
    Utils::setIgnoresMouseEvents(widget, on);
}

void setTransparency(QWidget* widget, bool on)
{
    Utils::setWindowTransparency(widget, on);
}

void bringToTop(QWidget* widget, bool /*on*/)
{
    Utils::bringToMegaTop(widget);
}

using Request = void (*)(QWidget*, bool);

}

Q_DECLARE_METATYPE(Request)

/// The window functions where the window system has no such properties.
class WindowUtilsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void aRequestMakesTheNativeWindow_data() { addRequests(); }
    void aRequestMakesTheNativeWindow();
    void aShownWindowStaysAsItIs_data() { addRequests(); }
    void aShownWindowStaysAsItIs();
    void aChildStandsForItsWindow_data() { addRequests(); }
    void aChildStandsForItsWindow();
    void aRequestedWindowStillTakesClicksHere();
    void theMouseIsOnTheOnlyScreen();

private:
    static void addRequests();
};

void WindowUtilsTest::addRequests()
{
    QTest::addColumn<Request>("request");

    QTest::newRow("shadow") << &setShadow;
    QTest::newRow("mouse pass-through") << &ignoreMouse;
    QTest::newRow("transparency") << &setTransparency;
    QTest::newRow("level") << &bringToTop;
}

void WindowUtilsTest::aRequestMakesTheNativeWindow()
{
    // given
    QFETCH(Request, request);
    QWidget widget;
    QVERIFY(!widget.windowHandle());

    // when
    request(&widget, true);

    // then
    QVERIFY(widget.windowHandle());
    QVERIFY(widget.isHidden());
}

void WindowUtilsTest::aShownWindowStaysAsItIs()
{
    // given
    QFETCH(Request, request);
    QWidget widget(nullptr, Qt::FramelessWindowHint);
    widget.setGeometry(10, 20, 300, 200);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    const Qt::WindowFlags flags = widget.windowFlags();
    const WId id = widget.winId();

    // when
    for (const bool on : {true, false, true, true})
        request(&widget, on);

    // then
    QVERIFY(widget.isVisible());
    QCOMPARE(widget.geometry(), QRect(10, 20, 300, 200));
    QCOMPARE(widget.windowFlags(), flags);
    QCOMPARE(widget.winId(), id);
}

void WindowUtilsTest::aChildStandsForItsWindow()
{
    // given
    QFETCH(Request, request);
    QWidget widget;
    QWidget child(&widget);

    // when
    request(&child, true);

    // then
    QVERIFY(widget.windowHandle());
    QVERIFY(!child.windowHandle());
}

void WindowUtilsTest::aRequestedWindowStillTakesClicksHere()
{
    // given
    QWidget widget;
    widget.resize(100, 100);
    Utils::setIgnoresMouseEvents(&widget, true);

    // then
    QVERIFY(!widget.testAttribute(Qt::WA_TransparentForMouseEvents));
    QVERIFY(!widget.windowFlags().testFlag(Qt::WindowTransparentForInput));
}

void WindowUtilsTest::theMouseIsOnTheOnlyScreen()
{
    // given
    QCursor::setPos(10, 10);

    // then
    QCOMPARE(Utils::findScreenHoldingMouse(), 0);
}

REGISTER_TEST(WindowUtilsTest, QApplication)
#include "windowutilstest.moc"

#include "windowsystem/windowsystem.h"

#include "tests/desktop/harness/xconnection.h"
#include "tests/support/testprogram.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using Windowing::WindowSystem;

namespace {

/// Takes the place of a compositor, and gives it up with this object. Composites nothing.
class AnnouncedCompositor {
public:
    AnnouncedCompositor()
        : x(qgetenv("DISPLAY"))
        , window(xcb_generate_id(x.raw()))
    {
        xcb_create_window(x.raw(), XCB_COPY_FROM_PARENT, window, x.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        own(window);
    }

    void own(xcb_window_t owner) const
    {
        xcb_set_selection_owner(x.raw(), owner, x.atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        x.synchronise();
    }
    void destroyWindow() const
    {
        xcb_destroy_window(x.raw(), window);
        x.synchronise();
    }

private:
    const XConnection x;
    const xcb_window_t window;
};

}

static WindowSystem& compositor()
{
    return WindowSystem::ofSession();
}

class CompositorTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".?")); }
    void thereIsNoneOnABareServer();
    void itRunsWhileSomeoneOwnsItsSelection();
    void itsEndIsTold_data();
    void itsEndIsTold();
    void aSuccessorIsNoEnd();
    void otherSelectionsAreNoneOfIts();
};

void CompositorTest::thereIsNoneOnABareServer()
{
    QVERIFY(!compositor().hasCompositor());
}

void CompositorTest::itRunsWhileSomeoneOwnsItsSelection()
{
    {
        const AnnouncedCompositor running;
        QVERIFY(compositor().hasCompositor());
    }
    QTRY_VERIFY(!compositor().hasCompositor());
}

void CompositorTest::itsEndIsTold_data()
{
    QTest::addColumn<QString>("end");

    for (const char* end : {"given up", "window destroyed", "disconnected"})
        QTest::newRow(end) << end;
}

void CompositorTest::itsEndIsTold()
{
    // Given
    QFETCH(QString, end);
    std::optional<AnnouncedCompositor> running(std::in_place);
    QVERIFY(compositor().hasCompositor());
    QSignalSpy ended(&compositor(), SIGNAL(compositorEnded()));

    // When
    if (end == "given up")
        running->own(XCB_NONE);
    else if (end == "window destroyed")
        running->destroyWindow();
    else
        running.reset();

    // Then
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(!compositor().hasCompositor());
}

void CompositorTest::aSuccessorIsNoEnd()
{
    // Given
    std::optional<AnnouncedCompositor> first(std::in_place);
    QVERIFY(compositor().hasCompositor());
    QSignalSpy ended(&compositor(), SIGNAL(compositorEnded()));

    // When
    std::optional<AnnouncedCompositor> second(std::in_place);
    first.reset();

    // Then
    QVERIFY(compositor().hasCompositor());
    second.reset();
    QTRY_COMPARE(ended.count(), 1);
}

void CompositorTest::otherSelectionsAreNoneOfIts()
{
    // Given
    const AnnouncedCompositor running;
    QVERIFY(compositor().hasCompositor());
    QSignalSpy ended(&compositor(), SIGNAL(compositorEnded()));
    const XConnection other(qgetenv("DISPLAY"));

    // When
    for (const char* name : {"PRIMARY", "_NET_WM_CM_S1"})
        xcb_set_selection_owner(other.raw(), XCB_NONE, other.atom(name), XCB_CURRENT_TIME);
    other.synchronise();
    running.own(XCB_NONE);

    // Then
    QTRY_COMPARE(ended.count(), 1);
}

REGISTER_TEST(CompositorTest, QGuiApplication)
#include "compositortest.moc"

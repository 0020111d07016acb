#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/grab.h"
#include "tests/desktop/harness/selection.h"
#include "tests/support/testprogram.h"

#include <X11/keysym.h>

#include <optional>

/// Mice and keyboards set up otherwise, and held by another program.
class HandsTest : public DesktopTest {
    Q_OBJECT

private slots:
    void aLeftHandedMouseDrawsWithItsRightButton();
    void escapeEndsWhateverTheLayout_data();
    void escapeEndsWhateverTheLayout();
    void escapeEndsWhateverIsHeld_data();
    void escapeEndsWhateverIsHeld();
    void theFrameAppearsBesideAnOpenMenu_data() { addManagers(); }
    void theFrameAppearsBesideAnOpenMenu();
    void theFrameWorksOnceTheMenuIsGone_data() { addManagers(); }
    void theFrameWorksOnceTheMenuIsGone();

private:
    static void addManagers();
    [[nodiscard]] bool swapMouseButtons() const;
    [[nodiscard]] bool setLayout(const QByteArray& layout) const;

    static constexpr QRect MenuPlace{300, 200, 200, 300};
};

void HandsTest::addManagers()
{
    QTest::addColumn<QByteArray>("managerName");

    for (const QByteArray& name : managersWanted())
        QTest::newRow(name.constData()) << name;
}

bool HandsTest::swapMouseButtons() const
{
    const auto readCookie = xcb_get_pointer_mapping(desktop->x.raw());
    const Reply<xcb_get_pointer_mapping_reply_t> current(
        xcb_get_pointer_mapping_reply(desktop->x.raw(), readCookie, nullptr));
    if (!current || current->map_len < 3)
        return false;
    uint8_t* map = xcb_get_pointer_mapping_map(current.get());
    std::swap(map[0], map[2]);
    const auto cookie = xcb_set_pointer_mapping(desktop->x.raw(), current->map_len, map);
    const Reply<xcb_set_pointer_mapping_reply_t> reply(
        xcb_set_pointer_mapping_reply(desktop->x.raw(), cookie, nullptr));
    return reply && reply->status == XCB_MAPPING_STATUS_SUCCESS;
}

bool HandsTest::setLayout(const QByteArray& layout) const
{
    ChildProcess setxkbmap({.program = "/usr/bin/setxkbmap",
                            .arguments = {"-display", desktop->display, "-layout", layout},
                            .environment = {{"LC_ALL", "C.UTF-8"}, {"PATH", qgetenv("PATH")}}});
    return eventually([&] { return setxkbmap.status() == 0; });
}

void HandsTest::aLeftHandedMouseDrawsWithItsRightButton()
{
    // given
    QVERIFY(swapMouseButtons());
    const Program korvel(*desktop, {.arguments = {"20", "0", "0", "255"}});
    EVENTUALLY(korvel.isReady());

    // when
    desktop->pointer.drag(line({300, 200}, {500, 200}), Pointer::Button::Right);
    desktop->pointer.drag(line({300, 400}, {500, 400}), Pointer::Button::Left);

    // then
    QVERIFY(parkPointer({100, 700}, Qt::blue));
    QCOMPARE(desktop->screen.colourAt({400, 200}), QColor(Qt::blue));
    QCOMPARE(desktop->screen.colourAt({400, 400}), QColor(Qt::white));
}

void HandsTest::escapeEndsWhateverTheLayout_data()
{
    QTest::addColumn<QByteArray>("layout");
    QTest::addColumn<xcb_keysym_t>("letter");

    QTest::newRow("Russian") << QByteArray("ru") << xcb_keysym_t{XK_Cyrillic_ef};
    if (!isEveryDesktopWanted())
        return;
    QTest::newRow("Greek") << QByteArray("gr") << xcb_keysym_t{XK_Greek_alpha};
    QTest::newRow("Arabic") << QByteArray("ara") << xcb_keysym_t{XK_Arabic_sheen};
    QTest::newRow("French") << QByteArray("fr") << xcb_keysym_t{XK_q};
}

void HandsTest::escapeEndsWhateverTheLayout()
{
    // given
    QFETCH(QByteArray, layout);
    QFETCH(xcb_keysym_t, letter);
    QVERIFY(setLayout(layout));
    QVERIFY(desktop->keyboard.has(letter));
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->keyboard.strike(letter);
    desktop->keyboard.strike(XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
    QCOMPARE(korvel.process().output(), QByteArray());
}

void HandsTest::escapeEndsWhateverIsHeld_data()
{
    QTest::addColumn<xcb_keysym_t>("held");

    QTest::newRow("Shift") << xcb_keysym_t{XK_Shift_L};
    QTest::newRow("Control") << xcb_keysym_t{XK_Control_L};
    QTest::newRow("Alt") << xcb_keysym_t{XK_Alt_L};
    QTest::newRow("Super") << xcb_keysym_t{XK_Super_L};
}

void HandsTest::escapeEndsWhateverIsHeld()
{
    // given
    QFETCH(xcb_keysym_t, held);
    Program korvel(*desktop);
    EVENTUALLY(korvel.isReady());

    // when
    desktop->keyboard.strikeWith(held, XK_Escape);

    // then
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

void HandsTest::theFrameAppearsBesideAnOpenMenu()
{
    // given
    QFETCH(QByteArray, managerName);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    QVERIFY(startWindowManager(managerName));
    // Window managers paint the backdrop when they like.
    const ClientWindow paper(desktop->x, ClientWindow::Kind::Desktop, desktop->screen.area(),
                             Qt::white);
    EVENTUALLY_COMPARE(desktop->screen.colourAt({900, 100}), QColor(Qt::white));
    const ClientWindow menu(desktop->x, ClientWindow::Kind::Unmanaged, MenuPlace, Qt::green);
    const Grab grab(desktop->x, menu.id());
    QVERIFY(grab.isHeld());

    // when
    const Program korvel(*desktop);
    EVENTUALLY(korvel.frame() != XCB_NONE);
    paper.fill(Qt::red); // would show where the frame is not

    // then
    EVENTUALLY_COMPARE(desktop->windows.geometry(korvel.frame()), desktop->screen.area());
    EVENTUALLY_COMPARE(desktop->screen.colourAt({900, 100}), QColor(Qt::white));
}

void HandsTest::theFrameWorksOnceTheMenuIsGone()
{
    // given
    QFETCH(QByteArray, managerName);
    if (!isInstalled(managerName))
        QSKIP(managerName + " is not installed");
    QVERIFY(startWindowManager(managerName));
    std::optional<ClientWindow> menu(std::in_place, desktop->x, ClientWindow::Kind::Unmanaged,
                                     MenuPlace, Qt::green);
    std::optional<Grab> grab(std::in_place, desktop->x, menu->id());
    QVERIFY(grab->isHeld());
    Program korvel(*desktop, {.arguments = {"20", "0", "0", "255"}});
    EVENTUALLY(korvel.frame() != XCB_NONE);
    EVENTUALLY(desktop->screen.colourAt(desktop->palette.swatch()) == QColor(Qt::blue));

    // when
    grab.reset();
    menu.reset();

    // then
    EVENTUALLY(korvel.hasKeyboard());
    QVERIFY(parkPointer({200, 100}, Qt::blue));
    desktop->pointer.drag(line({600, 200}, {800, 200}));
    QVERIFY(parkPointer({100, 700}, Qt::blue));
    QCOMPARE(desktop->screen.colourAt({700, 200}), QColor(Qt::blue));
    QCOMPARE(desktop->screen.colourAt(MenuPlace.center()), QColor(Qt::green));
    desktop->keyboard.strike(XK_Escape);
    EVENTUALLY_COMPARE(korvel.status(), 0);
}

REGISTER_TEST(HandsTest, QCoreApplication)
#include "handstest.moc"

#include "tests/desktop/harness/clientwindow.h"

#include "tests/desktop/harness/windowbackground.h"
#include "tests/desktop/harness/xconnection.h"

#include <QList>

ClientWindow::ClientWindow(const XConnection& connection, Kind kind, QRect place, QColor colour)
    : x(connection)
    , window(xcb_generate_id(connection.raw()))
{
    create(place, colour, kind == Kind::Unmanaged);
    askForPlace(place);
    askForNoDecoration();
    if (kind == Kind::AlwaysOnTop)
        ask("_NET_WM_STATE_ABOVE");
    if (kind == Kind::Desktop)
        setProperty("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {x.atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    if (kind == Kind::FullScreen)
        ask("_NET_WM_STATE_FULLSCREEN");
    if (kind == Kind::Dock)
        becomeDock(place);
    show();
}

ClientWindow::~ClientWindow()
{
    xcb_destroy_window(x.raw(), window);
    x.synchronise();
}

void ClientWindow::show() const
{
    xcb_map_window(x.raw(), window);
    x.synchronise();
}

void ClientWindow::fill(QColor colour) const
{
    const uint32_t pixel = colour.rgb() & RGB_MASK;
    xcb_change_window_attributes(x.raw(), window, XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(x.raw(), 0, window, 0, 0, 0, 0);
    x.synchronise();
}

void ClientWindow::fill(const QImage& picture) const
{
    setBackground(x, window, picture);
}

void ClientWindow::takeKeyboard() const
{
    xcb_set_input_focus(x.raw(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    x.synchronise();
}

void ClientWindow::create(QRect place, QColor colour, bool unmanaged)
{
    const uint32_t values[] = {colour.rgb() & RGB_MASK, unmanaged ? 1U : 0U};
    xcb_create_window(x.raw(), XCB_COPY_FROM_PARENT, window, x.root(),
                      static_cast<int16_t>(place.x()), static_cast<int16_t>(place.y()),
                      static_cast<uint16_t>(place.width()), static_cast<uint16_t>(place.height()),
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
}

void ClientWindow::askForPlace(QRect place)
{
    constexpr uint32_t placeAndSizeAreTheUsers = 1 | 2; // else window managers choose the place
    QList<uint32_t> hints(18, 0);
    hints[0] = placeAndSizeAreTheUsers;
    hints[1] = static_cast<uint32_t>(place.x());
    hints[2] = static_cast<uint32_t>(place.y());
    hints[3] = static_cast<uint32_t>(place.width());
    hints[4] = static_cast<uint32_t>(place.height());
    setProperty("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
}

void ClientWindow::askForNoDecoration()
{
    constexpr uint32_t decorationsAreGiven = 2;
    setProperty("_MOTIF_WM_HINTS", x.atom("_MOTIF_WM_HINTS"), {decorationsAreGiven, 0, 0, 0, 0});
    constexpr uint32_t inputIsGiven = 1;
    setProperty("WM_HINTS", XCB_ATOM_WM_HINTS, {inputIsGiven, 1, 0, 0, 0, 0, 0, 0, 0});
}

void ClientWindow::ask(const char* state)
{
    setProperty("_NET_WM_STATE", XCB_ATOM_ATOM, {x.atom(state)});
}

void ClientWindow::becomeDock(QRect place)
{
    setProperty("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {x.atom("_NET_WM_WINDOW_TYPE_DOCK")});
    const bool isTop = place.y() == 0;
    const auto height = static_cast<uint32_t>(place.height());
    const auto left = static_cast<uint32_t>(place.left());
    const auto right = static_cast<uint32_t>(place.right());
    QList<uint32_t> strut(12, 0); // left, right, top, bottom, then start and end along each side
    strut[isTop ? 2 : 3] = height;
    strut[isTop ? 8 : 10] = left;
    strut[isTop ? 9 : 11] = right;
    setProperty("_NET_WM_STRUT", XCB_ATOM_CARDINAL, strut.first(4));
    setProperty("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, strut);
}

void ClientWindow::setProperty(const char* name, xcb_atom_t type, const QList<uint32_t>& values)
{
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, window, x.atom(name), type, 32,
                        static_cast<uint32_t>(values.size()), values.constData());
}

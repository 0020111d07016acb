#include "tests/desktop/harness/windows.h"

#include "tests/desktop/harness/xconnection.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr uint32_t MaximumLength = 4096; // of a property, in units of four bytes

}

QList<xcb_window_t> Windows::children(xcb_window_t window) const
{
    const auto cookie = xcb_query_tree(x.raw(), window);
    const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x.raw(), cookie, nullptr));
    if (!tree)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

xcb_window_t Windows::childOfRoot(xcb_window_t window) const
{
    for (xcb_window_t ancestor = window;;) {
        const auto cookie = xcb_query_tree(x.raw(), ancestor);
        const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x.raw(), cookie, nullptr));
        if (!tree || tree->parent == XCB_NONE)
            return XCB_NONE;
        if (tree->parent == tree->root)
            return ancestor;
        ancestor = tree->parent;
    }
}

QList<Windows::Found> Windows::onScreen() const
{
    QList<Found> found;
    QList<xcb_window_t> pending = children(x.root());
    while (!pending.isEmpty()) {
        const xcb_window_t window = pending.takeFirst();
        const auto cookie = xcb_get_window_attributes(x.raw(), window);
        const Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(x.raw(), cookie, nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        found.append({window, attributes->override_redirect != 0});
        pending += children(window); // a window manager puts the windows of others into its own
    }
    return found;
}

QByteArray Windows::property(xcb_window_t window, xcb_atom_t name) const
{
    const auto cookie =
        xcb_get_property(x.raw(), 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, MaximumLength);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x.raw(), cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QList<xcb_window_t> Windows::ownedBy(pid_t process, bool unmanaged) const
{
    const xcb_atom_t pidName = x.atom("_NET_WM_PID");
    const auto wanted = static_cast<uint32_t>(process);
    const QByteArray wantedBytes(reinterpret_cast<const char*>(&wanted), sizeof wanted);
    QList<xcb_window_t> owned;
    for (const auto& [window, isUnmanaged] : onScreen()) {
        if (isUnmanaged == unmanaged && property(window, pidName) == wantedBytes)
            owned.append(window);
    }
    return owned;
}

xcb_window_t Windows::frameOf(pid_t process) const
{
    const QList<xcb_window_t> owned = ownedBy(process, false);
    const auto area = [this](xcb_window_t window) {
        const QSize size = geometry(window).size();
        return size.width() * size.height();
    };
    const auto largest = std::max_element(owned.begin(), owned.end(),
                                          [&](auto a, auto b) { return area(a) < area(b); });
    return largest == owned.end() ? xcb_window_t{XCB_NONE} : *largest;
}

xcb_window_t Windows::listOf(pid_t process) const
{
    return ownedBy(process, true).value(0, XCB_NONE);
}

xcb_window_t Windows::titled(const QByteArray& title) const
{
    const xcb_atom_t titleName = x.atom("_NET_WM_NAME");
    for (const auto& [window, isUnmanaged] : onScreen()) {
        if (property(window, titleName) == title)
            return window;
    }
    return XCB_NONE;
}

QRect Windows::geometry(xcb_window_t window) const
{
    const auto sizeCookie = xcb_get_geometry(x.raw(), window);
    const auto placeCookie = xcb_translate_coordinates(x.raw(), window, x.root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(x.raw(), sizeCookie, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(x.raw(), placeCookie, nullptr));
    return size && place ? QRect(place->dst_x, place->dst_y, size->width, size->height) : QRect();
}

bool Windows::isOnScreen(xcb_window_t window) const
{
    const QList<Found> found = onScreen();
    return std::any_of(found.begin(), found.end(),
                       [window](const Found& candidate) { return candidate.window == window; });
}

bool Windows::isAbove(xcb_window_t upper, xcb_window_t lower) const
{
    const QList<xcb_window_t> bottomToTop = children(x.root());
    return bottomToTop.indexOf(childOfRoot(upper)) > bottomToTop.indexOf(childOfRoot(lower));
}

xcb_window_t Windows::at(QPoint point) const
{
    for (xcb_window_t window = x.root();;) {
        const auto cookie =
            xcb_translate_coordinates(x.raw(), x.root(), window, static_cast<int16_t>(point.x()),
                                      static_cast<int16_t>(point.y()));
        const Reply<xcb_translate_coordinates_reply_t> reply(
            xcb_translate_coordinates_reply(x.raw(), cookie, nullptr));
        if (!reply || reply->child == XCB_NONE)
            return window;
        window = reply->child;
    }
}

xcb_window_t Windows::focused() const
{
    const auto cookie = xcb_get_input_focus(x.raw());
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x.raw(), cookie, nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

int Windows::currentDesktop() const
{
    const QByteArray bytes = property(x.root(), x.atom("_NET_CURRENT_DESKTOP"));
    uint32_t number = 0;
    if (bytes.size() != sizeof number)
        return -1;
    std::memcpy(&number, bytes.constData(), sizeof number);
    return static_cast<int>(number);
}

bool Windows::has(xcb_window_t window, const char* name) const
{
    return !property(window, x.atom(name)).isEmpty();
}

bool Windows::isListed(xcb_window_t window) const
{
    return listHolds(x.root(), "_NET_CLIENT_LIST", window);
}

bool Windows::lists(xcb_window_t window, const char* propertyName, const char* atom) const
{
    return listHolds(window, propertyName, x.atom(atom));
}

bool Windows::listHolds(xcb_window_t window, const char* propertyName, uint32_t value) const
{
    const QByteArray bytes = property(window, x.atom(propertyName));
    for (qsizetype offset = 0; offset + 4 <= bytes.size(); offset += 4) {
        if (std::memcmp(bytes.constData() + offset, &value, sizeof value) == 0)
            return true;
    }
    return false;
}

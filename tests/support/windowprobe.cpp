#include "tests/support/windowprobe.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/shape.h>

bool WindowProbe::hasProperty(const char* property) const
{
    const Reply<xcb_get_property_reply_t> reply = read(property);
    return reply && reply->type != XCB_ATOM_NONE;
}

QByteArrayList WindowProbe::atoms(const char* property) const
{
    QByteArrayList names;
    for (const quint32 atom : numbers(property).value_or(QList<quint32>()))
        names.append(atomName(atom));
    return names;
}

std::optional<QList<quint32>> WindowProbe::numbers(const char* property) const
{
    const Reply<xcb_get_property_reply_t> reply = read(property);
    if (!reply || reply->type == XCB_ATOM_NONE)
        return std::nullopt;
    const auto* first = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return QList<quint32>(first, first + reply->value_len);
}

QRegion WindowProbe::inputRegion() const
{
    return shape(XCB_SHAPE_SK_INPUT);
}

QRegion WindowProbe::visibleRegion() const
{
    return shape(XCB_SHAPE_SK_BOUNDING);
}

QSize WindowProbe::size() const
{
    finishQtRequests();
    const Reply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(x.raw(), xcb_get_geometry(x.raw(), window), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

QRegion WindowProbe::shape(xcb_shape_sk_t kind) const
{
    finishQtRequests();
    const Reply<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
        x.raw(), xcb_shape_get_rectangles(x.raw(), window, kind), nullptr));
    if (!reply)
        return {};
    QRegion region;
    const xcb_rectangle_t* rectangles = xcb_shape_get_rectangles_rectangles(reply.get());
    for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i) {
        const xcb_rectangle_t& part = rectangles[i];
        region += QRect(part.x, part.y, part.width, part.height);
    }
    return region;
}

Reply<xcb_get_property_reply_t> WindowProbe::read(const char* property) const
{
    constexpr uint32_t longest = 64;
    finishQtRequests();
    const auto cookie = xcb_get_property(x.raw(), 0, window, x.atom(property),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    return Reply<xcb_get_property_reply_t>(xcb_get_property_reply(x.raw(), cookie, nullptr));
}

QByteArray WindowProbe::atomName(xcb_atom_t atom) const
{
    const Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(x.raw(), xcb_get_atom_name(x.raw(), atom), nullptr));
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())};
}

xcb_window_t idOf(const QWindow& window)
{
    return static_cast<xcb_window_t>(window.winId());
}

void finishQtRequests()
{
    xcb_connection_t* connection =
        qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    const Reply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

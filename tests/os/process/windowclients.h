#pragma once

#include "tests/desktop/harness/desktop.h"

#include <QSysInfo>

namespace TestSupport {

/// What a window tells so that its process is known.
inline QByteArrayList ownProcess()
{
    return {"pid=own", "WM_CLIENT_MACHINE=" + QSysInfo::machineHostName().toUtf8()};
}

/// A program with one window, titled "client", ended with this object.
class WindowClient {
public:
    /// @param arguments  what the window tells and does, see windowclient.cpp
    /// @param program  path of that program or a copy
    WindowClient(const Desktop& where, const QByteArrayList& arguments,
                 const QByteArray& program = WINDOW_CLIENT)
        : desktop(where)
        , process(
              {.program = program,
               .arguments = QByteArrayList{"_NET_WM_NAME=client"} + arguments,
               .environment = {{"DISPLAY", where.display}, {"XAUTHORITY", qgetenv("XAUTHORITY")}}})
    {
    }

    [[nodiscard]] int id() const { return process.pid(); }
    /// Its window, once it is on the screen.
    [[nodiscard]] xcb_window_t window() const { return desktop.windows.titled("client"); }

private:
    const Desktop& desktop;
    ChildProcess process;
};

/// Sets a property of a window to numbers, as another program would.
inline void setNumbers(const XConnection& x, xcb_window_t window, const char* property,
                       const QList<uint32_t>& numbers)
{
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, window, x.atom(property), XCB_ATOM_CARDINAL,
                        32, static_cast<uint32_t>(numbers.size()), numbers.constData());
    x.synchronise();
}

/// The numbers of a property of the root window.
inline QList<uint32_t> numbersOfRoot(const XConnection& x, const char* property)
{
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x.raw(),
        xcb_get_property(x.raw(), 0, x.root(), x.atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
        nullptr));
    if (!reply)
        return {};
    const auto* first = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

}

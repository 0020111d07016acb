#include "os/x11/connection.h"

#include <QGuiApplication>

namespace osUtils::X11 {

xcb_connection_t* connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t* server)
{
    return xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
}

xcb_window_t rootWindow()
{
    return rootWindow(connection());
}

}

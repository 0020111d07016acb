#include "windowsystem/x11/connection.h"

#include <QGuiApplication>

namespace Windowing::X11 {

xcb_connection_t* connection()
{
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    const auto* x11 =
        application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
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

std::vector<xcb_rectangle_t> x11Rectangles(const QRegion& region)
{
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : region) {
        rectangles.push_back({static_cast<int16_t>(rect.x()), static_cast<int16_t>(rect.y()),
                              static_cast<uint16_t>(rect.width()),
                              static_cast<uint16_t>(rect.height())});
    }
    return rectangles;
}

}

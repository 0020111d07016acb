#pragma once

#include <QList>
#include <QRect>

namespace Windowing::X11 {

/// The places of the server's monitors, in device pixels; empty where it does not know about
/// monitors. Needs the X11 platform.
[[nodiscard]] QList<QRect> monitors();

}

#pragma once

#include "tests/desktop/harness/xconnection.h"

#include <QByteArrayList>
#include <QRegion>

#include <xcb/shape.h>

#include <optional>

class QWindow;

/// One X11 window as another client of the server sees it. Every answer comes after all that Qt has
/// asked for so far. Coordinates are the window's, in device pixels.
class WindowProbe {
public:
    WindowProbe(const XConnection& connection, xcb_window_t watched)
        : x(connection)
        , window(watched)
    {
    }

    [[nodiscard]] bool hasProperty(const char* property) const;
    /// Names of the atoms that a property lists; none if it is not set.
    [[nodiscard]] QByteArrayList atoms(const char* property) const;
    /// Numbers of a property, none if it is not set.
    [[nodiscard]] std::optional<QList<quint32>> numbers(const char* property) const;

    /// Where the window catches the mouse.
    [[nodiscard]] QRegion inputRegion() const;
    /// What can be seen of the window when nothing is above it.
    [[nodiscard]] QRegion visibleRegion() const;
    [[nodiscard]] QSize size() const;

private:
    [[nodiscard]] Reply<xcb_get_property_reply_t> read(const char* property) const;
    [[nodiscard]] QRegion shape(xcb_shape_sk_t kind) const;
    [[nodiscard]] QByteArray atomName(xcb_atom_t atom) const;

    const XConnection& x;
    const xcb_window_t window;
};

/// The number by which other clients know one of Qt's windows.
[[nodiscard]] xcb_window_t idOf(const QWindow& window);

/// Returns when the server has carried out all that Qt has sent.
void finishQtRequests();

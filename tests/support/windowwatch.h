#pragma once

#include "tests/desktop/harness/xconnection.h"

#include <QByteArrayList>

/// Notes down what happens to one X11 window from the making of this object on.
class WindowWatch {
public:
    explicit WindowWatch(xcb_window_t window);

    /// In order: "mapped", "unmapped", "configured", and the names of properties that were changed.
    [[nodiscard]] QByteArrayList events();

private:
    [[nodiscard]] QByteArray describe(const xcb_generic_event_t& event) const;

    const XConnection x;
    QByteArrayList seen;
};

/// A request to change the state of a mapped window, as window managers get it.
struct StateRequest {
    xcb_window_t window = XCB_NONE;
    quint32 action = 0; ///< 0 removes, 1 adds, 2 toggles
    QByteArrayList states = {};
    quint32 source = 0; ///< 1 for ordinary programs, 2 for pagers

    bool operator==(const StateRequest&) const = default;
};

/// Notes down what window managers are asked for from the making of this object on.
class StateRequestWatch {
public:
    StateRequestWatch();

    [[nodiscard]] QList<StateRequest> requests();

private:
    [[nodiscard]] StateRequest request(const xcb_client_message_event_t& message) const;

    const XConnection x;
    QList<StateRequest> seen;
};

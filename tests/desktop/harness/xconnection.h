#pragma once

#include <QByteArray>
#include <QSize>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// A reply of the X server, freed with this pointer. Null where the request failed.
template <typename T> using Reply = std::unique_ptr<T, FreeReply>;

/// The test's own connection to the X server. Knows the root window and atoms; what is asked is up
/// to its users.
class XConnection {
public:
    /// @param display  as in the environment variable DISPLAY, such as ":7"
    explicit XConnection(const QByteArray& display);

    /// For the calls of xcb.
    [[nodiscard]] xcb_connection_t* raw() const { return connection.get(); }
    [[nodiscard]] xcb_window_t root() const { return screen->root; }
    /// Of the whole desktop now, in device pixels: monitors may come and go.
    [[nodiscard]] QSize size() const;
    [[nodiscard]] xcb_atom_t atom(const char* name) const;

    /// Returns when the server has carried out all that was sent, and has passed on what came of
    /// it.
    void synchronise() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* open) const { xcb_disconnect(open); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection;
    const xcb_screen_t* screen;
};

#pragma once

#include <QByteArray>
#include <QList>

class Home;

namespace Bench {

class Trial;

/// A program with which one draws on the screen, and how it is driven by hand. All draw in red with
/// a pen of 5 pixels.
class Annotator {
public:
    /// Why it is measured.
    enum class Role {
        Floor, ///< the least that drawing needs
        EmptyWindow, ///< the least that Qt needs; does not draw
        Subject,
        Peer, ///< a program of others
    };

    virtual ~Annotator() = default;

    [[nodiscard]] virtual QByteArray name() const = 0;
    [[nodiscard]] virtual Role role() const = 0;
    [[nodiscard]] virtual QByteArray executable() const = 0;
    [[nodiscard]] virtual QList<QByteArray> arguments() const { return {}; }
    /// Leaves in the user's folders what sets pen and colour.
    virtual void writeSettings(const Home& /*home*/) const { }

    /// Whether it is made for screens with a compositor.
    [[nodiscard]] virtual bool wantsCompositor() const { return false; }

    /// Whether one sees that it has started, without drawing.
    [[nodiscard]] virtual bool showsItself() const { return true; }
    /// Whether all that it shows on start is on the screen. The pointer rests where the trial put
    /// it.
    [[nodiscard]] virtual bool isShown(const Trial& trial) const = 0;
    /// Whether the first press of the button draws, with no tool to be chosen before.
    [[nodiscard]] virtual bool drawsAtOnce() const { return true; }
    /// Does what a user does before the first stroke. Throws Failure.
    virtual void chooseTool(const Trial& /*trial*/) const { }

    [[nodiscard]] bool isInstalled() const;
};

}

#pragma once

#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/compositor.h"
#include "tests/desktop/harness/desktoptest.h"

/// Base of the tests that must hold on every desktop. The environment variable KORVEL_DESKTOP tells
/// which one this run is about: a window manager of the table (managerrecipe.h), followed by
/// "+picom" for a compositor beside it. What cannot be run here is skipped.
class MatrixTest : public DesktopTest {
    Q_OBJECT

protected:
    void furnish() override;
    void clearAway() override;

    [[nodiscard]] static QByteArray managerName();
    /// Whether a window manager runs at all.
    [[nodiscard]] static bool isManaged() { return managerName() != "none"; }
    /// Whether it tiles: ordinary windows lie where it wants them, and none is always on top.
    [[nodiscard]] static bool isTiled() { return managerName() == "i3"; }

    [[nodiscard]] ClientWindow client(ClientWindow::Kind kind, QRect place, QColor colour) const
    {
        return {desktop->x, kind, place, colour};
    }
    /// Whether the window is there and its middle shows the colour.
    [[nodiscard]] bool shows(const ClientWindow& window, QColor colour) const;
    /// Gives a window the keyboard as a user does, with a click into it.
    [[nodiscard]] bool clickInto(const ClientWindow& window) const;

    /// The screen without what the program adds to the frozen picture: palette and dot.
    [[nodiscard]] QImage pictureBesidesPalette() const
    {
        return withoutPalette(desktop->screen.grab());
    }
    /// What is to be left out of comparisons around a window with the keyboard: the compositors of
    /// marco, metacity and mutter draw now one shadow and now another.
    [[nodiscard]] static QList<QRect> varyingShadows(QRect window);
    [[nodiscard]] QImage withoutPalette(const QImage& picture) const;

private:
    void startCompositor();
    void showBackground();

    std::optional<Compositor> compositor;
    std::optional<ClientWindow> background;
};

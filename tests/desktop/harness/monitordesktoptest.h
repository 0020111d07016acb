#pragma once

#include "tests/desktop/harness/desktoptest.h"
#include "tests/desktop/harness/monitors.h"

/// Base of the end-to-end tests on a server whose monitors can be arranged. All are skipped where
/// it cannot be started.
class MonitorDesktopTest : public DesktopTest {
    Q_OBJECT

protected:
    [[nodiscard]] std::unique_ptr<XServer> startServer() override;

    /// Plugs in monitors at these places, on a white backdrop. False if the server refuses.
    [[nodiscard]] bool plugIn(const QList<QRect>& places);

    /// What is not the picture on a frame: the palette in its corner, and the dot under the
    /// pointer.
    /// @param monitor  the frame's, in device pixels
    [[nodiscard]] QList<QRect> ownAreas(QRect monitor, qreal scale = 1) const;

    static constexpr int PenSize = 20; ///< logical pixels

private slots:
    void initTestCase();

private:
    std::optional<Monitors> monitors;
};

#pragma once

#include "tests/desktop/harness/xserver.h"

#include <QSize>

/// An X server without hardware, with one screen.
class VirtualServer : public XServer {
public:
    /// @param screen  in device pixels
    explicit VirtualServer(QSize screen = {1280, 800})
        : XServer("/usr/bin/Xvfb", {"-screen", "0", mode(screen), "-dpi", "96"})
    {
    }

private:
    [[nodiscard]] static QByteArray mode(QSize screen)
    {
        return QByteArray::number(screen.width()) + 'x' + QByteArray::number(screen.height())
            + "x24";
    }
};

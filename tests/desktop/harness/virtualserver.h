#pragma once

#include "tests/desktop/harness/xserver.h"

/// An X server without hardware, with one screen of 1280 x 800 pixels.
class VirtualServer : public XServer {
public:
    VirtualServer()
        : XServer("/usr/bin/Xvfb", {"-screen", "0", "1280x800x24", "-dpi", "96"})
    {
    }
};

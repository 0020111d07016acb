#pragma once

#include "tests/desktop/harness/backdrop.h"
#include "tests/desktop/harness/controls.h"
#include "tests/desktop/harness/home.h"
#include "tests/desktop/harness/keyboard.h"
#include "tests/desktop/harness/palettelayout.h"
#include "tests/desktop/harness/pointer.h"
#include "tests/desktop/harness/screen.h"
#include "tests/desktop/harness/windows.h"
#include "tests/desktop/harness/xconnection.h"

/// All that a test needs to play the user on one X server: screen, hands, eyes and a home.
struct Desktop {
    explicit Desktop(const QByteArray& displayName)
        : display(displayName)
    {
    }

    const QByteArray display;
    const Home home;
    const XConnection x{display};
    const Backdrop backdrop{x};
    const Screen screen{x};
    const Windows windows{x};
    const Pointer pointer{x};
    const Keyboard keyboard{x};
    const PaletteLayout palette{x.size()};
    const Controls controls{*this};
};

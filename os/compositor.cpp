#include "os/compositor.h"

#include "os/x11/selectionwatch.h"
#include "os/x11/x11window.h"

namespace osUtils::System {

Compositor::Compositor()
{
    if (!X11::isAvailable())
        return;
    // By the Extended Window Manager Hints a compositor owns it for as long as it runs.
    watch = std::make_unique<X11::SelectionWatch>("_NET_WM_CM_S0");
    connect(watch.get(), SIGNAL(lost()), this, SIGNAL(ended()));
}

Compositor::~Compositor() = default;

bool Compositor::isRunning() const
{
    return !watch || watch->hasOwner();
}

}

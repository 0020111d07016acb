#include "os/presentationmode.h"

#include "windowsystem/windowsystem.h"

namespace osUtils::System {

void setSystemUIMode(int mode, int /*options*/)
{
    constexpr int allHidden = 3;
    Windowing::WindowSystem::ofSession().setCovering(mode == allHidden);
}

void setShowDockIcon(bool /*show*/) { }

bool vistaOrlater()
{
    return false;
}

}

#include "os/background.h"
#include "os/platformpreload.h"

#include <QByteArray>

#include <array>

#include <dlfcn.h>

namespace osUtils::System {

namespace {

constexpr std::array platformsLibraries{"libQt6XcbQpa.so.6", "libXcursor.so.1"};

bool isForX11()
{
    const QByteArray asked = qgetenv("QT_QPA_PLATFORM");
    return qEnvironmentVariableIsSet("DISPLAY") && (asked.isEmpty() || asked.startsWith("xcb"));
}

}

// Never unloaded: the toolkit holds them, too. Where there are none of these names it finds its own.
PlatformPreload::PlatformPreload()
{
    if (!isForX11())
        return;
    loading = inBackground([] {
        for (const char* library : platformsLibraries)
            dlopen(library, RTLD_LAZY);
    });
}

}

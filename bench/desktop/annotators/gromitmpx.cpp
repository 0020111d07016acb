#include "bench/desktop/annotators/gromitmpx.h"

#include "bench/desktop/settingsfile.h"
#include "bench/desktop/trial.h"

namespace Bench {

void GromitMpx::writeSettings(const Home& home) const
{
    writeSettingsFile(home, QStringLiteral("gromit-mpx.cfg"),
                      "\"red Pen\" = PEN (size=5 color=\"red\");\n"
                      "\"default\" = \"red Pen\";\n");
    writeSettingsFile(home, QStringLiteral("gromit-mpx.ini"),
                      "[General]\nShowIntroOnStartup=false\n");
}

void GromitMpx::chooseTool(const Trial& trial) const
{
    // It takes hold of the mouse some time after its start and shows no sign of it.
    static_cast<void>(trial.drawFirstStroke());
}

}

#include "bench/desktop/annotators/flameshot.h"

#include "bench/desktop/failure.h"
#include "bench/desktop/settingsfile.h"
#include "bench/desktop/trial.h"

#include <X11/keysym.h>

namespace Bench {

void Flameshot::writeSettings(const Home& home) const
{
    writeSettingsFile(home, QStringLiteral("flameshot/flameshot.ini"),
                      "[General]\ndrawColor=#ff0000\ndrawThickness=5\nshowHelp=false\n"
                      "showStartupLaunchMessage=false\nshowSidePanelButton=false\n"
                      "checkForUpdates=false\ndisabledTrayIcon=true\n");
}

bool Flameshot::isShown(const Trial& trial) const
{
    // Until something is selected all is dimmed, in its full-screen window's last corner too.
    return trial.probe.colourAt(Trial::RestingPoint) != Trial::Paper
        && trial.probe.colourAt(trial.desktop.screen.area().bottomRight()) != Trial::Paper;
}

void Flameshot::chooseTool(const Trial& trial) const
{
    const QRect selection = trial.desktop.screen.area().adjusted(20, 20, -20, -20);
    const auto hasKeyboard = [&] {
        const Windows& windows = trial.desktop.windows;
        return windows.focused() == windows.frameOf(trial.process.pid());
    };
    waitFor(hasKeyboard, "it does not take the keyboard");
    trial.meter.waitForRest();
    trial.hand.moveTo(selection.topLeft());
    trial.hand.press();
    trial.hand.rush(line(selection.topLeft(), selection.bottomRight(), 200));
    trial.hand.release();
    waitFor([&] { return trial.probe.colourAt(trial.paper.center()) == Trial::Paper; },
            "nothing was selected");
    trial.meter.waitForRest();
    trial.desktop.keyboard.strike(XK_p);
    trial.meter.waitForRest();
}

}

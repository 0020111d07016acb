#include "bench/desktop/annotators/flameshot.h"

#include "bench/desktop/failure.h"
#include "bench/desktop/settingsfile.h"
#include "bench/desktop/trial.h"

#include <X11/keysym.h>

namespace Bench {

namespace {

constexpr int selectingRate = 100; // points in a second

}

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
    trial.meter.waitForRest();
    trial.hand.moveTo(selection.topLeft());
    trial.hand.press();
    // It selects nothing if all comes at once.
    trial.hand.sweep(line(selection.topLeft(), selection.bottomRight(), 200), selectingRate);
    trial.hand.release();
    waitFor([&] { return trial.probe.colourAt(trial.paper.center()) == Trial::Paper; },
            "nothing was selected");
    trial.meter.waitForRest();
    // Only a window manager would give it the keyboard in any case.
    const XConnection& x = trial.desktop.x;
    xcb_set_input_focus(x.raw(), XCB_INPUT_FOCUS_PARENT,
                        trial.desktop.windows.listOf(trial.process.pid()), XCB_CURRENT_TIME);
    x.synchronise();
    trial.meter.waitForRest();
    trial.desktop.keyboard.strike(XK_p);
    trial.meter.waitForRest();
}

}

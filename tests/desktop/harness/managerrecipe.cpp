#include "tests/desktop/harness/managerrecipe.h"

#include <algorithm>
#include <array>

namespace {

// Clocks and meters would change the picture in mid-test.
constexpr auto icewmPreferences = "TaskBarShowClock=0\n"
                                  "TaskBarShowAPMStatus=0\n"
                                  "TaskBarShowCPUStatus=0\n"
                                  "TaskBarShowMEMStatus=0\n"
                                  "TaskBarShowNetStatus=0\n"
                                  "WorkspaceNames=\"1\",\"2\"\n";
constexpr auto fluxboxInit = "session.screen0.toolbar.tools: workspacename\n"
                             "session.screen0.workspaces: 2\n";
// Of the style. Else it has a script set a picture, which on a busy machine fails and says so in a
// dialog.
constexpr auto fluxboxOverlay = "background: none\n";
constexpr auto kwinSettings = "[Desktops]\nNumber=2\n";
// Not the default one, which starts programs and a dialog. Without the first line it is taken for
// the file of an old version, and the default one for the new.
constexpr auto i3Settings = "# i3 config file (v4)\nfont pango:monospace 8\n";

// What they store is theirs alone, and there is no service to store it with.
const Environment memorySettings{{"GSETTINGS_BACKEND", "memory"}};

const std::array recipes{
    ManagerRecipe{.name = "none", .program = ""},
    ManagerRecipe{.name = "openbox", .program = "/usr/bin/openbox", .arguments = {"--sm-disable"}},
    ManagerRecipe{
        .name = "fluxbox",
        .program = "/usr/bin/fluxbox",
        .settings = {{".fluxbox/init", fluxboxInit}, {".fluxbox/overlay", fluxboxOverlay}}},
    // It asks for its own settings over a message bus.
    ManagerRecipe{.name = "xfwm4",
                  .program = "/usr/bin/xfwm4",
                  .arguments = {"--compositor=off", "--sm-client-disable"},
                  .needsBus = true},
    ManagerRecipe{.name = "xfwm4-compositing",
                  .program = "/usr/bin/xfwm4",
                  .arguments = {"--compositor=on", "--sm-client-disable"},
                  .needsBus = true},
    ManagerRecipe{.name = "metacity",
                  .program = "/usr/bin/metacity",
                  .arguments = {"--sm-disable", "--compositor=none"},
                  .environment = memorySettings},
    ManagerRecipe{.name = "metacity-compositing",
                  .program = "/usr/bin/metacity",
                  .arguments = {"--sm-disable", "--compositor=xrender"},
                  .environment = memorySettings},
    ManagerRecipe{.name = "marco",
                  .program = "/usr/bin/marco",
                  .arguments = {"--sm-disable", "--no-composite"},
                  .environment = memorySettings},
    ManagerRecipe{.name = "marco-compositing",
                  .program = "/usr/bin/marco",
                  .arguments = {"--sm-disable", "--composite"},
                  .environment = memorySettings},
    ManagerRecipe{.name = "icewm",
                  .program = "/usr/bin/icewm",
                  .settings = {{".config/icewm/preferences", icewmPreferences}}},
    ManagerRecipe{.name = "mutter",
                  .program = "/usr/bin/mutter",
                  .arguments = {"--x11", "--sm-disable"},
                  .environment = memorySettings},
    ManagerRecipe{.name = "kwin_x11",
                  .program = "/usr/bin/kwin_x11",
                  .settings = {{".config/kwinrc", kwinSettings}},
                  .environment = {{"KWIN_COMPOSE", "N"}}},
    ManagerRecipe{.name = "kwin_x11-compositing",
                  .program = "/usr/bin/kwin_x11",
                  .settings = {{".config/kwinrc", kwinSettings}}},
    ManagerRecipe{.name = "i3",
                  .program = "/usr/bin/i3",
                  .settings = {{".config/i3/config", i3Settings}},
                  .desktopCommand = {"/usr/bin/i3-msg", "workspace"}},
};

}

const ManagerRecipe* managerRecipe(QByteArrayView name)
{
    const auto found = std::find_if(recipes.begin(), recipes.end(),
                                    [name](const auto& recipe) { return recipe.name == name; });
    return found == recipes.end() ? nullptr : &*found;
}

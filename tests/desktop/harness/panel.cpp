#include "tests/desktop/harness/panel.h"

#include "tests/desktop/harness/desktop.h"

namespace {

// Of one colour, without a clock, in the layer above other windows and with its place reserved.
constexpr auto settings = "rounded = 0\n"
                          "border_width = 0\n"
                          "background_color = #00ff00 100\n"
                          "panel_items = T\n"
                          "panel_size = 100% 40\n"
                          "panel_position = bottom center horizontal\n"
                          "panel_background_id = 1\n"
                          "panel_layer = top\n"
                          "panel_dock = 0\n"
                          "wm_menu = 0\n"
                          "strut_policy = follow_size\n";

QByteArray settingsFile(const Home& home)
{
    QFile file(home.configPath() + QStringLiteral("/tint2rc"));
    if (file.open(QFile::WriteOnly))
        file.write(settings);
    return QFile::encodeName(file.fileName());
}

}

Panel::Panel(const Desktop& where)
    : desktop(where)
    , panel({.program = executable,
             .arguments = {"-c", settingsFile(home)},
             .environment = home.environment(desktop.display)})
{
}

xcb_window_t Panel::window() const
{
    return desktop.windows.frameOf(panel.pid());
}

#pragma once

/// How much of the desktop's own interface stays visible while the process runs, and whether the
/// process shows itself as a foreground application.
namespace osUtils::System {

/// Sets the presentation mode of the process: 0 is the normal mode, 3 hides every part of the
/// desktop's interface. It stays as set until the process ends.
///
/// In mode 3 the process's frameless stay-on-top windows lie above panels, docks and other
/// programs' always-on-top windows, those shown already as well as those shown later; its own
/// dialogs and pop-ups still open above them. Other modes leave the windows to the window manager,
/// and give panels and docks back where one is shown. Nothing happens before there is an
/// application object.
/// @param options  further options of the desktop; none exist here
void setSystemUIMode(int mode, int options);

/// Makes the process a foreground application. Desktops list every program that has a window, so
/// that nothing is left to do; false never did anything.
void setShowDockIcon(bool show);

/// Whether the operating system is the one, in the version, that the name tells: never here.
[[nodiscard]] bool vistaOrlater();

}

#pragma once

#include <QWindow>

namespace Windowing::X11 {

/// Has the server tell Qt's window of what a pointer does once, as the master device does it. Qt
/// has it told of every device, and the slave device behind a pointer does all of it as well: twice the events
/// arrive, each of which wakes the thread that reads them, and Qt throws every other one away.
///
/// Nothing changes without the X Input Extension, or if the window is gone. Needs the X11 platform.
void hearMasterDevicesOnly(WId window);

}

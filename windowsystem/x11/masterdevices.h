#pragma once

#include <QWindow>

namespace Windowing::X11 {

/// Makes the server report what a pointer does only once to Qt's window, from the master device. Qt
/// selects the events of every device, and the slave device behind a pointer sends the same events
/// again: twice as many arrive, each wakes the thread that reads them, and Qt throws every other
/// one away.
///
/// Nothing changes without the X Input Extension, or if the window is gone. Needs the X11 platform.
void hearMasterDevicesOnly(WId id);

}

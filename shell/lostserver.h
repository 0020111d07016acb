#pragma once

/// Has the program end by itself, not by a signal, when the X server goes away. Qt notices that when it next looks for
/// events, and exits with status 1. What can happen before is left to this: a request on the broken connection, and a
/// reply that has not come and that Qt relies on (seen in 6.4.2, in QXcbScreen::setMonitor() for one, while it starts).
///
/// Any other fault ends the program as ever. To be called before the application object is made.
void endQuietlyWithServer();

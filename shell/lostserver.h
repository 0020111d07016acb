#pragma once

/// Makes the program exit by itself, rather than die from a signal, when the X server goes away. Qt
/// notices that when it next reads events, and exits with status 1. This covers what can happen
/// before: a request on the broken connection, and a missing reply that Qt relies on (seen in
/// 6.4.2, for example in QXcbScreen::setMonitor() at startup).
///
/// Any other fault ends the program as usual. To be called before the application object is
/// created.
void endQuietlyWithServer();

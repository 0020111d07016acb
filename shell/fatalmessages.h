#pragma once

/// Ends the program with status 1 and a plain sentence where Qt would abort and leave a core dump:
/// without a display it cannot create the application object.
///
/// To be installed before the application object is created, and removed afterwards. Qt's other
/// messages are printed as usual.
void endOnFatalMessages();

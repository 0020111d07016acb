#pragma once

/// Ends the program with status 1 and a plain sentence where the toolkit would abort it, leaving a
/// core dump: without a display it cannot make its application object.
///
/// Install before the application object and take away when that is made. Other messages of the
/// toolkit are printed as ever.
void endOnFatalMessages();

#pragma once

/// Has the toolkit look for no plug-in from here on. What the desktop's theme, its style and its input method
/// come from is loaded by then. Left out are those for images: the first image that is read would have all of
/// them loaded, which takes 4 ms of the start, and several times as long on a desktop with many formats, while
/// the toolkit knows PNG, this program's only one, by itself.
void loadNoMorePlugins();

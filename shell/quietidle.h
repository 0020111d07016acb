#pragma once

/// Has the toolkit leave the program alone while nothing happens. By itself it would wake it up half a minute after
/// the palette was painted, to look through its cache of pixmaps, and after a large area was, to end the threads
/// that have helped.
///
/// Call it once the application object is there and before anything is painted. An image is read anew then
/// wherever it is needed, which the first picture comes a millisecond later for; a fade costs the same.
void keepQuietWhenIdle();

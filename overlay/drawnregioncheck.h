#pragma once

namespace Helpers::NQt {

class TransparentFrame;

/// For developers: has the frame draw once more, on an empty picture, and warns by the name of its class if
/// that leaves anything outside the region that it tells. On the screen it would show sometimes, and in parts.
void warnOfPaintOutside(TransparentFrame& frame);

}

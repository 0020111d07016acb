#pragma once

namespace Helpers::NQt {

class TransparentFrame;

/// For developers: makes the frame draw once more, on an empty image, and warns with the name of
/// its class if it draws outside the region that it declares. On the screen such drawing would show
/// only sometimes, and in parts.
void warnOfPaintOutside(TransparentFrame& frame);

}

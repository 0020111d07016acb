#pragma once

#include <QImage>

class QScreen;

namespace osUtils::System {

/// What a screen shows now, pixel for pixel, without copies on the way.
/// @return  null where the window system has no such way; the toolkit's grab may know another
[[nodiscard]] QImage screenPicture(const QScreen& screen);

}

#pragma once

#include <QCursor>
#include <QPixmap>
#include <QString>

/// Images from the resource file, as crisp as the screen can show them.
namespace Helpers::NQt {

/// The variant of an image that suits a device pixel ratio, with its own ratio set: "name.png" for
/// 1, "name@2x.png" for 2, "name@3x.png" for 3 and more. Null where there is none.
[[nodiscard]] QPixmap sharpImage(const QString& path, qreal devicePixelRatio);

/// A cursor made from an image; the system's arrow if the image is null.
/// @param hotSpot  in the image's logical pixels
[[nodiscard]] QCursor sharpCursor(const QPixmap& image, QPoint hotSpot);

}

#pragma once

#include <QString>
#include <Qt>

namespace Helpers::NQt::Utils {

/// Name of a key as shown to the user: a letter or digit as itself, a special key as a word in
/// square brackets. Empty for a key without a name. Plain ASCII, never translated.
[[nodiscard]] QString convertKeyCode(Qt::Key key);

}

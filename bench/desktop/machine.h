#pragma once

#include <QByteArray>

namespace Bench {

/// Processor, memory, system and the versions of what was measured, as a Markdown list.
[[nodiscard]] QByteArray machineDescription();

}

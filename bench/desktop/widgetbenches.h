#pragma once

#include <QByteArray>

namespace Bench {

/// Runs the benches of bench/widgets, each on an offscreen screen of two sizes, and gives their
/// times as a Markdown table.
[[nodiscard]] QByteArray widgetBenchTable();

}

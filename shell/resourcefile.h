#pragma once

#include <QByteArrayView>
#include <QString>

/// Whether a compiled resource file holds all that its tables speak of. QResource (seen in Qt 6.4.2 to 6.11.2)
/// checks no more than where the tables begin, and reads beyond the end of a file that was cut off.
[[nodiscard]] bool isWholeResourceFile(const QString& path);

/// The same of a file's bytes.
[[nodiscard]] bool isWholeResource(QByteArrayView bytes);

#pragma once

#include <QByteArrayView>
#include <QString>

/// Whether a compiled resource file holds everything its tables refer to. QResource (seen in Qt
/// 6.4.2 to 6.11.2) only checks where the tables begin, and reads beyond the end of a truncated
/// file.
[[nodiscard]] bool isWholeResourceFile(const QString& path);

/// The same for a file's contents.
[[nodiscard]] bool isWholeResource(QByteArrayView bytes);

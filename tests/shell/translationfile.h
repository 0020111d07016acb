#pragma once

#include <QByteArray>
#include <QString>

/// The contents of a compiled translation file with one text, valid in every context.
[[nodiscard]] QByteArray translationFile(const QByteArray& sourceText, const QString& translation);

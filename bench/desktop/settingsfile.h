#pragma once

#include <QByteArray>
#include <QString>

class Home;

namespace Bench {

/// Writes a program's settings into a home's folder for them, over what is there.
/// @param name  with the folders below that folder
void writeSettingsFile(const Home& home, const QString& name, const QByteArray& contents);

}

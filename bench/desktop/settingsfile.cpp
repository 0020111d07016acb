#include "bench/desktop/settingsfile.h"

#include "bench/desktop/failure.h"
#include "tests/desktop/harness/home.h"

#include <QDir>
#include <QFileInfo>

namespace Bench {

void writeSettingsFile(const Home& home, const QString& name, const QByteArray& contents)
{
    const QString path = home.configPath() + '/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(contents) != contents.size())
        throw Failure("cannot write " + path.toStdString());
}

}

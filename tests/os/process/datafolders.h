#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace TestSupport {

/// The user's and the system's data directories, empty at first, and the user's language. To be made
/// before anything asks for either: the answer is remembered for the life of the process.
class DataFolders {
public:
    DataFolders()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(path("user")));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(path("first") + ':' + path("second")));
        useLanguage("C");
    }

    static void useLanguage(const QByteArray& language) { qputenv("LANGUAGE", language); }

    /// Writes a file in a directory's folder of applications.
    /// @param directory  "user", "first" or "second", the preferred one first
    void write(const QString& directory, const QString& file, const QByteArray& content) const
    {
        const QString target = path(directory) + "/applications/" + file;
        QDir().mkpath(QFileInfo(target).path());
        QFile entry(target);
        if (entry.open(QFile::WriteOnly))
            entry.write(content);
    }

    void clear() const
    {
        for (const char* directory : {"user", "first", "second"})
            QDir(path(directory)).removeRecursively();
    }

    [[nodiscard]] QString path(const QString& directory) const
    {
        return folder.filePath(directory);
    }

private:
    QTemporaryDir folder;
};

/// The text of an application's entry.
inline QByteArray applicationText(const QByteArray& name, const QByteArray& more = {})
{
    return "[Desktop Entry]\nType=Application\nExec=true\nName=" + name + '\n' + more;
}

}

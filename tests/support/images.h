#pragma once

#include <QPixmapCache>
#include <QResource>

namespace TestSupport {

/// The images of a resource file, there for as long as the object lives; by default the program's.
class Images {
public:
    explicit Images(const QString& resourceFile = QStringLiteral(KORVEL_IMAGES))
        : file(resourceFile)
        , registered(QResource::registerResource(resourceFile))
    {
    }
    ~Images()
    {
        QResource::unregisterResource(file);
        // Else a later test without images would still be given these.
        QPixmapCache::clear();
    }
    Images(const Images&) = delete;
    Images& operator=(const Images&) = delete;

    [[nodiscard]] bool areThere() const { return registered; }

private:
    QString file;
    bool registered;
};

}

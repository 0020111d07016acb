#pragma once

#include <QPixmapCache>
#include <QResource>

namespace TestSupport {

/// The program's images, there for as long as the object lives.
class Images {
public:
    Images()
        : registered(QResource::registerResource(file))
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
    inline static const QString file = QStringLiteral(KORVEL_IMAGES);
    bool registered;
};

}

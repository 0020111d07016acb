#include "shell/quietidle.h"

#include <QPixmapCache>
#include <QThreadPool>

void keepQuietWhenIdle()
{
    QPixmapCache::setCacheLimit(0);
    QThreadPool::globalInstance()->setExpiryTimeout(-1);
}

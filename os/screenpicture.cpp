#include "os/screenpicture.h"

#include "os/screencover.h"
#include "os/x11/rootpicture.h"

namespace osUtils::System {

QImage screenPicture(const QScreen& screen)
{
    const std::optional<QRect> place = deviceGeometry(screen);
    return place ? X11::rootPicture(*place) : QImage();
}

}

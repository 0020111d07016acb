#include "os/screenpicture.h"

#include "os/background.h"
#include "os/screencover.h"
#include "os/x11/connection.h"
#include "os/x11/ownconnection.h"
#include "os/x11/rootpicture.h"
#include "os/x11/sharedpicture.h"

namespace osUtils::System {

namespace {

/// Over a connection of its own: on the toolkit's, every answer that it waits for would queue up
/// behind the picture.
QImage pictureApart(xcb_connection_t* toolkits, const QRect& place)
{
    const X11::OwnConnection own = X11::connectBeside(toolkits);
    if (!own)
        return {};
    QImage shared = X11::sharedRootPicture(own.get(), place);
    return shared.isNull() ? X11::rootPicture(own.get(), place) : shared;
}

}

ScreenPicture::ScreenPicture(const QScreen& screen)
    : place(deviceGeometry(screen))
{
    if (place)
        picture = inBackground(
            [server = X11::connection(), area = *place] { return pictureApart(server, area); });
}

QImage ScreenPicture::take()
{
    if (!place)
        return {};
    QImage fetched = picture.valid() ? picture.get() : QImage();
    return fetched.isNull() ? X11::rootPicture(X11::connection(), *place) : fetched;
}

}

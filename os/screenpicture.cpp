#include "os/screenpicture.h"

#include "os/background.h"
#include "os/screencover.h"
#include "os/x11/connection.h"
#include "os/x11/ownconnection.h"
#include "os/x11/rootpicture.h"
#include "os/x11/sharedpicture.h"

#include <utility>

namespace osUtils::System {

namespace {

/// False if nobody is there any more to release it.
bool isReleased(std::future<void>& release)
{
    try {
        release.get();
        return true;
    } catch (const std::future_error&) {
        return false;
    }
}

/// Over a connection of its own: on the toolkit's, every answer that it waits for would queue up
/// behind the picture.
QImage pictureApart(xcb_connection_t* toolkits, const QRect& place, std::future<void> release)
{
    const X11::OwnConnection own = X11::connectBeside(toolkits);
    if (!own)
        return {};
    X11::SharedPicture shared(own.get(), place.size());
    if (!isReleased(release))
        return {};
    QImage picture = shared.take(place.topLeft());
    return picture.isNull() ? X11::rootPicture(own.get(), place) : picture;
}

}

ScreenPicture::ScreenPicture(const QScreen& screen)
    : place(deviceGeometry(screen))
{
    if (!place)
        return;
    release.emplace();
    picture = inBackground(
        [server = X11::connection(), area = *place, released = release->get_future()]() mutable {
            return pictureApart(server, area, std::move(released));
        });
}

void ScreenPicture::begin()
{
    if (release)
        release->set_value();
    release.reset();
}

QImage ScreenPicture::take()
{
    begin();
    if (!place)
        return {};
    QImage fetched = picture.valid() ? picture.get() : QImage();
    return fetched.isNull() ? X11::rootPicture(X11::connection(), *place) : fetched;
}

}

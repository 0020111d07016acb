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

/// None if they have not been written.
SharedPixels pixelsOf(std::future<SharedPixels>& written)
{
    try {
        return written.get();
    } catch (const std::future_error&) {
        return {};
    }
}

/// Over a connection of its own: on the toolkit's, every answer that it waits for would queue up
/// behind the picture.
/// @param written  kept if the window system writes the picture to shared memory, as soon as it has
QImage pictureApart(xcb_connection_t* toolkits, const QRect& place, std::future<void> release,
                    std::promise<SharedPixels> written)
{
    const X11::OwnConnection own = X11::connectBeside(toolkits);
    if (!own)
        return {};
    X11::SharedPicture shared(own.get(), place.size());
    if (!isReleased(release))
        return {};
    if (!shared.write(place.topLeft()))
        return X11::rootPicture(own.get(), place);
    written.set_value(shared.pixels());
    return shared.picture();
}

}

ScreenPicture::ScreenPicture(const QScreen& screen)
    : place(deviceGeometry(screen))
{
    if (!place)
        return;
    release.emplace();
    std::promise<SharedPixels> write;
    written = write.get_future();
    picture = inBackground([server = X11::connection(), area = *place,
                            released = release->get_future(), write = std::move(write)]() mutable {
        return pictureApart(server, area, std::move(released), std::move(write));
    });
}

void ScreenPicture::begin()
{
    if (release)
        release->set_value();
    release.reset();
}

bool ScreenPicture::secure()
{
    begin();
    if (!place)
        return false;
    if (written.valid()) {
        shared = pixelsOf(written);
        if (!shared.memory)
            finished = finish();
    }
    return !finished || !finished->isNull();
}

QImage ScreenPicture::take()
{
    if (!secure())
        return {};
    return finished ? *std::exchange(finished, std::nullopt) : finish();
}

QImage ScreenPicture::finish()
{
    QImage fetched = picture.valid() ? picture.get() : QImage();
    return fetched.isNull() ? X11::rootPicture(X11::connection(), *place) : fetched;
}

}

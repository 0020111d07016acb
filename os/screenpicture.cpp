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

/// What somebody has promised; none if there is nobody any more to keep it.
template <typename Value> std::optional<Value> kept(std::future<Value>& promised)
{
    try {
        return promised.get();
    } catch (const std::future_error&) {
        return std::nullopt;
    }
}

bool isKept(std::future<void>& promised)
{
    try {
        promised.get();
        return true;
    } catch (const std::future_error&) {
        return false;
    }
}

}

/// Over a connection of its own: on the toolkit's, every answer that it waits for would queue up
/// behind the picture.
/// @param written  kept if the window system writes the picture to shared memory, as soon as it has
QImage ScreenPicture::fetch(X11::OwnConnection own, const QRect& place,
                            const X11::SharedPicture& shared, std::future<Way> release,
                            std::promise<void> written, std::future<void> completion)
{
    const bool isReserved = own && shared.reserve();
    const std::optional<Way> way = kept(release);
    if (!own || !way)
        return {};
    if (way != Way::SharedMemory || !isReserved || !shared.write(own.get(), place.topLeft()))
        return X11::rootPicture(own.get(), place);
    own.reset();
    written.set_value();
    return isKept(completion) ? shared.picture() : QImage();
}

ScreenPicture::ScreenPicture(const QScreen& screen)
    : place(deviceGeometry(screen))
{
    if (!place)
        return;
    shared = std::make_shared<const X11::SharedPicture>(X11::connection(), place->size());
    release.emplace();
    completion.emplace();
    std::promise<void> write;
    written = write.get_future();
    picture = inBackground([toolkits = X11::connection(), area = *place, memory = shared,
                            released = release->get_future(), write = std::move(write),
                            completed = completion->get_future()]() mutable {
        return fetch(X11::connectBeside(toolkits), area, *memory, std::move(released),
                     std::move(write), std::move(completed));
    });
}

void ScreenPicture::begin()
{
    // The answer has come by now, and the server knows the memory over every connection.
    if (release)
        release->set_value(shared->isTaken() ? Way::SharedMemory : Way::Connection);
    release.reset();
}

bool ScreenPicture::secure()
{
    begin();
    if (!place)
        return false;
    if (written.valid()) {
        isWritten = isKept(written);
        if (!isWritten)
            finished = finish();
    }
    return !finished || !finished->isNull();
}

SharedPixels ScreenPicture::pixels() const
{
    return isWritten ? shared->pixels() : SharedPixels();
}

QImage ScreenPicture::draft() const
{
    return isWritten && completion ? shared->draft() : QImage();
}

void ScreenPicture::complete()
{
    if (completion)
        completion->set_value();
    completion.reset();
}

QImage ScreenPicture::take()
{
    if (!secure())
        return {};
    complete();
    return finished ? *std::exchange(finished, std::nullopt) : finish();
}

QImage ScreenPicture::finish()
{
    QImage fetched = picture.valid() ? picture.get() : QImage();
    return fetched.isNull() ? X11::rootPicture(X11::connection(), *place) : fetched;
}

}

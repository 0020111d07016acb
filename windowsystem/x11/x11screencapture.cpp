#include "windowsystem/x11/x11screencapture.h"

#include "windowsystem/windowsystem.h"
#include "windowsystem/x11/connection.h"

#include <QRegion>
#include <QWindow>

#include <system_error>
#include <utility>

namespace Windowing::X11 {

namespace {

constexpr uint32_t allPlanes = ~0U;

/// Runs a task on a thread of its own or, if the system has no thread left, when the result is
/// asked for. The future's destructor waits for the thread.
template <typename Task> auto inBackground(Task task) -> std::future<decltype(task())>
{
    try {
        return std::async(std::launch::async, task);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, std::move(task));
    }
}

xcb_shm_get_image_cookie_t askForPicture(const QRect& place, xcb_shm_seg_t segment)
{
    const auto cookie = xcb_shm_get_image(
        connection(), rootWindow(), static_cast<int16_t>(place.x()),
        static_cast<int16_t>(place.y()), static_cast<uint16_t>(place.width()),
        static_cast<uint16_t>(place.height()), allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0);
    xcb_flush(connection());
    return cookie;
}

bool isSuited(xcb_window_t window, QSize size)
{
    const auto geometry =
        replyTo(xcb_get_geometry_reply, connection(), xcb_get_geometry(connection(), window));
    return geometry && geometry->depth == qtDepth
        && QSize(geometry->width, geometry->height) == size;
}

xcb_gcontext_t makeClip(xcb_window_t window, const QRegion& region)
{
    const std::vector<xcb_rectangle_t> rectangles = x11Rectangles(region);
    const xcb_gcontext_t clip = xcb_generate_id(connection());
    xcb_create_gc(connection(), clip, window, 0, nullptr);
    xcb_set_clip_rectangles(connection(), XCB_CLIP_ORDERING_UNSORTED, clip, 0, 0,
                            static_cast<uint32_t>(rectangles.size()), rectangles.data());
    return clip;
}

}

X11ScreenCapture::X11ScreenCapture(QScreen& captured, const QRect& screenPlace)
    : ScreenCapture(captured)
    , place(screenPlace)
    , pixels(SharedPixels::offered(place.size()))
{
    if (pixels)
        reserved = inBackground([shared = pixels] { return shared->reserve(); });
}

void X11ScreenCapture::begin()
{
    if (state != State::Prepared)
        return;
    state = State::Begun;
    // Does not wait: the server has answered by now.
    if (!pixels || !pixels->isTaken())
        return;
    request = inBackground([isReserved = reserved, where = place, segment = pixels->segment()] {
        return isReserved.get() ? Request(askForPicture(where, segment)) : std::nullopt;
    });
}

void X11ScreenCapture::secure()
{
    begin();
    if (state != State::Begun)
        return;
    if (hasWritten()) {
        state = State::Written;
        qCDebug(windowSystemLog) << "Picture of" << place << "in shared memory";
        return;
    }
    pixels.reset();
    copy = copied();
    state = copy.isNull() ? State::Refused : State::Copied;
    qCDebug(windowSystemLog) << "Picture of" << place
                             << (copy.isNull() ? "by Qt" : "through the connection");
    if (state == State::Refused)
        ScreenCapture::secure();
}

bool X11ScreenCapture::hasWritten()
{
    const Request sent = request.valid() ? request.get() : std::nullopt;
    return sent && replyTo(xcb_shm_get_image_reply, connection(), *sent);
}

QImage X11ScreenCapture::copied() const
{
    if (!hasQtPixels())
        return {};
    const auto cookie = xcb_get_image(
        connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, rootWindow(), static_cast<int16_t>(place.x()),
        static_cast<int16_t>(place.y()), static_cast<uint16_t>(place.width()),
        static_cast<uint16_t>(place.height()), allPlanes);
    auto reply = replyTo(xcb_get_image_reply, connection(), cookie);
    const qsizetype rowBytes = qsizetype{place.width()} * qsizetype{sizeof(QRgb)};
    if (!reply || xcb_get_image_data_length(reply.get()) != rowBytes * place.height())
        return {};
    uchar* const bytes = xcb_get_image_data(reply.get());
    makeOpaque(bytes, place.size());
    return {bytes,     place.width(),  place.height(), rowBytes, QImage::Format_RGB32,
            std::free, reply.release()};
}

QImage X11ScreenCapture::image()
{
    switch (state) {
    case State::Written:
        complete();
        completion.wait();
        return pixels->picture();
    case State::Copied:
        return copy;
    default:
        return ScreenCapture::image();
    }
}

QImage X11ScreenCapture::draft() const
{
    return state == State::Written && !completion.valid() ? pixels->picture() : QImage();
}

void X11ScreenCapture::complete()
{
    if (state == State::Written && !completion.valid())
        completion = inBackground([shared = pixels] { shared->makeOpaque(); });
}

bool X11ScreenCapture::show(const QImage& picture, const QWindow& window,
                            const QRegion& region) const
{
    const auto target = static_cast<xcb_window_t>(window.winId());
    const auto isOurs = [&] { return picture.isNull() || picture.constBits() == pixels->bytes(); };
    if (state != State::Written || !isOurs() || !isSuited(target, place.size()))
        return false;
    const auto width = static_cast<uint16_t>(place.width());
    const auto height = static_cast<uint16_t>(place.height());
    constexpr uint8_t untold = 0;

    const xcb_gcontext_t clip = makeClip(target, region);
    xcb_shm_put_image(connection(), target, clip, width, height, 0, 0, width, height, 0, 0, qtDepth,
                      XCB_IMAGE_FORMAT_Z_PIXMAP, untold, pixels->segment(), 0);
    xcb_free_gc(connection(), clip);
    xcb_flush(connection());
    return true;
}

}

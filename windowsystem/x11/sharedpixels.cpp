#include "windowsystem/x11/sharedpixels.h"

#include "windowsystem/x11/connection.h"

#include <QSysInfo>

#include <algorithm>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Windowing::X11 {

namespace {

const xcb_visualtype_t* visualOf(const xcb_screen_t& screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem;
         xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem;
             xcb_visualtype_next(&visual)) {
            if (visual.data->visual_id == screen.root_visual)
                return visual.data;
        }
    }
    return nullptr;
}

bool hasWidePixels(const xcb_setup_t& setup)
{
    constexpr uint8_t bitsPerPixel = 32;
    for (auto format = xcb_setup_pixmap_formats_iterator(&setup); format.rem;
         xcb_format_next(&format)) {
        if (format.data->depth == qtDepth)
            return format.data->bits_per_pixel == bitsPerPixel;
    }
    return false;
}

/// Whether memory can be handed over, which needs a local socket. A server that knows the extension
/// but not this request reports an error.
bool takesMemory()
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    const int socket = xcb_get_file_descriptor(connection());
    const auto* extension = xcb_get_extension_data(connection(), &xcb_shm_id);
    return extension && extension->present
        && getpeername(socket, reinterpret_cast<sockaddr*>(&address), &length) == 0
        && address.ss_family == AF_UNIX;
}

}

bool hasQtPixels()
{
    const xcb_setup_t& setup = *xcb_get_setup(connection());
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(&setup).data;
    constexpr auto ownOrder = QSysInfo::ByteOrder == QSysInfo::LittleEndian
        ? XCB_IMAGE_ORDER_LSB_FIRST
        : XCB_IMAGE_ORDER_MSB_FIRST;
    const xcb_visualtype_t* visual = visualOf(screen);
    return setup.image_byte_order == ownOrder && screen.root_depth == qtDepth && visual
        && visual->red_mask == 0xff0000 && visual->green_mask == 0xff00 && visual->blue_mask == 0xff
        && hasWidePixels(setup);
}

void makeOpaque(void* pixels, QSize size)
{
    constexpr QRgb opaque = 0xff000000;
    auto* const first = static_cast<QRgb*>(pixels);
    std::transform(first, first + qsizetype{size.width()} * size.height(), first,
                   [](QRgb pixel) { return pixel | opaque; });
}

std::shared_ptr<SharedPixels> SharedPixels::offered(QSize size)
{
    if (size.isEmpty() || !hasQtPixels() || !takesMemory())
        return nullptr;
    std::shared_ptr<SharedPixels> pixels(new SharedPixels(size));
    return pixels->number == XCB_NONE ? nullptr : pixels;
}

SharedPixels::SharedPixels(QSize size)
    : extent(size)
    , file(memfd_create("screen", MFD_CLOEXEC))
{
    if (!file.isOpen() || ftruncate(file.number(), static_cast<off_t>(byteCount())) != 0)
        return;
    void* const mapped =
        mmap(nullptr, byteCount(), PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
    if (mapped == MAP_FAILED)
        return;
    memory = mapped;
    // XCB closes the descriptor after sending it.
    const int descriptor = fcntl(file.number(), F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0)
        return;
    constexpr uint8_t writable = 0;
    number = xcb_generate_id(connection());
    attaching = xcb_shm_attach_fd_checked(connection(), number, descriptor, writable);
}

SharedPixels::~SharedPixels()
{
    // Without a connection the server has already detached the memory.
    if (xcb_connection_t* server = number == XCB_NONE ? nullptr : connection())
        xcb_discard_reply(server, xcb_shm_detach_checked(server, number).sequence);
    if (memory)
        munmap(memory, byteCount());
}

size_t SharedPixels::byteCount() const
{
    return static_cast<size_t>(extent.width()) * static_cast<size_t>(extent.height())
        * sizeof(QRgb);
}

bool SharedPixels::reserve() const
{
    return posix_fallocate(file.number(), 0, static_cast<off_t>(byteCount())) == 0;
}

bool SharedPixels::isTaken() const
{
    return !ReplyPointer<xcb_generic_error_t>(xcb_request_check(connection(), attaching));
}

void SharedPixels::makeOpaque()
{
    // In steps, so that other threads that map memory meanwhile are held up for only some
    // microseconds. A kernel without this request (Linux before 5.14) maps the pages one by one.
    constexpr size_t step = size_t{64} * 1024;
    for (size_t at = 0; at < byteCount(); at += step)
        madvise(static_cast<std::byte*>(memory) + at, std::min(step, byteCount() - at),
                MADV_POPULATE_WRITE);
    X11::makeOpaque(memory, extent);
}

QImage SharedPixels::picture()
{
    auto* const user = new std::shared_ptr<SharedPixels>(shared_from_this());
    const auto release = [](void* released) {
        delete static_cast<std::shared_ptr<SharedPixels>*>(released);
    };
    return {static_cast<uchar*>(memory),
            extent.width(),
            extent.height(),
            qsizetype{extent.width()} * qsizetype{sizeof(QRgb)},
            QImage::Format_RGB32,
            release,
            user};
}

}

#include "os/x11/sharedpicture.h"

#include "os/filedescriptor.h"
#include "os/x11/pixellayout.h"
#include "os/x11/replypointer.h"

#include <xcb/shm.h>

#include <memory>

#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace osUtils::X11 {

namespace {

/// Memory that another process can be given.
class SharedMemory {
public:
    explicit SharedMemory(size_t size)
        : bytes(size)
        , file(memfd_create("picture", MFD_CLOEXEC))
    {
        if (!file.isOpen() || ftruncate(file.number(), static_cast<off_t>(bytes)) != 0)
            return;
        void* const mapped =
            mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
        if (mapped == MAP_FAILED)
            return;
        address = mapped;
        touchEveryPage();
    }
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory()
    {
        if (address)
            munmap(address, bytes);
    }

    [[nodiscard]] void* data() const { return address; }
    /// For the receiver to close.
    [[nodiscard]] int handle() const { return dup(file.number()); }

private:
    /// Has the system provide them here and now. Else the server would wait for each while it writes, and
    /// whatever is asked of it for the server. (Populated by the system in one go, they would hold up
    /// what other threads map.)
    void touchEveryPage() const
    {
        const auto pageBytes = static_cast<size_t>(sysconf(_SC_PAGESIZE));
        for (size_t at = 0; at < bytes; at += pageBytes)
            static_cast<volatile std::byte*>(address)[at] = std::byte{};
    }

    size_t bytes;
    FileDescriptor file;
    void* address = nullptr;
};

/// Only there memory can be handed over.
bool isLocal(xcb_connection_t* server)
{
    sockaddr_storage address{};
    socklen_t length = sizeof(address);
    return getpeername(xcb_get_file_descriptor(server), reinterpret_cast<sockaddr*>(&address),
                       &length)
        == 0
        && address.ss_family == AF_UNIX;
}

bool takesMemory(xcb_connection_t* server)
{
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(server, &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    const ReplyPointer<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(server, xcb_shm_query_version(server), nullptr));
    return version && (version->major_version > 1 || version->minor_version >= 2);
}

bool hasSucceeded(xcb_connection_t* server, xcb_void_cookie_t request)
{
    return !ReplyPointer<xcb_generic_error_t>(xcb_request_check(server, request));
}

bool writeRoot(xcb_connection_t* server, const QRect& area, const SharedMemory& memory)
{
    const xcb_shm_seg_t segment = xcb_generate_id(server);
    constexpr uint8_t writable = 0;
    if (!hasSucceeded(server,
                      xcb_shm_attach_fd_checked(server, segment, memory.handle(), writable)))
        return false;
    constexpr uint32_t allPlanes = ~0U;
    const auto cookie =
        xcb_shm_get_image(server, xcb_setup_roots_iterator(xcb_get_setup(server)).data->root,
                          static_cast<int16_t>(area.x()), static_cast<int16_t>(area.y()),
                          static_cast<uint16_t>(area.width()), static_cast<uint16_t>(area.height()),
                          allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0);
    const ReplyPointer<xcb_shm_get_image_reply_t> written(
        xcb_shm_get_image_reply(server, cookie, nullptr));
    return written != nullptr;
}

void release(void* memory)
{
    delete static_cast<SharedMemory*>(memory);
}

}

QImage sharedRootPicture(xcb_connection_t* server, const QRect& area)
{
    if (area.isEmpty() || !isLocal(server) || !hasToolkitsPixels(*xcb_get_setup(server))
        || !takesMemory(server))
        return {};
    const size_t pixels = static_cast<size_t>(area.width()) * static_cast<size_t>(area.height());
    auto memory = std::make_unique<SharedMemory>(pixels * sizeof(QRgb));
    if (!memory->data() || !writeRoot(server, area, *memory))
        return {};
    makeOpaque({static_cast<QRgb*>(memory->data()), pixels});
    auto* const data = static_cast<uchar*>(memory->data());
    return {data,
            area.width(),
            area.height(),
            qsizetype{area.width()} * qsizetype{sizeof(QRgb)},
            QImage::Format_RGB32,
            release,
            memory.release()};
}

}

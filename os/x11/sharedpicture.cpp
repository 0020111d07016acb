#include "os/x11/sharedpicture.h"

#include "os/sharedmemory.h"
#include "os/x11/connection.h"
#include "os/x11/pixellayout.h"
#include "os/x11/replypointer.h"
#include "os/x11/serveraddress.h"

#include <xcb/shm.h>

namespace osUtils::X11 {

namespace {

using System::SharedMemory;

bool takesMemory(xcb_connection_t* server)
{
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(server, &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    const ReplyPointer<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(server, xcb_shm_query_version(server), nullptr));
    return version && (version->major_version > 1 || version->minor_version >= 2);
}

void release(void* memory)
{
    delete static_cast<std::shared_ptr<SharedMemory>*>(memory);
}

}

SharedPicture::SharedPicture(xcb_connection_t* theServer, QSize theSize)
    : server(theServer)
    , size(theSize)
{
    if (size.isEmpty() || !ServerAddress(server).isLocal()
        || !hasToolkitsPixels(*xcb_get_setup(server)) || !takesMemory(server))
        return;
    memory = std::make_shared<SharedMemory>(static_cast<size_t>(size.width())
                                            * static_cast<size_t>(size.height()) * sizeof(QRgb));
    // Set aside beforehand: else the server would wait for each page, and others for the server.
    if (memory->data() && memory->reserve())
        segment.emplace(server, *memory, SharedSegment::Writable);
    if (!segment || !segment->isTaken())
        memory.reset();
}

bool SharedPicture::write(QPoint topLeft) const
{
    if (!memory)
        return false;
    constexpr uint32_t allPlanes = ~0U;
    const auto cookie =
        xcb_shm_get_image(server, rootWindow(server), static_cast<int16_t>(topLeft.x()),
                          static_cast<int16_t>(topLeft.y()), static_cast<uint16_t>(size.width()),
                          static_cast<uint16_t>(size.height()), allPlanes,
                          XCB_IMAGE_FORMAT_Z_PIXMAP, segment->id(), 0);
    xcb_flush(server);
    memory->populate(); // while the server writes
    const ReplyPointer<xcb_shm_get_image_reply_t> written(
        xcb_shm_get_image_reply(server, cookie, nullptr));
    return written != nullptr;
}

QImage SharedPicture::picture() const
{
    return toolkitsPicture(memory->data(), size, release,
                           new std::shared_ptr<SharedMemory>(memory));
}

}

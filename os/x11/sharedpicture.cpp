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
    // One that knows the extension but not memory that is handed over reports an error.
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(server, &xcb_shm_id);
    return extension && extension->present && ServerAddress(server).isLocal();
}

void release(void* memory)
{
    delete static_cast<std::shared_ptr<SharedMemory>*>(memory);
}

}

SharedPicture::SharedPicture(xcb_connection_t* server, QSize theSize)
    : size(theSize)
{
    if (size.isEmpty() || !hasToolkitsPixels(*xcb_get_setup(server)) || !takesMemory(server))
        return;
    memory = std::make_shared<SharedMemory>(static_cast<size_t>(size.width())
                                            * static_cast<size_t>(size.height()) * sizeof(QRgb));
    if (memory->data())
        segment = std::make_shared<SharedSegment>(server, *memory);
}

bool SharedPicture::isTaken() const
{
    return segment && segment->isTaken();
}

bool SharedPicture::reserve() const
{
    // Else the server would wait for each page, and others for the server.
    return segment && memory->reserve();
}

bool SharedPicture::write(xcb_connection_t* over, QPoint topLeft) const
{
    constexpr uint32_t allPlanes = ~0U;
    const auto cookie =
        xcb_shm_get_image(over, rootWindow(over), static_cast<int16_t>(topLeft.x()),
                          static_cast<int16_t>(topLeft.y()), static_cast<uint16_t>(size.width()),
                          static_cast<uint16_t>(size.height()), allPlanes,
                          XCB_IMAGE_FORMAT_Z_PIXMAP, segment->id(), 0);
    xcb_flush(over);
    const ReplyPointer<xcb_shm_get_image_reply_t> written(
        xcb_shm_get_image_reply(over, cookie, nullptr));
    return written != nullptr;
}

System::SharedPixels SharedPicture::pixels() const
{
    return {memory, {segment, &segment->id()}, size};
}

QImage SharedPicture::draft() const
{
    return toolkitsPicture(memory->data(), size, release,
                           new std::shared_ptr<SharedMemory>(memory));
}

QImage SharedPicture::picture() const
{
    memory->populate();
    makeOpaque(memory->data(), size);
    return draft();
}

}

#include "tests/desktop/harness/windowbackground.h"

#include "tests/desktop/harness/xconnection.h"

namespace {

constexpr int RowsAtOnce = 32; // keeps each request below the server's limit of 256 KiB

}

void setBackground(const XConnection& x, xcb_window_t window, const QImage& picture)
{
    const auto width = static_cast<uint16_t>(picture.width());
    const xcb_pixmap_t pixmap = xcb_generate_id(x.raw());
    xcb_create_pixmap(x.raw(), 24, pixmap, x.root(), width,
                      static_cast<uint16_t>(picture.height()));
    const xcb_gcontext_t context = xcb_generate_id(x.raw());
    xcb_create_gc(x.raw(), context, pixmap, 0, nullptr);
    for (int row = 0; row < picture.height(); row += RowsAtOnce) {
        const int rows = qMin(RowsAtOnce, picture.height() - row);
        xcb_put_image(x.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width,
                      static_cast<uint16_t>(rows), 0, static_cast<int16_t>(row), 0, 24,
                      static_cast<uint32_t>(rows * picture.bytesPerLine()),
                      picture.constScanLine(row));
    }
    xcb_change_window_attributes(x.raw(), window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(x.raw(), 0, window, 0, 0, 0, 0);
    xcb_free_gc(x.raw(), context);
    xcb_free_pixmap(x.raw(), pixmap); // the window keeps what it needs of it
    x.synchronise();
}

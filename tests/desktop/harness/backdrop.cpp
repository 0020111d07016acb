#include "tests/desktop/harness/backdrop.h"

#include "tests/desktop/harness/xconnection.h"

#include <QColor>

namespace {

constexpr int RowsAtOnce = 32; // keeps each request below the server's limit of 256 KiB

}

void Backdrop::fill(QColor colour) const
{
    const uint32_t pixel = colour.rgb() & RGB_MASK;
    xcb_change_window_attributes(x.raw(), x.root(), XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(x.raw(), 0, x.root(), 0, 0, 0, 0);
    x.synchronise();
}

void Backdrop::paintPattern() const
{
    show(pattern(x.size()));
}

QImage Backdrop::pattern(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int row = 0; row < size.height(); ++row) {
        for (int column = 0; column < size.width(); ++column)
            picture.setPixel(column, row,
                             qRgb(column & 255, row & 255, column >> 8 | row >> 8 << 4));
    }
    return picture;
}

void Backdrop::show(const QImage& picture) const
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
    xcb_change_window_attributes(x.raw(), x.root(), XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(x.raw(), 0, x.root(), 0, 0, 0, 0);
    xcb_free_gc(x.raw(), context);
    xcb_free_pixmap(x.raw(), pixmap); // the root window keeps what it needs of it
    x.synchronise();
}

#include "tests/desktop/harness/backdrop.h"

#include "tests/desktop/harness/windowbackground.h"
#include "tests/desktop/harness/xconnection.h"

#include <QColor>

void Backdrop::fill(QColor colour) const
{
    const uint32_t pixel = colour.rgb() & RGB_MASK;
    xcb_change_window_attributes(x.raw(), x.root(), XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(x.raw(), 0, x.root(), 0, 0, 0, 0);
    x.synchronise();
}

void Backdrop::paintPattern() const
{
    setBackground(x, x.root(), pattern(x.size()));
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

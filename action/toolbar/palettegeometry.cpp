#include "action/toolbar/palettegeometry.h"

#include <algorithm>

namespace VcAction::Toolbar {

namespace {

constexpr int capWidth = 7;
// The left cap lies under the handle strip's edge, so that the first tab meets the page.
constexpr int stripLeft = handleWidth - capWidth + 1;
constexpr int cornerMargin = 80;

}

QRect handleArea(QSize palette)
{
    return {0, 0, handleWidth, palette.height() - tabStripHeight};
}

bool isOnHandle(QPoint point, QSize palette)
{
    return point.x() < handleWidth && point.y() < palette.height() - tabStripHeight;
}

QSize backFrameSize(QSize palette, int tabs)
{
    // As in the style sheet of the frame.
    constexpr int leftSlice = 49;
    constexpr int rightSlice = 20;
    return {std::max(palette.width(), leftSlice + rightSlice),
            palette.height() - (tabs > 0 ? tabStripHeight : 0)};
}

QRegion closedRegion(QSize palette)
{
    return QRegion(QRect(QPoint(0, 0), palette))
        - QRect(0, palette.height() - tabStripHeight, handleWidth, tabStripHeight);
}

QRect shutterHandlePlace(QSize palette)
{
    constexpr QSize button(22, 22);
    constexpr int gapBelow = 6;
    return {QPoint((handleWidth - button.width()) / 2,
                   palette.height() - tabStripHeight - button.height() - gapBelow),
            button};
}

QList<ImageSlice> tabStripSlices(QSize palette, QSize image, int tabs, int tabWidth)
{
    const int top = palette.height() - tabStripHeight;
    const int middle = tabs * tabWidth;
    return {
        {QRect(stripLeft, top, capWidth, tabStripHeight), QRect(0, 0, capWidth, image.height())},
        {QRect(stripLeft + capWidth, top, middle, tabStripHeight),
         QRect(capWidth, 0, 1, image.height())},
        {QRect(handleWidth + middle, top, capWidth, tabStripHeight),
         QRect(image.width() - capWidth, 0, capWidth, image.height())},
    };
}

QPoint cornerPosition(QSize frame, QSize palette)
{
    return {frame.width() - palette.width() - cornerMargin,
            frame.height() - palette.height() - cornerMargin};
}

}

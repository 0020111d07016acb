#pragma once

#include <QList>
#include <QRect>
#include <QRegion>
#include <QSize>

/// Where the parts of a palette lie, as functions of sizes. Logical pixels throughout.
namespace VcAction::Toolbar {

/// Width of the handle strip along the left edge, and of a palette whose shutter is closed.
constexpr int handleWidth = 40;
/// Height of the strip below the pages that carries the tabs.
constexpr int tabStripHeight = 33;

/// Where a press begins a drag: the handle strip above the tab strip's height.
[[nodiscard]] QRect handleArea(QSize palette);

/// Whether a press begins a drag.
/// @param point  in the palette's coordinates
[[nodiscard]] bool isOnHandle(QPoint point, QSize palette);

/// Size of the background's frame, above the tab strip if there is one: as wide as the palette, but
/// wide enough for the image's left and right slices, which would be squeezed otherwise. Of a
/// closed palette that is the handle strip and a part that is cut off.
/// @param tabs  number of tabs
[[nodiscard]] QSize backFrameSize(QSize palette, int tabs);

/// What is left of a closed palette with tabs, or of one that is about to close: not the strip
/// below the handle, where there is nothing.
/// @param palette  with its tab strip
[[nodiscard]] QRegion closedRegion(QSize palette);

/// Where the button for the shutter lies: at the lower end of the handle strip.
/// @param palette  with its tab strip
[[nodiscard]] QRect shutterHandlePlace(QSize palette);

/// A piece of an image and where it is stretched to.
struct ImageSlice {
    QRect target;
    QRect source;

    bool operator==(const ImageSlice&) const = default;
};

/// The tab strip's left cap, middle and right cap, at the bottom of a palette. The right cap begins
/// a pixel before the middle ends, so that no gap shows between them.
/// @param image  size of the strip's image      @param tabs  number of tabs
[[nodiscard]] QList<ImageSlice> tabStripSlices(QSize palette, QSize image, int tabs, int tabWidth);

/// Top-left corner of a palette held inside its frame's bottom-right corner. Not clamped: a frame
/// that is too small gives negative coordinates.
[[nodiscard]] QPoint cornerPosition(QSize frame, QSize palette);

}

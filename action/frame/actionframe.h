#pragma once

#include "overlay/transparentframe.h"

#include <QRegion>

#include <typeinfo>

namespace VcAction::Toolbar {
class ActionToolbar;
}

/// The tools' frames.
namespace VcAction::Frame {

class RepaintPace;

/// The full-screen overlay of one tool: stays on top, ends the program on Escape or when closed,
/// places its palette and fades it while the user works on the frame. What is drawn is the derived
/// frame's.
class ActionFrame : public Helpers::NQt::TransparentFrame {
    Q_OBJECT

public:
    /// The numbers are the transparent frame's.
    ActionFrame(QWidget* parent, int engineType, int width, int height);

    /// Takes the tool's palette, a child of the frame, and places it at the bottom-right corner.
    void setToolbar(VcAction::Toolbar::ActionToolbar* palette);

public slots:
    /// Shows the frame and its palette.
    /// @param withraise  whether the frame takes the keyboard and comes to the top
    virtual void start(bool withraise = true);
    /// Lets the mouse through to the windows below, or catches it again.
    void switchMouseTransMode();
    /// Closes the palette and ends the program.
    virtual void closeAction();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// Where a mouse event lies, in frame coordinates, to the fraction of a logical pixel. The
    /// event's position() is rounded to whole ones (seen in Qt 6.4.2); where it is not, both say
    /// the same.
    [[nodiscard]] static QPointF exactPosition(const QMouseEvent& event);

    /// For a frame that knows what it changes: from now on repaintDirty() repaints only what
    /// markDirty() was told of. To be called in the constructor. It holds for frames of exactly
    /// this class: one that is derived from it may change more, and is repainted whole until it
    /// calls this for itself.
    void trackDirtyRegion();
    /// @param region  in frame coordinates, logical pixels
    void markDirty(const QRegion& region);
    /// Repaints at once what has changed since the last time; everything, unless that is tracked.
    void repaintDirty();
    /// The same for the moves of the pointer: at once for the first in a turn of the event loop.
    /// Those that had queued up behind it are painted together when the turn ends, so that catching
    /// up with a fast hand does not take a paint for each.
    void repaintMove(const QMouseEvent& move);

    /// Whether the palette, with its own cursor, is under the pointer.
    [[nodiscard]] bool isPointerOverToolbar() const;

    VcAction::Toolbar::ActionToolbar* toolbar = nullptr;
    bool mouseTransparent = false;

private:
    void awaitTransfer();

    RepaintPace* movePace;
    const std::type_info* dirtyRegionTracker = &typeid(void);
    QRegion dirtyRegion;
    QRect lastRepainted;
};

}

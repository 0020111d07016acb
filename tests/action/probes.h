#pragma once

#include "action/frame/actionframe.h"
#include "action/toolbar/actiontoolbar.h"

#include <QPropertyAnimation>

/// A frame and a palette that tests can look into.
namespace ActionTest {

/// Counts what the palette asks of it and what the palette lets through to it.
class FrameProbe : public VcAction::Frame::ActionFrame {
public:
    explicit FrameProbe(QSize size = QSize(380, 300))
        : ActionFrame(nullptr, 0, size.width(), size.height())
    {
    }

    using ActionFrame::mouseTransparent;

    void updateCursor() override { ++cursorUpdates; }

    int cursorUpdates = 0;
    int presses = 0;
    int wheelTurns = 0;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        ++presses;
        ActionFrame::mousePressEvent(event);
    }
    void wheelEvent(QWheelEvent* /*event*/) override { ++wheelTurns; }
};

class PaletteProbe : public VcAction::Toolbar::ActionToolbar {
public:
    explicit PaletteProbe(QWidget* parent, QSize size = QSize(200, 80))
        : ActionToolbar(parent, size)
        , fade(opacityAnimation)
        , resizing(sizeAnimation)
    {
    }
    // The palette leaves its animations to the end of the process; a test has many palettes.
    ~PaletteProbe() override
    {
        delete fade;
        delete resizing;
    }

    using ActionToolbar::backFrame;
    using ActionToolbar::backImage;
    using ActionToolbar::closeButton;
    using ActionToolbar::closedWidth;
    using ActionToolbar::createBackImage;
    using ActionToolbar::cursorGrab;
    using ActionToolbar::cursorGrabbed;
    using ActionToolbar::cursorNormal;
    using ActionToolbar::dragging;
    using ActionToolbar::dragOffset;
    using ActionToolbar::fadingEnabled;
    using ActionToolbar::maxOpacity;
    using ActionToolbar::minOpacity;
    using ActionToolbar::opacityAnimation;
    using ActionToolbar::openWidth;
    using ActionToolbar::pictureFolder;
    using ActionToolbar::shutterEnabled;
    using ActionToolbar::shutterHandle;
    using ActionToolbar::shutterOpen;
    using ActionToolbar::sizeAnimation;
    using ActionToolbar::tabHolder;
    using ActionToolbar::tabs;
    using ActionToolbar::tabWidth;

    [[nodiscard]] bool isFading() const
    {
        return opacityAnimation->state() == QAbstractAnimation::Running;
    }

private:
    QPropertyAnimation* fade;
    QPropertyAnimation* resizing;
};

}

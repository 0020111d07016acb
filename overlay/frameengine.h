#pragma once

class QPaintDevice;
class QPixmap;
class QRegion;
class QWindow;

namespace Helpers::NQt {

class TransparentFrame;

/// Decides what lies behind a frame's drawing. The frame owns it and passes it painting and
/// resizing; what is drawn on top is the frame's business.
class FrameEngine {
public:
    virtual ~FrameEngine() = default;

    /// Prepares the background for the frame's present place and size.
    virtual void init() { }
    /// Whether the background is painted at all.
    virtual void setDrawBack(bool wanted) { drawBack = wanted; }
    /// Paints the background, then has the frame draw its content, both onto the device.
    virtual void paint(QPaintDevice* device) = 0;
    /// The background's pixmap, owned by the engine; null if it has none.
    virtual QPixmap* background() = 0;
    /// Starts fetching the background that init() has prepared, and returns without waiting for it.
    virtual void fetchBackground() { }
    /// Waits until the frame can be shown without becoming part of the background.
    virtual void secureBackground() { }
    /// Lets the window system itself show the background on a part of the frame's window, without
    /// painting.
    /// @param region  in logical pixels of the window
    /// @return  false if it cannot, and nothing is shown
    virtual bool showBackground(const QWindow& /*window*/, const QRegion& /*region*/)
    {
        return false;
    }

protected:
    explicit FrameEngine(TransparentFrame* owner)
        : frame(owner)
    {
    }
    FrameEngine(const FrameEngine&) = delete;
    FrameEngine& operator=(const FrameEngine&) = delete;

    /// The frame that owns the engine.
    TransparentFrame* frame;
    bool drawBack = true;

    /// TransparentFrame::getDrawBack() reads the flag.
    friend class TransparentFrame;
};

}

#pragma once

class QPaintDevice;
class QPixmap;

namespace Helpers::NQt {

class TransparentFrame;

/// Decides what lies behind a frame's drawing. The frame owns it and hands it painting and resizing;
/// what is drawn on top is the frame's own.
class FrameEngine {
public:
    virtual ~FrameEngine() = default;

    /// Prepares the background for the frame's present place and size.
    virtual void init() { }
    /// Whether the background is painted at all.
    virtual void setDrawBack(bool drawBack);
    /// Paints the background, then has the frame draw its content, both onto the device.
    virtual void paint(QPaintDevice* device) = 0;
    /// The background's pixmap, owned by the engine; null if it has none.
    virtual QPixmap* background() = 0;
    /// Begins to fetch the background that init() has prepared, and returns while it is on its way.
    virtual void fetchBackground() { }

protected:
    explicit FrameEngine(TransparentFrame* owner);
    FrameEngine(const FrameEngine&) = delete;
    FrameEngine& operator=(const FrameEngine&) = delete;

    /// The frame that owns the engine.
    TransparentFrame* frame;
    bool drawBack = true;

    /// Its getDrawBack() reads the flag.
    friend class TransparentFrame;
};

}

#pragma once

#include "overlay/frameengine.h"

#include <QPixmap>

namespace Helpers::NQt {

/// The live engine: the frame's window is translucent and shows the desktop, which goes on
/// changing, wherever nothing is drawn. Needs a compositor; without one unpainted pixels are black.
class FrameEngineRT : public FrameEngine {
public:
    /// @param owner  made translucent, which has an effect only before its native window exists;
    ///               may be null
    explicit FrameEngineRT(TransparentFrame* owner);
    ~FrameEngineRT() override = default;

    void init() override { }
    /// Stores the flag, which has no effect: there is no background.
    void setDrawBack(bool wanted) override;
    /// Makes the frame draw onto itself, whatever the device.
    void paint(QPaintDevice* device) override;
    /// Always null.
    QPixmap* background() override { return nullptr; }

    /// Reserved for changing the window's alpha from a mask; does nothing.
    void updateAlpha(const QPixmap* mask);

private:
    QPixmap pixmap;
};

}

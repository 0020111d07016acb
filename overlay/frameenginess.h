#pragma once

#include "overlay/frameengine.h"
#include "windowsystem/screencapture.h"

#include <QPixmap>
#include <QRect>

#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace Helpers::NQt {

/// The screenshot engine: photographs the screen under the frame and paints the picture as an
/// opaque background. The picture is also a canvas for lasting strokes.
class FrameEngineSS : public FrameEngine {
public:
    /// @param screenNumber  number of the screen that the frame opens on
    FrameEngineSS(TransparentFrame* owner, int screenNumber);
    ~FrameEngineSS() override = default;

    /// Prepares a new picture of the frame's place, which is taken when fetchBackground(),
    /// secureBackground() or background() is called. The frame must not be visible then, or it gets
    /// into the picture.
    void init() override;
    void paint(QPaintDevice* device) override;
    /// The picture; a null pixmap before the first init() and after a failed one. Waits for a new
    /// picture.
    QPixmap* background() override;
    void fetchBackground() override;
    void secureBackground() override;
    bool showBackground(const QWindow& window, const QRegion& region) override;

    /// Draws a part of the picture, pixel for pixel.
    /// @param at  place of the part's top-left corner on the target, logical pixels
    /// @param source  the part, in logical pixels of the picture
    virtual void drawBack(QPaintDevice* device, QPoint at, QRect source);
    virtual void drawBack(QPainter* painter, QPoint at, QRect source);
    virtual void drawBack(QPainter* painter, QPoint at, QRectF source);

private:
    void printScreen();
    [[nodiscard]] bool isOneScreen() const { return captures.size() == 1 && !area; }
    [[nodiscard]] QPixmap picture();
    [[nodiscard]] QImage draft() const;
    void completePicture();

    /// One for each screen in the picture.
    std::vector<std::unique_ptr<Windowing::ScreenCapture>> captures;
    /// The part of the desktop that the picture shows, in device pixels; no value means all of the
    /// captured screens.
    std::optional<QRect> area;
    qreal ratio = 1;
    /// Whether the pixmap holds the picture; otherwise the picture is on its way.
    bool isTaken = true;
    QPixmap pixmap;
    int screen;
};

}

#pragma once

#include <QMainWindow>

#include <functional>
#include <memory>
#include <typeinfo>

class QPixmap;

/// The overlay frame, its engines and the native window's properties.
namespace Helpers::NQt {

class BackgroundExposure;
class FrameEngine;

/// A borderless window over the whole screen under the mouse, on which a tool draws. Its engine
/// decides what lies behind the drawing; the frame itself draws nothing.
class TransparentFrame : public QMainWindow {
    Q_OBJECT

public:
    /// What lies behind the drawing: a picture of the screen, or the live desktop.
    enum EngineType { ScreenshotEngine = 0, LiveEngine = 1 };

    /// @param engineType  the live engine, or the screenshot engine for any other number
    /// @param width, height  size in logical pixels; the screen's size if either is 0
    TransparentFrame(QWidget* parent, int engineType, int width, int height);
    ~TransparentFrame() override;

    /// Sets the cursor that suits the tool. Called on every mouse press.
    virtual void updateCursor();
    /// Paints the tool's content. Called on every paint, after the background.
    /// @param device  painted on in the frame's coordinates, logical pixels
    virtual void draw(QPaintDevice* device);
    /// Where draw() paints at present.
    /// @return  in logical pixels; the whole frame unless its class has called paintOnly()
    [[nodiscard]] QRegion drawnRegion() const;

    /// Whether the engine paints the background.
    [[nodiscard]] bool getDrawBack() const;
    void setDrawBack(bool drawBack);

    /// The engine's picture; null for the live engine.
    [[nodiscard]] QPixmap* background();
    /// The same object, as a canvas for lasting strokes.
    [[nodiscard]] QPaintDevice* paintDevice();

protected:
    /// Starts fetching the engine's background while the tool does something else. For tools whose
    /// constructors send the window system no further requests: those would wait for the picture.
    /// The frame itself does this as soon as events are handled.
    void fetchBackground();

    /// Declares where draw() paints, so that nothing else needs painting and the tool is shown
    /// sooner. To be called in the constructor. Applies to frames of exactly this class: a derived
    /// class may draw elsewhere, and is painted whole until it calls this itself.
    /// @param region  a member that returns the present region, in logical pixels
    template <typename Frame> void paintOnly(QRegion (Frame::*region)() const)
    {
        toldBy = &typeid(Frame);
        toldRegion = [this, region] { return (static_cast<const Frame*>(this)->*region)(); };
    }
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void coverScreen(int screen, QSize size);
    [[nodiscard]] bool tellsDrawnRegion() const;

    const std::type_info* toldBy = &typeid(void);
    std::function<QRegion()> toldRegion;
    std::unique_ptr<FrameEngine> engine;
    std::unique_ptr<BackgroundExposure> exposure;
};

}

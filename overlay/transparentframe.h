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
    /// What lies behind the drawing: the screen's picture, or the desktop as it goes on changing.
    enum EngineType { ScreenshotEngine = 0, LiveEngine = 1 };

    /// @param engineType  the live engine, or the screenshot engine for any other number
    /// @param width, height  size in logical pixels; the screen's size if either is 0
    TransparentFrame(QWidget* parent, int engineType, int width, int height);
    ~TransparentFrame() override;

    /// Sets the cursor that suits the tool. Called on every mouse press.
    virtual void updateCursor();
    /// Paints the tool's content. Called on every paint, after the background.
    /// @param device  to be painted on in the frame's coordinates, logical pixels
    virtual void draw(QPaintDevice* device);
    /// Where draw() paints anything at present.
    /// @return  in logical pixels; all of the frame unless its class has told otherwise
    [[nodiscard]] QRegion drawnRegion() const;

    /// Whether the engine paints the background.
    [[nodiscard]] bool getDrawBack() const;
    void setDrawBack(bool drawBack);

    /// The engine's picture; null for the live engine.
    [[nodiscard]] QPixmap* background();
    /// The same object, as a canvas for lasting strokes.
    [[nodiscard]] QPaintDevice* paintDevice();

protected:
    /// Has the engine's background come while the tool does something else. To be called by a tool whose
    /// constructor asks the window system nothing from there on: its answers wait for a screen's picture. The
    /// frame itself does so as soon as events are handled.
    void fetchBackground();

    /// Tells where draw() paints, so that nothing else needs to be painted and the tool is shown sooner. To be
    /// called in the constructor. It holds for frames of exactly this class: one that is derived from it may
    /// draw elsewhere, and is painted whole until it calls this for itself.
    /// @param region  a member that tells the region at present, in logical pixels
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

#pragma once

#include <QCursor>
#include <QList>
#include <QMainWindow>
#include <QPixmap>

class QFrame;
class QGraphicsOpacityEffect;
class QPropertyAnimation;
class QPushButton;

namespace VcAction::Widget {
class VcTabHolder;
}

namespace VcAction::Toolbar {

class HandleGrip;

/// The floating palette of a tool, a child of the tool's frame: handle, background, close button,
/// fading, tab pages and shutter. What the tool's controls do is the derived palette's.
///
/// Sizes and positions are in logical pixels of the frame.
class ActionToolbar : public QMainWindow {
    Q_OBJECT

public:
    /// @param parent  the tool's ActionFrame
    ActionToolbar(QWidget* parent, QSize size);
    ~ActionToolbar() override = default;

    /// Shows the palette. The close button comes after all controls made until then in the tab
    /// order.
    void start();

    /// Allows the shutter and shows its handle, which a derived palette must have made before.
    void enableShutter();
    void disableShutter();
    /// Does nothing: a closed palette is as wide as its handle strip.
    void setShutterWidth(int width);

    [[nodiscard]] VcAction::Widget::VcTabHolder* tabWidget() const { return tabHolder; }
    /// Adds a tab page, owned by the palette, for the derived palette to fill.
    QWidget* addTab(const QIcon& icon, const QString& label);
    QWidget* addTab(const QString& label);
    /// @param width  distance from one tab to the next
    void setTabWidth(int width);

    /// Whether the list of one of the palette's combo boxes is open and has the keyboard.
    [[nodiscard]] bool hasCBFocus() const;

    /// Whether fadeIn() and fadeOut() do anything.
    void setFadingEnabled(bool enabled);

    /// How opaque the palette is painted, from 0 to 1. Hides QWidget's property of windows,
    /// which has no effect on a child widget.
    [[nodiscard]] qreal windowOpacity() const { return opacity; }
    void setWindowOpacity(qreal level);

public slots:
    /// Closes the shutter, which lets the mouse through the frame, or opens it again.
    void shutterOpenClose();
    void fadeIn();
    /// Fades out unless the pointer is over the palette or one of its lists is open.
    void fadeOut();

protected:
    /// Makes the image that paintEvent() paints behind the widgets: the tab strip, if there are
    /// tabs.
    virtual void createBackImage(QSize size);

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    QCursor cursorNormal;
    /// For derived palettes; not shown here.
    QCursor cursorGrab;
    QCursor cursorGrabbed;
    double minOpacity = 0.3;
    double maxOpacity = 1.0;
    bool shutterEnabled = false;
    int openWidth;
    int closedWidth;
    bool shutterOpen = true;
    int tabWidth = 126;
    bool dragging = false;
    QPixmap backImage;
    QPushButton* closeButton = nullptr;
    /// What the user closes and opens the shutter with. Made by a derived palette that has a
    /// shutter.
    QWidget* shutterHandle = nullptr;
    /// Global press position minus the palette's position.
    QPoint dragOffset;
    VcAction::Widget::VcTabHolder* tabHolder = nullptr;
    QList<QWidget*> tabs;
    /// The user's picture folder, for derived palettes.
    QString pictureFolder;
    QFrame* backFrame = nullptr;
    bool fadingEnabled = true;
    /// Without parents: they live until the process ends.
    QPropertyAnimation* opacityAnimation = nullptr;
    QPropertyAnimation* sizeAnimation = nullptr;

private:
    void createBackFrame();
    void createTabHolder();
    void createCloseButton();
    void createAnimations();
    QWidget* makeTabPage();
    void layOutBackground();
    void leaveEmptyCorner();
    void fadeOutUnlessUnder(QPoint globalPointer);
    [[nodiscard]] bool isBright() const;

    double opacity = 1.0;
    QGraphicsOpacityEffect* opacityEffect;
    HandleGrip* grip = nullptr;
};

}

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRegion>

#include <optional>

class QWidget;
class QWindow;

namespace Windowing {

class WindowSystem;

/// The native side of one top-level widget. Watches the events of the widget and its native window.
///
/// Remembers the native properties that were asked for and sets them again whenever the window
/// system may have lost them: on a new native window, and on the frame that a window manager puts
/// around it when it is mapped. Makes an overlay come up above the desktop's interface, keeps it
/// there when its tool resizes it, and gives the keyboard back.
class NativeWindow : public QObject {
    Q_OBJECT

public:
    /// The object for the window that holds the widget. Created, with the native window, on first
    /// use.
    static NativeWindow& of(QWidget& widget);

    void setShadow(bool wanted);
    void setIgnoresMouse(bool ignore);
    /// While the window ignores the mouse, this child still catches it where the child is visible
    /// and within its mask.
    void goOnCatchingMouseOver(QWidget& child);
    void setOpaque(bool wanted);
    void raiseAboveAll();
    /// Takes the keyboard once the window is on the screen; nothing happens while it is hidden.
    /// Works even if the window manager has just taken the keyboard from a dialog that was closed,
    /// or leaves it with another program although the window is new.
    void takeKeyboard();

signals:
    /// The window is on the screen for the first time since it was shown, with the window manager's
    /// frames around it.
    void exposed();

protected:
    /// At most one for each top-level widget: of() returns it.
    explicit NativeWindow(QWidget& topLevel);

    /// Handle the events of the widget and of its native window.
    /// @return  whether to hide the event from everybody else
    virtual bool widgetEvent(QEvent& event);
    virtual bool windowEvent(QEvent& event);
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Null until there is one.
    [[nodiscard]] QWindow* window() const;

private:
    void watchNativeWindow();
    void settle();
    void applyAll() const;
    void applyShadow() const;
    void applyInputRegion() const;
    void applyOpaque() const;

    QWidget& widget;
    WindowSystem& system;
    QList<QPointer<QWidget>> catchers;
    // Without a value: never asked for, left as the window system has it.
    std::optional<bool> shadow;
    std::optional<bool> ignoresMouse;
    std::optional<bool> opaque;
    bool aboveAll = false;
    bool keyboardWanted = false;
    /// Whether the window has been exposed since it was shown.
    bool settled = false;
};

/// The area of those widgets that are visible children of the window, by their geometry and masks.
/// @return  in device pixels and window coordinates
[[nodiscard]] QRegion childRegion(const QWidget& window, const QList<QPointer<QWidget>>& widgets);

}

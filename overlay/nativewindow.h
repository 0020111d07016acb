#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRegion>

#include <optional>

class QWidget;

namespace Helpers::NQt {

/// Remembers the native properties asked for one top-level widget and sets them again whenever the
/// window system may have lost them: in a new native window, and in the frame that a window manager
/// puts around it when it is mapped.
class NativeWindow : public QObject {
    Q_OBJECT

public:
    /// The one of the window that holds the widget; made, with the native window, on first use.
    static NativeWindow& of(QWidget& widget);

    void setShadow(bool shadow);
    void setIgnoresMouse(bool ignore);
    /// While the window ignores the mouse, this child of it still catches it, where it is visible and within
    /// its mask.
    void goOnCatchingMouseOver(QWidget& child);
    void setOpaque(bool opaque);
    void raiseAboveAll();
    /// Takes it once the window is on the screen; nothing happens while it is hidden. Also where the
    /// window manager has just taken the keyboard from a dialog that was closed, or leaves it with
    /// another program although the window is new.
    void takeKeyboard();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit NativeWindow(QWidget& topLevel);

    void watchNativeWindow();
    void windowChanged(QEvent* event);
    void nativeWindowChanged(QEvent* event);
    void applyAll() const;
    void applyShadow() const;
    void applyInputRegion() const;
    void applyOpaque() const;

    QWidget& widget;
    QList<QPointer<QWidget>> catchers;
    // Without a value: never asked for, left as the window system has it.
    std::optional<bool> shadow;
    std::optional<bool> ignoresMouse;
    std::optional<bool> opaque;
    bool aboveAll = false;
    bool keyboardWanted = false;
    /// Whether the window has been exposed since it was shown, its frames being around it.
    bool settled = false;
};

/// Where those of the widgets that are visible children of the window lie, by their places and masks.
/// @return  in device pixels and window coordinates
[[nodiscard]] QRegion childRegion(const QWidget& window, const QList<QPointer<QWidget>>& widgets);

}

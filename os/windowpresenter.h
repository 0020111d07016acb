#pragma once

#include "os/borrowedkeyboard.h"

#include <QByteArray>
#include <QObject>
#include <QRect>

#include <map>

class QWindow;

namespace osUtils::System {

/// Puts the process's overlays (frameless stay-on-top windows) above the desktop's interface before
/// they are mapped, and gives the keyboard back to whom it was taken from when they close. Decides
/// nothing about when: that is setSystemUIMode().
class WindowPresenter : public QObject {
    Q_OBJECT

public:
    explicit WindowPresenter(QObject* application);

    /// Whether overlays cover the desktop's interface, from now on and for those that exist.
    void setCovering(bool covering);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void overlayChanged(QWindow& window, const QEvent& event);
    void bringUp(QWindow& window);
    void present(QWindow& window, const QByteArray& windowManager);
    void insistOnPlace(QWindow& window);
    static void release(QWindow& window);

    bool covering = false;
    BorrowedKeyboard keyboard;
    /// Where overlays that are not exposed yet belong, in logical pixels.
    std::map<const QWindow*, QRect> places;
};

}

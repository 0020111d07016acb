#include "os/borrowedkeyboard.h"

#include "os/x11/x11window.h"

#include <QGuiApplication>

#include <algorithm>

namespace osUtils::System {

namespace {

bool isOurs(WId id)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [id](const QWindow* window) {
        return window->handle() && window->winId() == id;
    });
}

// Xfwm4 (seen in 4.18) and marco (1.26) hand the keyboard to the topmost window, an always-on-top one,
// and without a window manager nobody has it. The others know better than we do: kwin (5.27) would
// show panels above a full-screen program that has got the keyboard from us.
bool handsItToSomebodyElse(const QByteArray& windowManager)
{
    const QByteArray name = windowManager.toLower();
    return name.isEmpty() || name.contains("xfwm") || name.contains("marco");
}

}

void BorrowedKeyboard::remember()
{
    if (!X11::isAvailable())
        return;
    const WId focused = X11::focusedWindow();
    if (!isOurs(focused))
        lender = focused;
}

void BorrowedKeyboard::giveBack() const
{
    if (lender != 0 && X11::isAvailable() && handsItToSomebodyElse(X11::windowManagerName())
        && isOurs(X11::focusedWindow()))
        X11::giveKeyboard(lender);
}

}

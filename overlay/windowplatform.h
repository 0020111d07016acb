#pragma once

#include "os/sharedpixels.h"

#include <QRegion>
#include <QString>

#include <optional>

class QWindow;

namespace Helpers::NQt {

/// The native properties of top-level windows, as one window system has them. Without state: what
/// was asked for is remembered by NativeWindow.
///
/// Windows passed in have their native window. Nothing is reported.
class WindowPlatform {
public:
    virtual ~WindowPlatform() = default;

    virtual void setShadow(const QWindow& window, bool shadow) const = 0;
    /// @param region  where the mouse is caught, in device pixels and window coordinates; none means
    ///                everywhere
    virtual void setInputRegion(const QWindow& window,
                                const std::optional<QRegion>& region) const = 0;
    virtual void setOpaque(const QWindow& window, bool opaque) const = 0;
    virtual void raiseAboveAll(QWindow& window) const = 0;
    /// Gives the keyboard to a window that is shown.
    virtual void takeKeyboard(QWindow& window) const = 0;
    /// Has the window system tell of each move and click once, where it tells of the devices behind a pointer as
    /// well.
    virtual void reportPointerOnce(const QWindow& window) const = 0;
    /// Has the window system begin with what the toolkit has asked for so far. The toolkit keeps its requests
    /// until it has more.
    virtual void sendRequests() const = 0;
    /// Has the window system copy pixels to a window, past the toolkit.
    /// @param pixels  those of the whole window
    /// @param region  the part of the window that is copied, in device pixels
    /// @return  false if it cannot, and nothing is copied
    [[nodiscard]] virtual bool showPixels(const QWindow& window,
                                          const osUtils::System::SharedPixels& pixels,
                                          const QRegion& region) const = 0;
};

/// The window system of a platform plug-in's name; one that does nothing for names it does not know.
[[nodiscard]] const WindowPlatform& windowPlatform(const QString& pluginName);

}

#pragma once

#include <QWindow>

namespace osUtils::System {

/// Remembers which program's window had the keyboard before an overlay took it, and gives it back where
/// the window manager would not. Does nothing on window systems that do not let programs do so.
class BorrowedKeyboard {
public:
    /// To be called before an overlay is shown. What belongs to this process is not remembered.
    void remember();
    /// To be called before the overlay is hidden: a window manager that finds the keyboard elsewhere by
    /// then gives it to nobody else. Nothing happens if the process does not have it any more.
    void giveBack() const;

private:
    WId lender = 0;
};

}

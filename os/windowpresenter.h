#pragma once

#include <QObject>

class QWindow;

namespace osUtils::System {

/// Puts the process's overlays (frameless stay-on-top windows) above the desktop's interface before
/// they are mapped. Decides nothing about when: that is setSystemUIMode().
class WindowPresenter : public QObject {
    Q_OBJECT

public:
    explicit WindowPresenter(QObject* application);

    /// Whether overlays cover the desktop's interface, from now on and for those that exist.
    void setCovering(bool covering);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void present(QWindow& window) const;

    bool covering = false;
};

}

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace Windowing::X11 {

/// Watches who owns one of the X server's selections. A session-wide service, such as a compositor,
/// shows that it runs by owning a selection.
///
/// Needs the X11 platform and the server's XFixes extension; without the latter a loss goes
/// unnoticed.
class SelectionWatch : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit SelectionWatch(QByteArrayView name);
    ~SelectionWatch() override;

    [[nodiscard]] bool hasOwner();

signals:
    /// The selection had an owner, as events or hasOwner() showed, and has none now.
    void lost();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    quint32 selection = 0;
    quint8 notifyEvent = 0;
    bool wasOwned = false;
};

}

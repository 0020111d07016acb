#pragma once

#include <QObject>

class QCoreApplication;

namespace VcAction::Frame {

/// Makes quitting while quitting harmless: a Quit event that arrives while the application handles
/// another one, or is about to quit, is dropped.
///
/// From Qt 6.5 on (seen up to 6.11; QTBUG-112670 is of the same change) QCoreApplication::exit()
/// emits aboutToQuit() before it notes that it has, so that a slot that quits is called again
/// without end, and closes all windows. May go when no supported version does so.
class QuitGuard : public QObject {
    Q_OBJECT

public:
    /// Guards the application object, whoever made it, until its end. Once is enough; more do
    /// nothing.
    static void guard(QCoreApplication& application);

protected:
    bool eventFilter(QObject* application, QEvent* event) override;

private slots:
    void dropQuits();
    void letQuitsThrough();

private:
    explicit QuitGuard(QCoreApplication& application);

    bool quitting = false;
};

}

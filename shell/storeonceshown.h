#pragma once

#include <QObject>

class QSettings;
class QWidget;

/// Stores settings once, when a window's first picture is on the screen: startup does not wait for
/// the disk, and a run that is killed later has stored them. If the window is never shown,
/// QSettings stores them when it is destroyed.
class StoreOnceShown : public QObject {
    Q_OBJECT

public:
    /// @param window  not shown yet
    StoreOnceShown(QSettings& values, QWidget& window);

private slots:
    void store();

private:
    QSettings& settings;
};

#pragma once

#include <QObject>

class QSettings;
class QWidget;

/// Stores settings once, when a window's first picture is on the screen: nothing waits for the disk before, and
/// a run that is killed later has stored them. Those of a window that is never shown are stored at their end.
class StoreOnceShown : public QObject {
    Q_OBJECT

public:
    /// @param window  not shown yet
    StoreOnceShown(QSettings& settings, QWidget& window);

private slots:
    void store();

private:
    QSettings& settings;
};

#pragma once

#include <QTabWidget>

namespace VcAction::Widget {

/// The tab pages of a palette with their tabs. Only the tabs are painted: the strip behind them and
/// the pages' background are the palette's.
class VcTabHolder : public QTabWidget {
    Q_OBJECT

public:
    explicit VcTabHolder(QWidget* parent);

    /// @param width  distance from one tab to the next, logical pixels; the label gets 12 less,
    ///               which is not clamped
    void setTabWidth(int width);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A tab page of a palette. Paints nothing, so that the palette's own background shows.
class VcTab : public QWidget {
    Q_OBJECT

public:
    explicit VcTab(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}

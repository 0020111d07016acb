#pragma once

#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

namespace TestSupport {

/// Notes what a widget is asked to paint. Regions are in the widget's coordinates, logical pixels.
class PaintRecorder : public QObject {
public:
    explicit PaintRecorder(QWidget& widget) { widget.installEventFilter(this); }

    int paints = 0;
    QRegion region;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++paints;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

}

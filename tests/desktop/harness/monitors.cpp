#include "tests/desktop/harness/monitors.h"

#include "tests/desktop/harness/eventually.h"

namespace {

QByteArray modeName(QSize size)
{
    return QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height()) + "-test";
}

/// Clock in MHz, then start and end of the sync pulse and the total, across and down; the width of
/// the gaps is of no concern without a wire.
QList<QByteArray> modeLine(QSize size)
{
    const int width = size.width();
    const int height = size.height();
    const double clock = (width + 400) * (height + 40) * 60 / 1e6;
    QList<QByteArray> line{modeName(size), QByteArray::number(clock, 'f', 2)};
    for (const int number :
         {width, width + 48, width + 160, width + 400, height, height + 1, height + 4, height + 40})
        line.append(QByteArray::number(number));
    return line;
}

}

bool Monitors::arrange(const QList<QRect>& places)
{
    QList<QByteArray> arguments;
    for (qsizetype monitor = 0; monitor < places.size(); ++monitor) {
        const QRect place = places[monitor];
        if (place.isEmpty()) {
            arguments += {"--output", name(monitor), "--off"};
            continue;
        }
        if (!knowMode(place.size(), monitor))
            return false;
        arguments +=
            {"--output", name(monitor),
             "--mode",   modeName(place.size()),
             "--pos",    QByteArray::number(place.x()) + 'x' + QByteArray::number(place.y())};
        if (monitor == 0)
            arguments += "--primary";
    }
    for (qsizetype monitor = places.size(); monitor < plugged; ++monitor)
        arguments += {"--output", name(monitor), "--off"};
    plugged = places.size();
    return run(arguments);
}

QByteArray Monitors::name(qsizetype monitor)
{
    return "DUMMY" + QByteArray::number(monitor);
}

bool Monitors::knowMode(QSize size, qsizetype monitor)
{
    const QByteArray mode = modeName(size);
    if (!modes.contains(mode) && !run(QList<QByteArray>{"--newmode"} + modeLine(size)))
        return false;
    modes.append(mode);
    return run({"--addmode", name(monitor), mode});
}

bool Monitors::run(const QList<QByteArray>& arguments) const
{
    ChildProcess xrandr({.program = "/usr/bin/xrandr",
                         .arguments = QList<QByteArray>{"-display", display} + arguments,
                         .environment = {{"LC_ALL", "C.UTF-8"}}});
    static_cast<void>(eventually([&] { return !xrandr.isRunning(); }));
    if (xrandr.status() != 0)
        qInfo("xrandr: %s", xrandr.output().constData());
    return xrandr.status() == 0;
}

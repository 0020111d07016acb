#include "bench/desktop/machine.h"
#include "bench/desktop/results.h"
#include "bench/desktop/resultsfile.h"
#include "bench/desktop/resultstable.h"
#include "bench/desktop/rows/burstrow.h"
#include "bench/desktop/rows/faderow.h"
#include "bench/desktop/rows/idlerow.h"
#include "bench/desktop/rows/latencyrow.h"
#include "bench/desktop/rows/longstrokerow.h"
#include "bench/desktop/rows/startrow.h"
#include "bench/desktop/rows/strokesrow.h"
#include "bench/desktop/rows/wheelrow.h"
#include "bench/desktop/session.h"
#include "bench/desktop/widgetbenches.h"

#include <QCoreApplication>
#include <QDate>

#include <cstdio>

using namespace Bench;

namespace {

const QByteArray Widgets = "widgets";

std::vector<std::unique_ptr<Row>> allRows()
{
    std::vector<std::unique_ptr<Row>> rows;
    rows.push_back(std::make_unique<LatencyRow>());
    rows.push_back(std::make_unique<BurstRow>(BurstRow::Condition::Quiet));
    rows.push_back(std::make_unique<BurstRow>(BurstRow::Condition::Loaded));
    rows.push_back(std::make_unique<BurstRow>(BurstRow::Condition::Stopped));
    rows.push_back(std::make_unique<LongStrokeRow>());
    rows.push_back(std::make_unique<StrokesRow>());
    rows.push_back(std::make_unique<WheelRow>());
    rows.push_back(std::make_unique<FadeRow>());
    rows.push_back(std::make_unique<StartRow>());
    rows.push_back(std::make_unique<IdleRow>());
    return rows;
}

QByteArray introduction()
{
    return "# What is fast, and how fast\n\n"
           "Written by `./dev bench`, which measures all rows, or those that are named to it, and "
           "prints the same. Each number is the median of the runs, with the least and the "
           "greatest; ratios are taken within one run, in which the programs are measured one "
           "after the other, each started anew on a virtual X server of its own size without a "
           "window manager or compositor. Pens are red and 5 pixels wide. The bare client does the "
           "least that a drawing program can do by way of the X server.\n\n"
        + machineDescription();
}

QByteArray section(const QByteArray& name, const QByteArray& method, const QByteArray& table)
{
    return method + "\n\nRepeat: `./dev bench " + name + "`. Measured on "
        + QDate::currentDate().toString(Qt::ISODate).toUtf8() + ".\n\n" + table;
}

void print(const QByteArray& name, const QByteArray& table)
{
    std::printf("\n## %s\n\n%s", name.constData(), table.constData());
    std::fflush(stdout);
}

/// What the arguments ask for.
struct Order {
    QString file = {};
    Session::Programs programs = Session::Programs::All;
    QList<QByteArray> rows = {}; ///< empty for all

    [[nodiscard]] bool asksFor(const QByteArray& row) const
    {
        return rows.isEmpty() || rows.contains(row);
    }
};

Order orderFrom(const QStringList& arguments)
{
    Order order{.file = arguments.value(1)};
    for (const QString& argument : arguments.mid(2)) {
        if (argument == QLatin1String("--own"))
            order.programs = Session::Programs::WithoutPeers;
        else
            order.rows.append(argument.toUtf8());
    }
    return order;
}

void measureRows(const Order& order, const std::vector<std::unique_ptr<Row>>& rows,
                 ResultsFile& file)
{
    Results results;
    Session session(results, order.programs);
    for (const auto& row : rows) {
        if (!order.asksFor(row->name()))
            continue;
        session.measure(*row);
        const QByteArray table = markdownTable(results, row->name(), row->floor());
        print(row->name(), table);
        file.setSection(row->name(), section(row->name(), row->method(), table));
    }
}

void measureWidgets(ResultsFile& file)
{
    const QByteArray table = widgetBenchTable();
    print(Widgets, table);
    const QByteArray method =
        "Parts of the program alone, on an offscreen window: real time of one "
        "turn, the median of three.";
    file.setSection(Widgets, section(Widgets, method, table));
}

}

/// Arguments: the file of the results; --own to leave out the programs of others; names of rows, or
/// none for all.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Order order = orderFrom(QCoreApplication::arguments());
    const auto rows = allRows();
    QList<QByteArray> names;
    for (const auto& row : rows)
        names.append(row->name());
    names.append(Widgets);
    for (const QByteArray& name : order.rows) {
        if (!names.contains(name)) {
            std::fprintf(stderr, "No row is named %s; there are: %s\n", name.constData(),
                         names.join(", ").constData());
            return 2;
        }
    }

    ResultsFile file(order.file, names);
    file.setIntroduction(introduction());
    measureRows(order, rows, file);
    if (order.asksFor(Widgets))
        measureWidgets(file);
    return file.save() ? 0 : 1;
}

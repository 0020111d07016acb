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

}

/// Arguments: the file of the results; --own to leave out the programs of others; names of rows, or none for all.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QStringList wanted = arguments.mid(2);
    const bool withPeers = wanted.removeAll(QStringLiteral("--own")) == 0;
    const auto rows = allRows();
    QList<QByteArray> names;
    for (const auto& row : rows)
        names.append(row->name());
    names.append(Widgets);
    for (const QString& name : wanted) {
        if (!names.contains(name.toUtf8())) {
            std::fprintf(stderr, "No row is named %s; there are: %s\n", qPrintable(name),
                         names.join(", ").constData());
            return 2;
        }
    }
    const auto isWanted = [&](const QByteArray& name) {
        return wanted.isEmpty() || wanted.contains(QString::fromUtf8(name));
    };

    ResultsFile file(arguments.value(1), names);
    file.setIntroduction(introduction());
    Results results;
    Session session(results, withPeers ? Session::Programs::All : Session::Programs::WithoutPeers);
    for (const auto& row : rows) {
        if (!isWanted(row->name()))
            continue;
        session.measure(*row);
        const QByteArray table = markdownTable(results, row->name(), row->floor());
        print(row->name(), table);
        file.setSection(row->name(), section(row->name(), row->method(), table));
    }
    if (isWanted(Widgets)) {
        const QByteArray table = widgetBenchTable();
        print(Widgets, table);
        file.setSection(Widgets,
                        section(Widgets,
                                "Parts of the program alone, on an offscreen window: real time of "
                                "one turn, the median of five.",
                                table));
    }
    return file.save() ? 0 : 1;
}

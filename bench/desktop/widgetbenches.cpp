#include "bench/desktop/widgetbenches.h"

#include "tests/desktop/harness/home.h"

#include <QMap>
#include <QTest>

namespace Bench {

namespace {

constexpr int longestRunMs = 120'000;

/// Milliseconds for one turn, by the bench's name.
using Times = QMap<QByteArray, double>;

Times run(const QByteArray& benches, const QByteArray& screen)
{
    const Home home;
    Environment environment = home.environment({});
    environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" BENCH_SCREENS "/" + screen);
    ChildProcess process({.program = BENCH_WIDGETS,
                          .arguments = {benches, "-median", "3", "-o", "-,csv"},
                          .environment = environment});
    static_cast<void>(QTest::qWaitFor([&] { return !process.isRunning(); }, longestRunMs));
    Times times;
    for (const QByteArray& line : process.output().split('\n')) {
        // "function","row","metric",for one turn,in all,turns
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() != 6)
            continue;
        QByteArray name = benches + ' ' + cells.at(0) + ' ' + cells.at(1);
        name.replace('"', "");
        times.insert(name.trimmed(), cells.at(3).toDouble());
    }
    return times;
}

}

QByteArray widgetBenchTable()
{
    QByteArray table = "| bench | 1920 × 1080, ms | 3840 × 2160, ms |\n| --- | --- | --- |\n";
    for (const char* benches : {"PaintBench", "CommitBench", "FadeBench", "PopupBench"}) {
        const Times usual = run(benches, "1080p.json");
        const Times dense = run(benches, "2160p.json");
        for (auto time = usual.begin(); time != usual.end(); ++time)
            table += "| " + time.key() + " | " + QByteArray::number(time.value(), 'f', 4) + " | "
                + QByteArray::number(dense.value(time.key()), 'f', 4) + " |\n";
    }
    return table;
}

}

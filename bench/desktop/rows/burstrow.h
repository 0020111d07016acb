#pragma once

#include "bench/desktop/row.h"

class QPoint;

namespace Bench {

/// What becomes of a fast stroke: how much of it is drawn, and how long after its end.
class BurstRow : public Row {
public:
    enum class Condition {
        Quiet,
        Loaded, ///< all processors are busy with other programs
        Stopped, ///< the program is stopped during the burst and goes on after it
    };

    explicit BurstRow(Condition wanted)
        : condition(wanted)
    {
    }

    [[nodiscard]] QByteArray name() const override;
    [[nodiscard]] QByteArray method() const override;
    [[nodiscard]] QList<QSize> screens() const override;
    [[nodiscard]] int runs(Annotator::Role role) const override;
    void measure(Trial& trial, Record& record) const override;

private:
    [[nodiscard]] double drawWithCatchUp(Trial& trial, const QList<QPoint>& path, int rate) const;
    void measureBurst(Trial& trial, Record& record, QPoint centre, int rate) const;

    const Condition condition;
};

}

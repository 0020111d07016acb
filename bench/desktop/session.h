#pragma once

#include "bench/desktop/annotators/annotator.h"

#include <QSize>

#include <memory>
#include <vector>

struct Desktop;

namespace Bench {

class Results;
class Row;
struct Subject;

/// Measures all installed programs in turns, so that what disturbs the machine for a while disturbs
/// all of them.
class Session {
public:
    enum class Programs { All, WithoutPeers };

    Session(Results& destination, Programs measured);

    /// Takes down a row for all programs on each of its screens.
    void measure(const Row& row);

private:
    void measureOn(QSize screen, const Row& row);
    void warmUp(const Row& row, const Desktop& desktop) const;
    void measureOnce(const Row& row, const Annotator& annotator, const Desktop& desktop,
                     const Subject& subject);

    Results& results;
    std::vector<std::unique_ptr<Annotator>> annotators;
};

}

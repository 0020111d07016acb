#pragma once

#include <QObject>

#include <functional>

namespace VcAction::Frame {

/// Paces the repaints of a window that follows the pointer: the first in a turn of the event loop
/// at once, the others together when the turn ends. What is repainted is the window's.
class RepaintPace : public QObject {
    Q_OBJECT

public:
    /// @param repaintChanges  repaints what has changed since the last time
    /// @param prepareNext  called when a turn with repaints has ended, for what would hold up the
    ///                     next one
    RepaintPace(std::function<void()> repaintChanges, std::function<void()> prepareNext,
                QObject* parent);

    /// Repaints now or when the turn ends.
    void ask();
    /// To be told when all has been repainted for another reason.
    void allRepainted();

private slots:
    void endTurn();

private:
    enum class Turn { Fresh, Painted, Behind };

    std::function<void()> repaint;
    std::function<void()> prepare;
    Turn turn = Turn::Fresh;
};

}

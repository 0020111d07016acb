#include "action/frame/repaintpace.h"

#include <QAbstractEventDispatcher>

#include <utility>

namespace VcAction::Frame {

RepaintPace::RepaintPace(std::function<void()> repaintChanges, std::function<void()> prepareNext,
                         QObject* parent)
    : QObject(parent)
    , repaint(std::move(repaintChanges))
    , prepare(std::move(prepareNext))
{
    // Of the dispatchers one tells the end of its turn by the first, another by the second.
    connect(QAbstractEventDispatcher::instance(), SIGNAL(awake()), this, SLOT(endTurn()));
    connect(QAbstractEventDispatcher::instance(), SIGNAL(aboutToBlock()), this, SLOT(endTurn()));
}

void RepaintPace::ask()
{
    if (turn != Turn::Fresh) {
        turn = Turn::Behind;
        return;
    }
    turn = Turn::Painted;
    repaint();
}

void RepaintPace::allRepainted()
{
    if (turn == Turn::Behind)
        turn = Turn::Painted;
}

void RepaintPace::endTurn()
{
    if (turn == Turn::Behind)
        repaint();
    if (std::exchange(turn, Turn::Fresh) != Turn::Fresh)
        prepare();
}

}

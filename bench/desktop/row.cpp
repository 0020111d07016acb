#include "bench/desktop/row.h"

namespace Bench {

int Row::runs(Annotator::Role role) const
{
    return role == Annotator::Role::EmptyWindow ? 0 : UsualRuns;
}

int Row::timesOftener(Annotator::Role role)
{
    return role == Annotator::Role::Peer ? 1 : 3;
}

int Row::runsWithPeersOnce(Annotator::Role role) const
{
    return role == Annotator::Role::Peer ? 1 : Row::runs(role);
}

int Row::runsOfSubject(Annotator::Role role)
{
    return role == Annotator::Role::Subject ? UsualRuns : 0;
}

}

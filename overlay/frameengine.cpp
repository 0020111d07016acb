#include "overlay/frameengine.h"

namespace Helpers::NQt {

FrameEngine::FrameEngine(TransparentFrame* owner)
    : frame(owner)
{
}

void FrameEngine::setDrawBack(bool wanted)
{
    drawBack = wanted;
}

bool FrameEngine::showBackground(const QWindow& /*window*/, const QRegion& /*region*/)
{
    return false;
}

}

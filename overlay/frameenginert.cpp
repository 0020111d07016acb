#include "overlay/frameenginert.h"

#include "overlay/transparentframe.h"

namespace Helpers::NQt {

FrameEngineRT::FrameEngineRT(TransparentFrame* owner)
    : FrameEngine(owner)
{
    if (frame)
        frame->setAttribute(Qt::WA_TranslucentBackground);
}

void FrameEngineRT::setDrawBack(bool wanted)
{
    FrameEngine::setDrawBack(wanted);
}

void FrameEngineRT::paint(QPaintDevice* /*device*/)
{
    frame->draw(frame);
}

void FrameEngineRT::updateAlpha(const QPixmap* /*mask*/) { }

}

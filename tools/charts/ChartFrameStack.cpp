#include "ChartFrameStack.h"

#include "ChartFrame.h"

#include <utility>

namespace gkBase {

void ChartFrameStack::addFrame(ChartFrame* pqFrame)
{
    m_lpqFrames.append(pqFrame);
    addWidget(pqFrame);
    connect(pqFrame, &ChartFrame::zoomChanged, this, &ChartFrameStack::zoomChanged);
}

ChartFrame* ChartFrameStack::currentFrame() const
{
    return m_lpqFrames.value(currentIndex());
}

void ChartFrameStack::setGridIsOn(bool bOn)
{
    for (ChartFrame* pqFrame : std::as_const(m_lpqFrames))
        pqFrame->setGridIsOn(bOn);
}

void ChartFrameStack::setBlackBackground(bool bBlack)
{
    for (ChartFrame* pqFrame : std::as_const(m_lpqFrames))
        pqFrame->setBlackBackground(bBlack);
}

void ChartFrameStack::setFontSize(double dPointSize)
{
    for (ChartFrame* pqFrame : std::as_const(m_lpqFrames))
        pqFrame->setFontSize(dPointSize);
}

void ChartFrameStack::setZoom(double dZoom)
{
    if (ChartFrame* pqFrame = currentFrame())
        pqFrame->setZoom(dZoom);
}

void ChartFrameStack::setChartEnabled(bool bEnabled)
{
    for (ChartFrame* pqFrame : std::as_const(m_lpqFrames))
        pqFrame->setChartEnabled(bEnabled);
}

} // namespace gkBase

#include "PolarChartFrame.h"

#include "QPolarPlotWidget.h"

#include <QFrame>
#include <QGridLayout>

namespace gkBase {

PolarChartFrame::PolarChartFrame(QPolarPlotWidget* pqCanvas, QWidget* pqParent)
    : CanvasFrame(pqCanvas, pqParent)
{
    // The canvas leaves room around its circle.
    frameLayout()->setContentsMargins(0, 0, 0, 0);
}

void PolarChartFrame::renderTo(QPainter& painter, const QRectF& oTarget) const
{
    canvas()->renderTo(painter, oTarget.toRect());
}

} // namespace gkBase

#include "AxisCopy.h"

#include "QCartesianAxisWidget.h"

namespace gkBase {

std::unique_ptr<QCartesianAxisWidget> axisOfLength(const QCartesianAxisWidget& oAxis, int iLength)
{
    auto pqAxis = std::make_unique<QCartesianAxisWidget>(oAxis.position(), nullptr);
    pqAxis->setFont(oAxis.font());
    pqAxis->setTitle(oAxis.title());
    pqAxis->setDrawTitle(oAxis.drawTitle());
    pqAxis->setLabelOrientation(oAxis.labelOrientation());
    pqAxis->setUnitManager(oAxis.unitManager());
    pqAxis->setInverted(oAxis.isInverted());
    pqAxis->setWholeNumbers(oAxis.wholeNumbers());
    pqAxis->setFixedTicks(oAxis.fixedTicks());
    pqAxis->setRange(oAxis.minValue(), oAxis.maxValue());
    const bool bVertical = oAxis.orientation() == Qt::Vertical;
    pqAxis->resize(bVertical ? 1 : iLength, bVertical ? iLength : 1);
    pqAxis->redraw(); // a hidden widget gets no resize event
    return pqAxis;
}

} // namespace gkBase

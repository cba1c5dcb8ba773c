#pragma once

#include "CanvasFrame.h"
#include "gkBaseToolsExport.h"

namespace gkBase {

class QPolarPlotWidget;

/// The frame of a circular chart. Title, boxes and north arrow belong to the canvas, which draws them on every device.
class GKBASETOOLS_EXPORT PolarChartFrame : public CanvasFrame
{
    Q_OBJECT
public:
    /// The frame becomes the canvas's parent.
    explicit PolarChartFrame(QPolarPlotWidget* pqCanvas, QWidget* pqParent = nullptr);

    void renderTo(QPainter& painter, const QRectF& oTarget) const override;
};

} // namespace gkBase

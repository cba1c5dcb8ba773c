#pragma once

#include "gkBaseToolsExport.h"

#include <QStackedWidget>

namespace gkBase {

class ChartFrame;

/// Several charts of one panel, of which one is seen. Grid, background and font are set on all of them, the zoom on the
/// one that is seen.
class GKBASETOOLS_EXPORT ChartFrameStack : public QStackedWidget
{
    Q_OBJECT
public:
    using QStackedWidget::QStackedWidget;

    /// The stack becomes the frame's parent. The first one is seen.
    void addFrame(ChartFrame* pqFrame);
    ChartFrame* currentFrame() const;

    void setGridIsOn(bool bOn);
    void setBlackBackground(bool bBlack);
    void setFontSize(double dPointSize);
    void setZoom(double dZoom);
    void setChartEnabled(bool bEnabled);

signals:
    /// The user magnified a chart with the wheel.
    void zoomChanged(double dZoom);

private:
    QList<ChartFrame*> m_lpqFrames;
};

} // namespace gkBase

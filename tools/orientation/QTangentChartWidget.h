#pragma once

#include "QStereoChartWidget.h"
#include "TangentFit.h"
#include "gkBaseToolsExport.h"

namespace gkBase {

class QTangentPlotWidget;
class TangentFoldAxisPage;

/// The panel of the tangent diagram: the stereonet panel with a tangent diagram instead of the net, and the fold axis:
/// by hand, by the mouse, or as it fits the planes that count.
///
/// The axis is fitted to the first data set where that holds planes. Planes plot by their dip lines at first, so that
/// those of a cylindrical fold lie on a line.
class GKBASETOOLS_EXPORT QTangentChartWidget : public QStereoChartWidget
{
    Q_OBJECT
public:
    explicit QTangentChartWidget(QWidget* pqParent = nullptr);
    ~QTangentChartWidget() override;

    QTangentPlotWidget* tangentArea() const { return m_pqTangent; }
    /// The axis that fits the records that count; undefined for lines and where the planes mark none.
    TangentFit fit() const;

public slots:
    /// updateStereoChart() by the name of this chart.
    void updateTangentChart() { updateStereoChart(); }
    void updateFoldAxisPlunge(double dPlunge);
    void updateFoldAxisAzimuth(double dAzimuth);
    void slotShowFoldAxisToggled(bool bOn);
    /// Shows the fitted axis.
    void setFoldAxisToFit();
    /// The diagram tells the angle and azimuth that plot at the position; where poles are shown that is the pole of
    /// the plane.
    void updateCursorPosLabel(QPointF oPosition) override;

protected:
    void settingsRestored(const StereoChartSettings& settings) override;
    void resultsUpdated() override;

private:
    void slotFoldAxisMoved(QPointF oAxis);
    void showFit();

    QTangentPlotWidget* m_pqTangent; ///< owned as a child
    TangentFoldAxisPage* m_pqFoldAxisPage;
    bool m_bFitStale = true; ///< the page was not in sight when the results changed
};

} // namespace gkBase

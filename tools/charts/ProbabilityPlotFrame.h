#pragma once

#include "ChartFrame.h"
#include "gkBaseToolsExport.h"

#include <QPointF>

#include <vector>

namespace gkBase {

class MatrixData;
class QProbabilityPlot;

/// The normal probability plot of an attribute with its axes and the results of the fit.
class GKBASETOOLS_EXPORT ProbabilityPlotFrame : public ChartFrame
{
    Q_OBJECT
public:
    /// The frame becomes the canvas's parent.
    explicit ProbabilityPlotFrame(QProbabilityPlot* pqCanvas, QWidget* pqParent = nullptr);

    /// Shows the values of a numeric attribute's records (an empty list: all); null empties the chart. Sorts them.
    void showAttribute(const MatrixData* poAttribute, const std::vector<int>& viRecords);

private:
    void updateCursorText(const QPointF& oPosition);
    void updateRanges();
    void showResults();
    /// A value in display units with its unit.
    QString valueText(double dValue) const;
    QString differenceText(double dDifference) const;

    QProbabilityPlot* m_pqPlot;
    boost::shared_ptr<UnitManager> m_poUnit; ///< of the attribute; null without one
};

} // namespace gkBase

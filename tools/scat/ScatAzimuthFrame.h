#pragma once

#include "ChartFrame.h"
#include "MatrixData.h"
#include "gkBaseToolsExport.h"

#include <memory>

namespace gkBase {

class QHistogramItemModel;
class QHistogramPlotWidget;
class QRelationshipItemModel;

/// Gives an axis of 0 to 360 degrees ticks at the quarters, as azimuths are read.
void showAzimuthTicks(QCartesianAxisWidget& axis);

/// A histogram of dip azimuths in classes of 10 degrees, with marks at T and L.
class GKBASETOOLS_EXPORT ScatAzimuthFrame : public ChartFrame
{
    Q_OBJECT
public:
    explicit ScatAzimuthFrame(QWidget* pqParent = nullptr);
    ~ScatAzimuthFrame() override;

    QHistogramPlotWidget* plot() const;
    /// Counts the azimuths, y() in degrees, of the records that count as selected. Linear in the number of records.
    void countAzimuths(const QRelationshipItemModel& model);

private:
    std::unique_ptr<MatrixData> m_poAzimuths; ///< in degrees, one per record
    quint64 m_iPointsRevision = 0;            ///< of the points that m_poAzimuths is a copy of
    QHistogramItemModel* m_pModel;
};

} // namespace gkBase

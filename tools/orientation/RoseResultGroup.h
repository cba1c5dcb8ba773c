#pragma once

#include "CircularStatistics.h"
#include "RoseBins.h"
#include "RoseChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QGroupBox>

class QCheckBox;
class QLabel;

namespace gkBase {

/// The numbers of a rose: points, mean direction, mean resultant length and, for axes, both of the mean axis. The check
/// boxes show them in the chart.
class GKBASETOOLS_EXPORT RoseResultGroup : public QGroupBox
{
    Q_OBJECT
public:
    explicit RoseResultGroup(QWidget* pqParent = nullptr);

    void showResults(const RoseBins& bins, const CircularMeans& means, bool bUnidirectional);

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(RoseChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const RoseChartSettings& settings);

signals:
    void looksChanged();

private:
    void showMean(const CircularMean& mean, QLabel* pqDirection, QLabel* pqLength) const;

    QCheckBox* m_pqMeanDirectionCheckBox;
    QCheckBox* m_pqMeanLengthCheckBox;
    QLabel* m_pqMeanDirectionLabel;
    QLabel* m_pqMeanLengthLabel;
    QLabel* m_pqAxisDirectionLabel;
    QLabel* m_pqAxisLengthLabel;
    QLabel* m_pqNumberOfPointsLabel;
    QLabel* m_pqMissingLabel;
    QLabel* m_pqUncoveredLabel;
};

} // namespace gkBase

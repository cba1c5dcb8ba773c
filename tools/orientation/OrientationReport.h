#pragma once

#include "BiasWeights.h"
#include "ClusterShape.h"
#include "OrientationStatistics.h"
#include "OrientationText.h"
#include "Rotation.h"
#include "gkBaseToolsExport.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace gkBase {

class QDataStatisticSummary;

/// What a report about orientation records tells.
struct OrientationReportData
{
    QString m_sName;               ///< of the data set
    bool m_bPlanes = true;         ///< else lines
    bool m_bSelectionOnly = false; ///< some of the records
    /// Of planes those of their poles and of their dip lines, of lines one.
    std::vector<OrientationStatistics> m_vStatistics;
    QString m_sNoStatistics; ///< why there are none; empty where there are
    bool m_bWeighted = false;
    ScanLine m_oScanLine;               ///< of the weights
    std::vector<Rotation> m_vRotations; ///< of the records, the first one first
    std::vector<ClusterShape> m_vClusters;
    OrientationConvention m_eConvention = OrientationConvention::DipAzimuth;
};

/// Tables of labels and values.
struct OrientationReportTable
{
    struct Row
    {
        QString m_sLabel;
        QString m_sValue;
    };
    QString m_sTitle;
    std::vector<Row> m_vRows;
};

/// The tables of a report: what was observed and how the records were treated, the statistics, and the shapes of the
/// clusters.
GKBASETOOLS_EXPORT std::vector<OrientationReportTable> orientationReport(const OrientationReportData& data);

/// Shows the report.
GKBASETOOLS_EXPORT void showOrientationReport(QDataStatisticSummary& summary, const OrientationReportData& data);

} // namespace gkBase

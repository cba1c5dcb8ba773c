#include "OrientationReport.h"

#include "MissingValue.h"
#include "OrientationStatisticsRows.h"
#include "QDataStatisticSummary.h"

#include <QCoreApplication>

#include <utility>

namespace gkBase {

namespace {

constexpr int g_iAngleDecimals = 2;
constexpr int g_iShapeDecimals = 4;

class Report
{
    Q_DECLARE_TR_FUNCTIONS(gkBase::OrientationReport)

public:
    explicit Report(const OrientationReportData& data)
        : m_data(data)
    {
    }

    std::vector<OrientationReportTable> tables()
    {
        addObservations();
        for (const OrientationStatistics& oStatistics : m_data.m_vStatistics)
            addStatistics(oStatistics);
        addClusters();
        return std::move(m_vTables);
    }

private:
    void addObservations();
    void addStatistics(const OrientationStatistics& oStatistics);
    void addClusters();
    void add(const QString& sLabel, const QString& sValue) { m_vTables.back().m_vRows.push_back({sLabel, sValue}); }
    QString rotationText(const Rotation& oRotation) const;
    QString weightText() const;

    const OrientationReportData& m_data;
    std::vector<OrientationReportTable> m_vTables;
};

QString Report::rotationText(const Rotation& oRotation) const
{
    return tr("%1° about the axis %2")
        .arg(angleText(oRotation.angle(), g_iAngleDecimals), lineText(oRotation.axis(), g_iAngleDecimals));
}

QString Report::weightText() const
{
    if (!m_data.m_bWeighted)
        return tr("none: all records count alike");
    const ScanLine& oLine = m_data.m_oScanLine;
    const double dLimit = isMissing(oLine.m_dLimitAngle) ? ScanLine().m_dLimitAngle : oLine.m_dLimitAngle;
    return tr("against the scan line %1, corrected up to %2° between pole and line")
        .arg(lineText({oLine.m_dPlunge, oLine.m_dAzimuth}, g_iAngleDecimals), angleText(dLimit, g_iAngleDecimals));
}

void Report::addObservations()
{
    m_vTables.push_back({tr("Observations"), {}});
    add(tr("Data set"), m_data.m_sName);
    add(tr("Records are"), m_data.m_bPlanes ? tr("planes") : tr("lines"));
    add(tr("Records taken"), m_data.m_bSelectionOnly ? tr("the selected ones") : tr("all"));
    add(tr("Bias weights"), weightText());
    if (m_data.m_vRotations.empty())
        add(tr("Rotation"), tr("none: the records are as they were measured"));
    int iRotation = 0;
    for (const Rotation& oRotation : m_data.m_vRotations)
        add(tr("Rotation %1").arg(++iRotation), rotationText(oRotation));
    if (!m_data.m_sNoStatistics.isEmpty())
        add(tr("Statistics"), tr("none: %1").arg(m_data.m_sNoStatistics));
}

void Report::addStatistics(const OrientationStatistics& oStatistics)
{
    const QString sTitle = orientationStatisticsTitle(oStatistics, m_data.m_bPlanes);
    QString sGroup;
    for (const OrientationStatisticsRow& row :
         orientationStatisticsRows(oStatistics, m_data.m_bWeighted, m_data.m_eConvention)) {
        if (row.m_sGroup != sGroup)
            m_vTables.push_back({tr("%1: %2").arg(sTitle, row.m_sGroup), {}});
        sGroup = row.m_sGroup;
        // A report has no tool tips.
        add(row.m_sLabel, row.m_sReason.isEmpty() ? row.m_sValue : row.m_sValue + QLatin1Char('\n') + row.m_sReason);
    }
}

void Report::addClusters()
{
    if (m_data.m_vClusters.empty())
        return;
    m_vTables.push_back({tr("Shapes of Clusters (Woodcock)"), {}});
    for (const ClusterShape& shape : m_data.m_vClusters) {
        const ShapeTexts texts = shapeTexts(shape, g_iShapeDecimals);
        QString sValue = tr("ln(S1/S2) = %1, ln(S2/S3) = %2, K = %3, C = %4")
                             .arg(texts.m_sLnS1S2, texts.m_sLnS2S3, texts.m_sK, texts.m_sC);
        if (!texts.m_sReason.isEmpty())
            sValue += QLatin1Char('\n') + texts.m_sReason;
        add(tr("%1 (n = %2)").arg(shape.m_sName, QString::number(shape.m_iCount)), sValue);
    }
}

} // namespace

std::vector<OrientationReportTable> orientationReport(const OrientationReportData& data)
{
    return Report(data).tables();
}

void showOrientationReport(QDataStatisticSummary& summary, const OrientationReportData& data)
{
    summary.newDocument(data.m_sName);
    for (const OrientationReportTable& table : orientationReport(data)) {
        summary.newTable(table.m_sTitle);
        for (const OrientationReportTable::Row& row : table.m_vRows)
            summary.appendRow(row.m_sLabel, row.m_sValue);
        summary.endTable();
    }
    summary.updateDocument();
}

} // namespace gkBase

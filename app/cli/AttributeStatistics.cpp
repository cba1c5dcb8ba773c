#include "AttributeStatistics.h"

#include "CommandText.h"
#include "ReportText.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MissingValue.h>
#include <gkBase/UnitManager.h>

#include <QJsonArray>
#include <QJsonObject>

#include <memory>

namespace gkHost {

namespace {

std::unique_ptr<gkBase::MatrixData> frequencies(const gkBase::MatrixData& attribute, double& dInterval,
                                                gkBase::MatrixData::HistogramType eType)
{
    return std::unique_ptr<gkBase::MatrixData>(attribute.newFrequencyData(dInterval, eType, {}, nullptr, true));
}

void readPercentiles(AttributeStatistics& statistics, gkBase::MatrixData& cumulative)
{
    cumulative.reduceToAveraged(0, 1);
    statistics.m_dP10 = cumulative.getInterpolationValue(10.0, 0, 1);
    statistics.m_dP50 = cumulative.getInterpolationValue(50.0, 0, 1);
    statistics.m_dP90 = cumulative.getInterpolationValue(90.0, 0, 1);
}

} // namespace

AttributeStatistics attributeStatistics(const gkBase::MatrixData& attribute, double dInterval)
{
    AttributeStatistics statistics;
    statistics.m_sAttribute = attribute.name();
    statistics.m_sUnit = attribute.unitManager()->modelUnit();
    const int iRecords = attribute.recordCount();
    for (int i = 0; i < iRecords; ++i)
        statistics.m_iMissing += gkBase::isMissing(attribute.recordNumber(i));
    statistics.m_iValues = iRecords - statistics.m_iMissing;
    attribute.getMinMax(statistics.m_dMinimum, statistics.m_dMaximum);
    statistics.m_dMean = attribute.mean();
    statistics.m_dStandardDeviation = attribute.standardDeviation();

    const auto poCounts = frequencies(attribute, dInterval, gkBase::MatrixData::Frequency);
    statistics.m_dInterval = dInterval;
    double dSameInterval = dInterval;
    const auto poRelative = frequencies(attribute, dSameInterval, gkBase::MatrixData::RelativeFrequency);
    const auto poCumulative = frequencies(attribute, dSameInterval, gkBase::MatrixData::CumulativeRelativeFrequency);
    for (int i = 0; i < poCounts->recordCount(); ++i)
        statistics.m_vClasses.push_back({poCounts->toDouble(i, 0), poCounts->toDouble(i, 2), poCounts->toDouble(i, 3),
                                         poRelative->toDouble(i, 3), poCumulative->toDouble(i, 3)});
    readPercentiles(statistics, *poCumulative);
    return statistics;
}

QJsonObject AttributeStatistics::toJson() const
{
    QJsonArray classes;
    for (const AttributeClass& oClass : m_vClasses)
        classes.append(QJsonObject{{QStringLiteral("from"), oClass.m_dFrom},
                                   {QStringLiteral("to"), oClass.m_dTo},
                                   {QStringLiteral("count"), oClass.m_dCount},
                                   {QStringLiteral("relative"), oClass.m_dRelative},
                                   {QStringLiteral("cumulative"), oClass.m_dCumulative}});
    return {{QStringLiteral("attribute"), m_sAttribute},
            {QStringLiteral("unit"), m_sUnit},
            {QStringLiteral("n"), m_iValues},
            {QStringLiteral("missing"), m_iMissing},
            {QStringLiteral("min"), numberToJson(m_dMinimum)},
            {QStringLiteral("max"), numberToJson(m_dMaximum)},
            {QStringLiteral("mean"), numberToJson(m_dMean)},
            {QStringLiteral("standardDeviation"), numberToJson(m_dStandardDeviation)},
            {QStringLiteral("p10"), numberToJson(m_dP10)},
            {QStringLiteral("p50"), numberToJson(m_dP50)},
            {QStringLiteral("p90"), numberToJson(m_dP90)},
            {QStringLiteral("interval"), numberToJson(m_dInterval)},
            {QStringLiteral("classes"), classes}};
}

QString AttributeStatistics::toText() const
{
    const QString sUnit = m_sUnit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(m_sUnit);
    ReportText report(m_sAttribute + sUnit);
    report.addLine(text("values"), QString::number(m_iValues));
    report.addLine(text("missing"), QString::number(m_iMissing));
    report.addLine(text("minimum"), shownNumber(m_dMinimum));
    report.addLine(text("maximum"), shownNumber(m_dMaximum));
    report.addLine(text("mean"), shownNumber(m_dMean));
    report.addLine(text("standard deviation"), shownNumber(m_dStandardDeviation));
    report.addLine(text("P10, P50, P90"),
                   QStringLiteral("%1, %2, %3").arg(shownNumber(m_dP10), shownNumber(m_dP50), shownNumber(m_dP90)));
    report.addLine(text("interval"), shownNumber(m_dInterval));
    report.addRow(QStringLiteral("%1 %2 %3 %4 %5")
                      .arg(text("from"), 14)
                      .arg(text("to"), 14)
                      .arg(text("count"), 9)
                      .arg(text("per cent"), 9)
                      .arg(text("cumul."), 9));
    for (const AttributeClass& oClass : m_vClasses)
        report.addRow(QStringLiteral("%1 %2 %3 %4 %5")
                          .arg(shownNumber(oClass.m_dFrom), 14)
                          .arg(shownNumber(oClass.m_dTo), 14)
                          .arg(oClass.m_dCount, 9)
                          .arg(oClass.m_dRelative, 9, 'f', 2)
                          .arg(oClass.m_dCumulative, 9, 'f', 2));
    return report.toString();
}

} // namespace gkHost

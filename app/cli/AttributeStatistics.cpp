#include "AttributeStatistics.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MissingValue.h>
#include <gkBase/UnitManager.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

#include <memory>

namespace gkHost {

namespace {

QJsonValue number(double dValue)
{
    return gkBase::isMissing(dValue) ? QJsonValue(QJsonValue::Null) : QJsonValue(dValue);
}

QString shown(double dValue)
{
    return gkBase::isMissing(dValue) ? QStringLiteral("---") : QString::number(dValue, 'g', 10);
}

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
            {QStringLiteral("min"), number(m_dMinimum)},
            {QStringLiteral("max"), number(m_dMaximum)},
            {QStringLiteral("mean"), number(m_dMean)},
            {QStringLiteral("standardDeviation"), number(m_dStandardDeviation)},
            {QStringLiteral("p10"), number(m_dP10)},
            {QStringLiteral("p50"), number(m_dP50)},
            {QStringLiteral("p90"), number(m_dP90)},
            {QStringLiteral("interval"), number(m_dInterval)},
            {QStringLiteral("classes"), classes}};
}

QString AttributeStatistics::toText() const
{
    const QString sUnit = m_sUnit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(m_sUnit);
    QString sText = m_sAttribute + sUnit + QLatin1Char('\n');
    const auto addLine = [&sText](const QString& sName, const QString& sValue) {
        sText += QStringLiteral("  %1 %2\n").arg(sName, -20).arg(sValue);
    };
    addLine(QStringLiteral("values"), QString::number(m_iValues));
    addLine(QStringLiteral("missing"), QString::number(m_iMissing));
    addLine(QStringLiteral("minimum"), shown(m_dMinimum));
    addLine(QStringLiteral("maximum"), shown(m_dMaximum));
    addLine(QStringLiteral("mean"), shown(m_dMean));
    addLine(QStringLiteral("standard deviation"), shown(m_dStandardDeviation));
    addLine(QStringLiteral("P10, P50, P90"),
            QStringLiteral("%1, %2, %3").arg(shown(m_dP10), shown(m_dP50), shown(m_dP90)));
    addLine(QStringLiteral("interval"), shown(m_dInterval));
    sText += QStringLiteral("  %1 %2 %3 %4 %5\n")
                 .arg(QStringLiteral("from"), 14)
                 .arg(QStringLiteral("to"), 14)
                 .arg(QStringLiteral("count"), 9)
                 .arg(QStringLiteral("per cent"), 9)
                 .arg(QStringLiteral("cumul."), 9);
    for (const AttributeClass& oClass : m_vClasses)
        sText += QStringLiteral("  %1 %2 %3 %4 %5\n")
                     .arg(shown(oClass.m_dFrom), 14)
                     .arg(shown(oClass.m_dTo), 14)
                     .arg(oClass.m_dCount, 9)
                     .arg(oClass.m_dRelative, 9, 'f', 2)
                     .arg(oClass.m_dCumulative, 9, 'f', 2);
    return sText;
}

} // namespace gkHost

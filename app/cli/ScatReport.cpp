#include "ScatReport.h"

#include "CommandText.h"
#include "ReportText.h"
#include "ScatInput.h"

#include <gkBase/ApparentDip.h>
#include <gkBase/OrientationText.h>
#include <gkBase/UnitManager.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace gkHost {

namespace {

constexpr int g_iAngleDecimals = 2;

std::vector<double> apparentDipsTowards(double dDirection, const ScatInput& scat)
{
    std::vector<double> vdDips(scat.m_vdDips.size());
    gkBase::apparentDips(scat.m_vdDips, scat.m_vdAzimuths, dDirection, vdDips);
    return vdDips;
}

/// A member of a JSON object whose members keep their order.
QString member(const QString& sKey, const QJsonValue& value)
{
    // An array is the only document that holds a single value.
    const QByteArray qArray = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QLatin1Char('"') + sKey + QLatin1String("\":") + QString::fromUtf8(qArray.mid(1, qArray.size() - 2));
}

QString shownAngle(double dAngle)
{
    return gkBase::isMissing(dAngle) ? gkBase::undefinedText() : QString::number(dAngle, 'f', g_iAngleDecimals);
}

QString shownRange(const gkBase::SummaryStatistics& oDips)
{
    if (oDips.m_iCount == 0) {
        return gkBase::undefinedText();
    }
    return text("%1 to %2, mean %3").arg(shownAngle(oDips.m_dMin), shownAngle(oDips.m_dMax), shownAngle(oDips.m_dMean));
}

/// A name with the unit of the depths behind it.
QString withUnit(const QString& sName, const gkBase::MatrixData& depth)
{
    const QString sUnit = depth.unitManager() ? depth.unitManager()->modelUnit() : QString();
    return sUnit.isEmpty() ? sName : QStringLiteral("%1 [%2]").arg(sName, sUnit);
}

QString shownDepths(const std::vector<double>& vdDepths)
{
    QStringList lDepths;
    for (const double dDepth : vdDepths) {
        lDepths << QString::number(dDepth, 'f', 2);
    }
    return lDepths.isEmpty() ? text("none") : lDepths.join(QLatin1String(", "));
}

} // namespace

ScatReport scatReport(const ScatInput& scat)
{
    ScatReport report{
        scat, apparentDipsTowards(scat.m_dTransverse, scat), apparentDipsTowards(scat.m_dLongitudinal, scat), {}, {},
        {}};
    report.m_oTransverse = gkBase::rangeAndMean(report.m_vdTransverse);
    report.m_oLongitudinal = gkBase::rangeAndMean(report.m_vdLongitudinal);
    report.m_oEvents = gkBase::transverseDipEvents(scat.m_poDepth->column().numbers(), report.m_vdTransverse);
    return report;
}

QString ScatReport::toJson() const
{
    const auto depths = [](const std::vector<double>& vdDepths) {
        QJsonArray array;
        for (const double dDepth : vdDepths) {
            array.append(dDepth);
        }
        return QJsonValue(array);
    };
    const QStringList lMembers{
        member(QStringLiteral("n"), static_cast<qint64>(m_scat.m_oByTangentLine.m_iCount)),
        member(QStringLiteral("t"), numberToJson(m_scat.m_dTransverse)),
        member(QStringLiteral("l"), numberToJson(m_scat.m_dLongitudinal)),
        member(QStringLiteral("tFromTangent"), numberToJson(m_scat.m_oByTangentLine.m_dTransverse)),
        member(QStringLiteral("tFromRms"), numberToJson(m_scat.m_oByRootMeanSquare.m_dTransverse)),
        member(QStringLiteral("crests"), depths(m_oEvents.m_vdCrests)),
        member(QStringLiteral("inflections"), depths(m_oEvents.m_vdInflections)),
    };
    return QLatin1Char('{') + lMembers.join(QLatin1Char(',')) + QLatin1String("}\n");
}

QString ScatReport::toText() const
{
    ReportText report(text("planes by \"%1\" and \"%2\" along \"%3\"; angles in degrees")
                          .arg(m_scat.m_poDip->name(), m_scat.m_poAzimuth->name(), m_scat.m_poDepth->name()));
    report.addLine(text("records"), QString::number(m_scat.m_oByTangentLine.m_iCount));
    report.addLine(text("missing"), QString::number(m_scat.m_oByTangentLine.m_iMissing));
    report.addHeading(text("Directions"));
    report.addLine(text("T"), shownAngle(m_scat.m_dTransverse));
    report.addLine(text("L"), shownAngle(m_scat.m_dLongitudinal));
    report.addLine(text("T of the tangent line"), shownAngle(m_scat.m_oByTangentLine.m_dTransverse));
    report.addLine(text("T of the largest RMS"), shownAngle(m_scat.m_oByRootMeanSquare.m_dTransverse));
    report.addHeading(text("Apparent dips"));
    report.addLine(text("transverse"), shownRange(m_oTransverse));
    report.addLine(text("longitudinal"), shownRange(m_oLongitudinal));
    if (m_oEvents.m_iCount > 0) {
        const QString sSmoothing =
            m_oEvents.m_iWindow > 1 ? text("smoothed over %1 records").arg(m_oEvents.m_iWindow) : text("not smoothed");
        report.addHeading(text("Curve of the transverse dips, %1; changes below %2 degrees are not plain")
                              .arg(sSmoothing)
                              .arg(m_oEvents.m_dLeastChange, 0, 'f', 1));
        report.addLine(withUnit(text("crests"), *m_scat.m_poDepth), shownDepths(m_oEvents.m_vdCrests));
        report.addLine(withUnit(text("inflections"), *m_scat.m_poDepth), shownDepths(m_oEvents.m_vdInflections));
    }
    return report.toString();
}

} // namespace gkHost

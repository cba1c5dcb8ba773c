#include "OrientationReport.h"

#include "CommandText.h"
#include "OrientationInput.h"
#include "ReportText.h"

#include <gkBase/MatrixData.h>
#include <gkBase/MissingValue.h>
#include <gkBase/OrientationStatisticsRows.h>

#include <QJsonArray>

namespace gkHost {

namespace {

QJsonValue lineToJson(const gkBase::LineOrientation& oLine)
{
    if (gkBase::isMissing(oLine.m_dPlunge)) {
        return QJsonValue::Null;
    }
    return QJsonObject{{QStringLiteral("plunge"), oLine.m_dPlunge}, {QStringLiteral("azimuth"), oLine.m_dAzimuth}};
}

QJsonValue planeToJson(const gkBase::PlaneOrientation& oPlane, const gkBase::LineOrientation& oPole)
{
    if (gkBase::isMissing(oPlane.m_dDip)) {
        return QJsonValue::Null;
    }
    return QJsonObject{
        {QStringLiteral("plane"),
         QJsonObject{{QStringLiteral("dip"), oPlane.m_dDip}, {QStringLiteral("azimuth"), oPlane.m_dDipAzimuth}}},
        {QStringLiteral("pole"), lineToJson(oPole)},
    };
}

/// A result of planes as plane and pole, one of lines as line.
QJsonValue resultToJson(gkBase::OrientationType eType, const gkBase::PlaneOrientation& oPlane,
                        const gkBase::LineOrientation& oLine)
{
    if (eType == gkBase::OrientationType::Planes) {
        return planeToJson(oPlane, oLine);
    }
    const QJsonValue line = lineToJson(oLine);
    return line.isNull() ? line : QJsonValue(QJsonObject{{QStringLiteral("line"), line}});
}

QJsonValue kappaToJson(const gkBase::FisherStatistics& oFisher)
{
    if (oFisher.m_iCount < 2) { // one record has no scatter to measure
        return QJsonValue::Null;
    }
    return oFisher.m_bKappaUnbounded ? QJsonValue(QStringLiteral("unbounded")) : numberToJson(oFisher.m_dKappa);
}

QJsonValue vectorToJson(const gdfVertex& oVector)
{
    return QJsonArray{oVector.x(), oVector.y(), oVector.z()};
}

/// A row of the statistics as a line: the value, and why there is none.
void addRow(ReportText& report, const gkBase::OrientationStatisticsRow& row)
{
    QString sValue = row.m_sValue;
    sValue.replace(QLatin1Char('\n'), QLatin1String(", "));
    if (row.m_bWarning) {
        report.addNote(sValue);
        return;
    }
    report.addLine(row.m_sLabel,
                   row.m_sReason.isEmpty() ? sValue : QStringLiteral("%1  (%2)").arg(sValue, row.m_sReason));
}

} // namespace

OrientationReport orientationReport(const OrientationInput& orientations)
{
    return {orientations.m_poAngle->name(), orientations.m_poAzimuth->name(),
            gkBase::orientationStatistics(orientations.m_eType, orientations.m_vdAngles, orientations.m_vdAzimuths)};
}

QJsonObject OrientationReport::toJson() const
{
    const gkBase::FisherStatistics& oFisher = m_oStatistics.m_oFisher;
    const gkBase::PrincipalAxes& oAxes = m_oStatistics.m_oAxes;
    const gkBase::OrientationType eType = m_oStatistics.m_eType;
    const bool bAny = oFisher.m_iCount > 0;
    const auto ifAny = [bAny](const QJsonValue& value) { return bAny ? value : QJsonValue(QJsonValue::Null); };
    const auto ifSettled = [&oAxes](int iAxis, const QJsonValue& value) {
        return gkBase::isAxisSettled(oAxes, iAxis) ? value : QJsonValue(QJsonValue::Null);
    };
    QJsonArray values;
    QJsonArray vectors;
    for (std::size_t i = 0; i < oAxes.m_adValues.size(); ++i) {
        values.append(oAxes.m_adValues[i]);
        vectors.append(ifSettled(static_cast<int>(i), lineToJson(oAxes.m_aoLines[i])));
    }
    const auto axis = [&](int iAxis) {
        const auto i = static_cast<std::size_t>(iAxis);
        return ifSettled(iAxis, resultToJson(eType, oAxes.m_aoPlanes[i], oAxes.m_aoLines[i]));
    };
    return {
        {QStringLiteral("n"), static_cast<qint64>(m_oStatistics.m_oSums.m_iCount)},
        {QStringLiteral("missing"), static_cast<qint64>(m_oStatistics.m_oSums.m_iMissing)},
        {QStringLiteral("resultant"), ifAny(vectorToJson(m_oStatistics.m_oSums.m_oResultant))},
        {QStringLiteral("resultantLength"), numberToJson(oFisher.m_dResultantLength)},
        {QStringLiteral("meanResultantLength"), numberToJson(oFisher.m_dMeanResultantLength)},
        {QStringLiteral("sphericalVariance"), numberToJson(oFisher.m_dSphericalVariance)},
        {QStringLiteral("kappa"), kappaToJson(oFisher)},
        {QStringLiteral("alpha95"), numberToJson(oFisher.m_dAlpha95)},
        {QStringLiteral("eigenvalues"), ifAny(values)},
        {QStringLiteral("eigenvectors"), ifAny(vectors)},
        {QStringLiteral("lnS1S2"), numberToJson(m_oStatistics.m_oWoodcock.m_dLnS1S2)},
        {QStringLiteral("lnS2S3"), numberToJson(m_oStatistics.m_oWoodcock.m_dLnS2S3)},
        {QStringLiteral("K"), numberToJson(m_oStatistics.m_oWoodcock.m_dK)},
        {QStringLiteral("C"), numberToJson(m_oStatistics.m_oWoodcock.m_dC)},
        {QStringLiteral("classification"), ifAny(QString::fromStdString(m_oStatistics.m_oShape.m_sText))},
        {QStringLiteral("unimodal"), ifAny(m_oStatistics.m_oShape.m_bUnimodal)},
        {QStringLiteral("meanResultant"), resultToJson(eType, oFisher.m_oMeanPlane, oFisher.m_oMeanLine)},
        {QStringLiteral("meanPrincipal"), axis(2)},
        {QStringLiteral("girdle"), ifSettled(0, planeToJson(oAxes.girdle(), oAxes.foldAxis()))},
        {QStringLiteral("suggestedSection"),
         ifSettled(1, planeToJson(m_oStatistics.m_oSectionPlane, m_oStatistics.m_oSectionPole))},
        {QStringLiteral("T"), axis(1)},
        {QStringLiteral("L"), axis(0)},
    };
}

QString OrientationReport::toText() const
{
    const bool bPlanes = m_oStatistics.m_eType == gkBase::OrientationType::Planes;
    ReportText report((bPlanes ? text("planes by \"%1\" and \"%2\"; angles in degrees")
                               : text("lines by \"%1\" and \"%2\"; angles in degrees"))
                          .arg(m_sAngle, m_sAzimuth));
    if (bPlanes && m_sAngle.contains(QLatin1String("plunge"), Qt::CaseInsensitive)) {
        report.addNote(text("\"%1\" reads like the plunge of lines: --lines takes it so").arg(m_sAngle));
    }
    if (const std::size_t iOutOfRange = m_oStatistics.m_oSums.m_iOutOfRange; iOutOfRange > 0) {
        report.addNote((bPlanes ? text("%1 dips are not from 0 to 90 and count as overturned")
                                : text("%1 plunges are not from -90 to 90 and count as overturned"))
                           .arg(iOutOfRange));
    }
    QString sGroup;
    for (const gkBase::OrientationStatisticsRow& row :
         gkBase::orientationStatisticsRows(m_oStatistics, false, gkBase::OrientationConvention::DipAzimuth)) {
        if (row.m_sGroup != sGroup) {
            report.addHeading(row.m_sGroup);
            sGroup = row.m_sGroup;
        }
        addRow(report, row);
    }
    return report.toString();
}

} // namespace gkHost

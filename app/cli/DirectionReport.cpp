#include "DirectionReport.h"

#include "CommandText.h"
#include "ReportText.h"

#include <gkBase/OrientationText.h>

#include <QJsonArray>

namespace gkHost {

DirectionReport directionReport(const QString& sName, const std::vector<double>& vdAzimuths, int iSectorSize,
                                bool bAxial)
{
    gkBase::RoseSettings settings;
    settings.m_dSectorSize = iSectorSize;
    settings.m_bBidirectional = bAxial;
    return {sName, bAxial, bAxial ? gkBase::axialMean(vdAzimuths) : gkBase::circularMean(vdAzimuths),
            gkBase::roseBins(vdAzimuths, settings)};
}

QJsonObject DirectionReport::toJson() const
{
    QJsonArray sectors;
    for (const double dCount : m_oBins.m_vdCounts) {
        sectors.append(dCount);
    }
    const bool bAny = m_oMean.m_iCount > 0;
    return {{QStringLiteral("n"), static_cast<qint64>(m_oMean.m_iCount)},
            {QStringLiteral("meanDirection"), numberToJson(m_oMean.m_dDirection)},
            {QStringLiteral("meanResultantLength"),
             bAny ? QJsonValue(m_oMean.m_dResultantLength) : QJsonValue(QJsonValue::Null)},
            {QStringLiteral("sectors"), sectors}};
}

QString DirectionReport::toText() const
{
    ReportText report((m_bAxial ? text("axes \"%1\", in degrees; each counts at its azimuth and at the opposite one")
                                : text("directions \"%1\", in degrees"))
                          .arg(m_sDirection));
    report.addLine(text("records"), QString::number(m_oBins.m_iRecords));
    report.addLine(text("missing"), QString::number(m_oBins.m_iMissing));
    report.addLine(m_bAxial ? text("mean axis") : text("mean direction"), shownNumber(m_oMean.m_dDirection));
    report.addLine(text("mean length, 0 to 1"),
                   m_oMean.m_iCount > 0 ? shownNumber(m_oMean.m_dResultantLength) : gkBase::undefinedText());
    report.addLine(text("sector size"), QString::number(m_oBins.m_dSectorSize));
    report.addRow(QStringLiteral("%1 %2 %3 %4")
                      .arg(text("from"), 6)
                      .arg(text("to"), 6)
                      .arg(text("count"), 9)
                      .arg(text("per cent"), 9));
    const auto addRow = [&](const QString& sFrom, const QString& sTo, double dCount) {
        report.addRow(QStringLiteral("%1 %2 %3 %4")
                          .arg(sFrom, 6)
                          .arg(sTo, 6)
                          .arg(dCount, 9, 'f', 0)
                          .arg(m_oBins.percent(dCount), 9, 'f', 2));
    };
    for (int i = 0; i < m_oBins.sectors(); ++i) {
        addRow(QString::number(m_oBins.sectorStart(i)), QString::number(m_oBins.sectorStart(i + 1)),
               m_oBins.m_vdCounts[static_cast<std::size_t>(i)]);
    }
    const double dCovered = m_oBins.sectorStart(m_oBins.sectors());
    if (dCovered < 360.0) {
        addRow(QString::number(dCovered), QStringLiteral("360"), m_oBins.m_dUncoveredWeight);
        report.addNote(
            text("%1 degrees do not divide the circle: the last row belongs to no sector").arg(m_oBins.m_dSectorSize));
    }
    if (m_bAxial) {
        report.addNote(text("per cent of %1 records, both ends").arg(m_oBins.m_iRecords));
    }
    return report.toString();
}

} // namespace gkHost

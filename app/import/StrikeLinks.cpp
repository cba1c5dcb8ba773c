#include "StrikeLinks.h"

#include <QCoreApplication>

#include <cmath>

namespace gkHost {

namespace {

constexpr double g_dTolerance = 0.01; // degrees

QString tr(const char* pcText)
{
    return QCoreApplication::translate("OrientationRecognizer", pcText);
}

const ImportColumn& columnAt(const ImportTable& table, int iColumn)
{
    return table.m_vColumns[static_cast<std::size_t>(iColumn)];
}

bool agrees(double dStrike, double dAzimuth)
{
    return std::abs(std::remainder(dAzimuth - 90 - dStrike, 360)) <= g_dTolerance;
}

/// The first row in which the strike is not that of the azimuth; the number of rows when there is none.
int firstDisagreement(const ImportColumn& strike, const ImportColumn& azimuth)
{
    const gkBase::MatrixColumn& oStrikes = strike.m_oValues;
    const gkBase::MatrixColumn& oAzimuths = azimuth.m_oValues;
    int iRow = 0;
    for (; iRow < oStrikes.size(); ++iRow) {
        const bool bEmpty = oStrikes.isMissing(iRow);
        if (bEmpty != oAzimuths.isMissing(iRow) ||
            (!bEmpty && !agrees(oStrikes.number(iRow), oAzimuths.number(iRow)))) {
            break;
        }
    }
    return iRow;
}

bool hasValues(const ImportColumn& column)
{
    for (int iRow = 0; iRow < column.m_oValues.size(); ++iRow) {
        if (!column.m_oValues.isMissing(iRow)) {
            return true;
        }
    }
    return false;
}

void linkOne(ImportTable& table, int iStrike, const std::vector<int>& viAzimuths, ImportReport& report)
{
    ImportColumn& strike = table.m_vColumns[static_cast<std::size_t>(iStrike)];
    for (const int iAzimuth : viAzimuths) {
        const ImportColumn& azimuth = columnAt(table, iAzimuth);
        if (firstDisagreement(strike, azimuth) == strike.m_oValues.size()) {
            report.addAssumption(tr("Linked strike"),
                                 tr("\"%1\" is \"%2\" - 90 in every row and follows it from now on")
                                     .arg(strike.m_sName, azimuth.m_sName));
            strike.m_iStrikeOf = iAzimuth;
            strike.m_oValues = gkBase::MatrixColumn(QMetaType::Double);
            return;
        }
    }
    const ImportColumn& azimuth = columnAt(table, viAzimuths.front());
    report.addRemark(table.m_oLines.line(firstDisagreement(strike, azimuth)),
                     tr("\"%1\" is not \"%2\" - 90 here; both are kept as they are and not linked.")
                         .arg(strike.m_sName, azimuth.m_sName));
}

} // namespace

void linkAgreeingStrikes(ImportTable& table, const std::vector<int>& viStrikes, const std::vector<int>& viAzimuths,
                         ImportReport& report)
{
    if (viAzimuths.empty()) {
        return;
    }
    for (const int iStrike : viStrikes) {
        if (hasValues(columnAt(table, iStrike))) {
            linkOne(table, iStrike, viAzimuths, report);
        }
    }
}

} // namespace gkHost

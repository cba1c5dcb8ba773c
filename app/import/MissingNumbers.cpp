#include "MissingNumbers.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>

namespace gkHost {

namespace {

constexpr std::array g_vdUsualMarks = {-999.0,   -999.25,   -999.99,  -9999.0,  -9999.25, -9999.99,
                                       -99999.0, -99999.99, -32767.0, -32768.0, -1.0e30};
constexpr double g_dHighestMark = -999.0;
using MarkCounts = std::array<qint64, g_vdUsualMarks.size()>;

QString tr(const char* pcText)
{
    return QCoreApplication::translate("MissingNumbers", pcText);
}

MarkCounts countMarks(const std::vector<double>& vdValues)
{
    MarkCounts viCounts{};
    for (const double dValue : vdValues) {
        if (dValue <= g_dHighestMark) {
            const auto it = std::find(g_vdUsualMarks.begin(), g_vdUsualMarks.end(), dValue);
            if (it != g_vdUsualMarks.end()) {
                ++viCounts[static_cast<std::size_t>(it - g_vdUsualMarks.begin())];
            }
        }
    }
    return viCounts;
}

bool isUsualMark(double dValue)
{
    return std::find(g_vdUsualMarks.begin(), g_vdUsualMarks.end(), dValue) != g_vdUsualMarks.end();
}

/// True when the mark stands apart from the values of the column; other usual marks do not count as values.
bool standsApart(const std::vector<double>& vdValues, double dMark)
{
    double dMin = std::numeric_limits<double>::infinity();
    double dMax = -dMin;
    for (const double dValue : vdValues) {
        if (std::isfinite(dValue) && !(dValue <= g_dHighestMark && isUsualMark(dValue))) {
            dMin = std::min(dMin, dValue);
            dMax = std::max(dMax, dValue);
        }
    }
    const double dGap = dMin - dMark;
    return dMin > dMax || dMin >= 0 || dGap > std::max(0.5 * (dMax - dMin), 0.25 * std::abs(dMark));
}

qint64 emptyNumber(std::vector<double>& vdValues, double dMark)
{
    qint64 iEmptied = 0;
    for (double& dValue : vdValues) {
        if (dValue == dMark) {
            dValue = std::numeric_limits<double>::quiet_NaN();
            ++iEmptied;
        }
    }
    return iEmptied;
}

void reportEmptied(double dMark, const QString& sName, qint64 iCount, ImportReport& report)
{
    report.addAssumption(tr("Missing value"),
                         tr("%1 in column \"%2\" (%3 cells)").arg(QString::number(dMark, 'g', 17), sName).arg(iCount));
}

} // namespace

void emptyMissingNumbers(const std::vector<std::vector<double>*>& vpColumns, const QStringList& lNames,
                         const std::vector<double>& vdDeclared, bool bDetect, ImportReport& report)
{
    for (std::size_t i = 0; i < vpColumns.size(); ++i) {
        for (const double dMark : vdDeclared) {
            const qint64 iEmptied = vpColumns[i] ? emptyNumber(*vpColumns[i], dMark) : 0;
            if (iEmptied > 0) {
                reportEmptied(dMark, lNames[static_cast<int>(i)], iEmptied, report);
            }
        }
    }
    if (!bDetect) {
        return;
    }
    std::vector<MarkCounts> vCounts(vpColumns.size(), MarkCounts{});
    MarkCounts viTotals{};
    for (std::size_t i = 0; i < vpColumns.size(); ++i) {
        if (vpColumns[i]) {
            vCounts[i] = countMarks(*vpColumns[i]);
            std::transform(viTotals.begin(), viTotals.end(), vCounts[i].begin(), viTotals.begin(), std::plus<>());
        }
    }
    for (std::size_t i = 0; i < vpColumns.size(); ++i) {
        for (std::size_t iMark = 0; iMark < g_vdUsualMarks.size(); ++iMark) {
            const double dMark = g_vdUsualMarks[iMark];
            if (vCounts[i][iMark] == 0) {
                continue;
            }
            const QString& sName = lNames[static_cast<int>(i)];
            if (viTotals[iMark] > 1 && standsApart(*vpColumns[i], dMark)) {
                reportEmptied(dMark, sName, emptyNumber(*vpColumns[i], dMark), report);
            } else {
                report.addRemark(
                    0, tr("%1 in column \"%2\" is kept as a value.").arg(QString::number(dMark, 'g', 17), sName));
            }
        }
    }
}

} // namespace gkHost

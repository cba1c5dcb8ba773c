#include "ColumnNumbers.h"
#include "FrequencyClasses.h"
#include "MatrixData.h"
#include "RoseBins.h"
#include "SummaryStatistics.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>

namespace gkBase {

namespace {

using Counts = std::vector<std::size_t>;

/// Distinct values of an attribute beyond which it no longer divides anything into classes that a chart could show.
constexpr int g_iMostGroups = 256;
constexpr int g_iColorBands = 19;

/// The classes by which another attribute splits the counts.
struct Groups
{
    std::vector<int> m_viIdOfRecord; ///< 1 … count(); 0 for a record without a value
    QMap<int, QVariant> m_names;

    /// Ids above 0.
    int count() const { return m_names.isEmpty() ? 0 : std::max(0, m_names.lastKey()); }
    int idOf(std::size_t iRecord) const { return iRecord < m_viIdOfRecord.size() ? m_viIdOfRecord[iRecord] : 0; }
};

bool hasManyValues(const ColumnNumbers& oNumbers)
{
    std::set<double> distinct;
    for (const double dValue : oNumbers.cells()) {
        if (!isMissing(dValue)) {
            distinct.insert(dValue);
        }
        if (static_cast<int>(distinct.size()) > g_iMostGroups) {
            return true;
        }
    }
    return false;
}

/// Colours and distinct values are groups of their own; an attribute of very many numbers is cut into bands, one of
/// very many texts or colours (comments, photographs) makes no groups.
Groups groupsOf(const MatrixData* poAttribute)
{
    Groups oGroups;
    if (!poAttribute) {
        return oGroups;
    }
    QMap<int, QColor> colors;
    const QMetaType::Type eType = poAttribute->column(0).type();
    const bool bNumeric = eType == QMetaType::Double || eType == QMetaType::Int;
    if (eType == QMetaType::QColor || (bNumeric && hasManyValues(ColumnNumbers(poAttribute->column(0))))) {
        double dMin = 0.0;
        double dMax = 0.0;
        poAttribute->getMinMax(dMin, dMax);
        poAttribute->createColorMapSymbolIDs(oGroups.m_viIdOfRecord, oGroups.m_names, colors, dMin, dMax,
                                             (dMax - dMin) / g_iColorBands, false);
    } else {
        poAttribute->createSymbolIDs(oGroups.m_viIdOfRecord, oGroups.m_names, colors);
    }
    return oGroups.count() <= g_iMostGroups ? oGroups : Groups();
}

/// The counts as the chart type wants them; iTotal is what 100 per cent mean.
std::vector<double> heights(const Counts& viCounts, std::size_t iTotal, MatrixData::HistogramType eType)
{
    std::vector<double> vdHeights;
    vdHeights.reserve(viCounts.size());
    std::size_t iSum = 0;
    for (const std::size_t iCount : viCounts) {
        iSum = eType == MatrixData::CumulativeRelativeFrequency ? iSum + iCount : iCount;
        const double dCount = static_cast<double>(iSum);
        const bool bPercent = eType != MatrixData::Frequency;
        vdHeights.push_back(bPercent ? (iTotal > 0 ? 100.0 * dCount / static_cast<double>(iTotal) : 0.0) : dCount);
    }
    return vdHeights;
}

std::size_t sum(const Counts& viCounts)
{
    std::size_t iSum = 0;
    for (const std::size_t iCount : viCounts) {
        iSum += iCount;
    }
    return iSum;
}

/// Counts per group (index id − 1) and class. classesOf(value, count) calls count(class) for each class of a value.
template <typename ClassesOf>
std::vector<Counts> countGroups(const RecordValues& oValues, const Groups& oGroups, int iClasses, ClassesOf&& classesOf)
{
    std::vector<Counts> vviCounts(static_cast<std::size_t>(oGroups.count()),
                                  Counts(static_cast<std::size_t>(iClasses), 0));
    if (vviCounts.empty()) {
        return vviCounts;
    }
    oValues.forEachRecord([&](std::size_t iRecord, double dValue) {
        const int iId = oGroups.idOf(iRecord);
        if (iId > 0 && iId <= oGroups.count()) {
            Counts& viCounts = vviCounts[static_cast<std::size_t>(iId) - 1];
            classesOf(dValue, [&viCounts](int iClass) { ++viCounts[static_cast<std::size_t>(iClass)]; });
        }
    });
    return vviCounts;
}

void appendGroupColumns(MatrixData& oTable, QStringList& lHeaders, const std::vector<Counts>& vviCounts,
                        const Groups& oGroups, std::size_t iTotal, MatrixData::HistogramType eType)
{
    for (std::size_t i = 0; i < vviCounts.size(); ++i) {
        oTable.setColumn(oTable.columnCount(), MatrixColumn::fromDoubles(heights(vviCounts[i], iTotal, eType)));
        lHeaders << oGroups.m_names.value(static_cast<int>(i) + 1).toString();
    }
}

QString heightTitle(MatrixData::HistogramType eType)
{
    switch (eType) {
    case MatrixData::RelativeFrequency:
        return QCoreApplication::translate("MatrixData", "Relative Frequency");
    case MatrixData::CumulativeRelativeFrequency:
        return QCoreApplication::translate("MatrixData", "Cumulative Relative Frequency");
    case MatrixData::Frequency:
        break;
    }
    return QCoreApplication::translate("MatrixData", "Frequency");
}

/// How often each record of a list counts; empty for a list that means all.
std::vector<double> multiplicities(const RecordValues& oValues)
{
    std::vector<double> vdTimes;
    if (oValues.hasRecordList()) {
        vdTimes.assign(oValues.columnSize(), 0.0);
        oValues.forEachRecord([&vdTimes](std::size_t iRecord, double) { vdTimes[iRecord] += 1.0; });
    }
    return vdTimes;
}

Counts wholeCounts(std::span<const double> vdCounts)
{
    Counts viCounts;
    viCounts.reserve(vdCounts.size());
    for (const double dCount : vdCounts) {
        viCounts.push_back(static_cast<std::size_t>(dCount));
    }
    return viCounts;
}

/// Counts of one rose per group (index id − 1) and sector.
std::vector<Counts> groupCounts(const RoseBins& oBins, const Groups& oGroups)
{
    std::vector<Counts> vviCounts(static_cast<std::size_t>(oGroups.count()));
    for (int iId = 1; iId <= oGroups.count(); ++iId) {
        Counts& viCounts = vviCounts[static_cast<std::size_t>(iId) - 1];
        for (int iSector = 0; iSector < oBins.sectors(); ++iSector) {
            viCounts.push_back(static_cast<std::size_t>(oBins.classCount(iSector, iId)));
        }
    }
    return vviCounts;
}

MatrixColumn columnOfNames(const Groups& oGroups)
{
    const auto eType = static_cast<QMetaType::Type>(oGroups.m_names.value(1).typeId());
    const bool bKnown =
        eType == QMetaType::Double || eType == QMetaType::Int || eType == QMetaType::Bool || eType == QMetaType::QColor;
    MatrixColumn oColumn(bKnown ? eType : QMetaType::QString);
    for (int iId = 1; iId <= oGroups.count(); ++iId) {
        oColumn.appendValue(oGroups.m_names.value(iId));
    }
    return oColumn;
}

} // namespace

MatrixData* MatrixData::newFrequencyData(double& dIntervalSize, HistogramType eType, const std::vector<int>& viRecords,
                                         MatrixData* poClasses, bool) const
{
    const ColumnNumbers oNumbers(column(0));
    const RecordValues oValues = oNumbers.values(viRecords);
    const FrequencyClasses oClasses = frequencyClasses(oValues, dIntervalSize);
    dIntervalSize = oClasses.interval();
    const Counts viCounts = classCounts(oValues, oClasses);
    const std::size_t iTotal = sum(viCounts);
    // Shifted by one class, the share up to a class is the share at its left edge.
    std::vector<double> vdAtLeftEdge = heights(viCounts, iTotal, CumulativeRelativeFrequency);
    if (!vdAtLeftEdge.empty()) {
        vdAtLeftEdge.insert(vdAtLeftEdge.begin(), 0.0);
        vdAtLeftEdge.pop_back();
    }
    const std::span<const double> vdEdges = oClasses.edges();
    std::vector<double> vdLeft;
    std::vector<double> vdRight;
    if (!vdEdges.empty()) {
        vdLeft.assign(vdEdges.begin(), vdEdges.end() - 1);
        vdRight.assign(vdEdges.begin() + 1, vdEdges.end());
    }

    auto poTable = std::make_unique<MatrixData>(name(), 0, 4, QMetaType::Double, 0);
    poTable->setColumn(0, MatrixColumn::fromDoubles(std::move(vdLeft)));
    poTable->setColumn(1, MatrixColumn::fromDoubles(std::move(vdAtLeftEdge)));
    poTable->setColumn(2, MatrixColumn::fromDoubles(std::move(vdRight)));
    poTable->setColumn(3, MatrixColumn::fromDoubles(heights(viCounts, iTotal, eType)));
    QStringList lHeaders{QCoreApplication::translate("MatrixData", "Left Edge"),
                         QCoreApplication::translate("MatrixData", "Cumulative %"),
                         QCoreApplication::translate("MatrixData", "Right Edge"), heightTitle(eType)};
    const Groups oGroups = groupsOf(poClasses);
    const auto vviCounts = countGroups(oValues, oGroups, oClasses.count(),
                                       [&oClasses](double dValue, auto&& count) { count(oClasses.classOf(dValue)); });
    appendGroupColumns(*poTable, lHeaders, vviCounts, oGroups, iTotal, eType);
    poTable->setColumnHeaders(lHeaders);
    poTable->setColor(color());
    poTable->setUnitManager(unitManager());
    return poTable.release();
}

// The colour attribute alone tells which records belong to a colour class, whatever data set holds it.
MatrixData* MatrixData::newFrequencyData(double dIntervalSize, int iClasses, double dStart, HistogramType eType,
                                         const std::vector<int>& viRecords, MatrixData* poColorAttribute, MatrixData*,
                                         MatrixData* poClassValues, bool bUnidirectional) const
{
    const bool bUsable = dIntervalSize > 0.0 && std::isfinite(dIntervalSize) && std::isfinite(dStart);
    iClasses = bUsable ? std::clamp(iClasses, 0, FrequencyClasses::s_iMaximumCount) : 0;
    const ColumnNumbers oNumbers(column(0));
    const RecordValues oValues = oNumbers.values(viRecords);
    const Groups oGroups = iClasses > 0 ? groupsOf(poColorAttribute) : Groups();
    RoseBins oBins;
    if (iClasses > 0) {
        const RoseSettings oSettings{dIntervalSize, dStart, !bUnidirectional, iClasses};
        oBins = roseBins(oNumbers.cells(), oSettings, {}, multiplicities(oValues), oGroups.m_viIdOfRecord,
                         oGroups.count() + 1); // id 0 stands for records without a group
    }
    const Counts viCounts = wholeCounts(oBins.m_vdCounts);
    const std::size_t iTotal = sum(viCounts);
    auto poTable = std::make_unique<MatrixData>(name(), 0, 1, QMetaType::Double, 0);
    poTable->setColumn(0, MatrixColumn::fromDoubles(heights(viCounts, iTotal, eType)));
    QStringList lHeaders{heightTitle(eType)};
    appendGroupColumns(*poTable, lHeaders, groupCounts(oBins, oGroups), oGroups, iTotal, eType);
    if (poClassValues) {
        poClassValues->setColumn(0, columnOfNames(oGroups));
    }
    poTable->setColumnHeaders(lHeaders);
    poTable->setColor(color());
    return poTable.release();
}

} // namespace gkBase

#include "QHistogramItemModel.h"

#include "MissingValue.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace gkBase {

namespace {

/// Columns of a frequency table.
enum TableColumn
{
    LeftEdge = 0,
    ShareAtLeft = 1,
    RightEdge = 2,
    Height = 3
};
constexpr double g_dSmallestInterval = 1e-8;
constexpr double g_dAll = 100.0;

MatrixData::HistogramType typeOf(int iType)
{
    const bool bKnown = iType >= MatrixData::Frequency && iType <= MatrixData::CumulativeRelativeFrequency;
    return bKnown ? static_cast<MatrixData::HistogramType>(iType) : MatrixData::Frequency;
}

int countValues(const MatrixData& data, const std::vector<int>& viRecords)
{
    const MatrixColumn& oColumn = data.column(0);
    const auto hasValue = [&oColumn](int iRecord) { return !isMissing(oColumn.number(iRecord)); };
    if (!viRecords.empty())
        return static_cast<int>(std::count_if(viRecords.begin(), viRecords.end(), hasValue));
    const std::span<const double> vdValues = oColumn.doubles();
    if (!vdValues.empty())
        return static_cast<int>(
            std::count_if(vdValues.begin(), vdValues.end(), [](double dValue) { return !isMissing(dValue); }));
    int iCount = 0;
    for (int i = 0; i < oColumn.size(); ++i)
        iCount += hasValue(i) ? 1 : 0;
    return iCount;
}

std::vector<HistogramInterval> intervalsOf(const MatrixData& table)
{
    std::vector<HistogramInterval> vIntervals(static_cast<std::size_t>(table.recordCount()));
    for (std::size_t i = 0; i < vIntervals.size(); ++i) {
        const int iRow = static_cast<int>(i);
        vIntervals[i] = {table.recordNumber(iRow, LeftEdge), table.recordNumber(iRow, RightEdge),
                         table.recordNumber(iRow, Height)};
    }
    return vIntervals;
}

/// The 10, 50 and 90 per cent points of the cumulative curve. Every frequency table has the share at each left edge,
/// so the curve needs no second count: the heights are only brought to cumulative per cent, whose last one closes
/// the curve.
HistogramPercentiles percentilesOf(const MatrixData& table)
{
    const int iRows = table.recordCount();
    if (iRows == 0)
        return {};
    MatrixData curve(table, true);
    for (int i = 0; i + 1 < iRows; ++i)
        curve.mutableColumn(Height).mutableDoubles()[static_cast<std::size_t>(i)] =
            table.recordNumber(i + 1, ShareAtLeft);
    curve.mutableColumn(Height).mutableDoubles()[static_cast<std::size_t>(iRows - 1)] = g_dAll;
    curve.valuesChanged();
    curve.reduceToAveraged(LeftEdge, ShareAtLeft);
    return {curve.getInterpolationValue(10.0, LeftEdge, ShareAtLeft),
            curve.getInterpolationValue(50.0, LeftEdge, ShareAtLeft),
            curve.getInterpolationValue(90.0, LeftEdge, ShareAtLeft)};
}

} // namespace

QHistogramItemModel::QHistogramItemModel(QObject* pqParent)
    : QAbstractItemModel(pqParent)
    , m_dIntervalSize(g_dMissingValue)
    , m_dMin(g_dMissingValue)
    , m_dStandardDeviation(g_dMissingValue)
{
}

QHistogramItemModel::~QHistogramItemModel() = default;

void QHistogramItemModel::takeNewDataSet(MatrixData* poData, int iType, const std::vector<int>& viRecords)
{
    beginResetModel();
    m_poFrequencyData.reset();
    m_viRecords = viRecords;
    m_eType = typeOf(iType);
    if (!(m_dIntervalSize > g_dSmallestInterval))
        m_dIntervalSize = g_dMissingValue;
    if (poData)
        m_poFrequencyData.reset(poData->newFrequencyData(m_dIntervalSize, m_eType, m_viRecords, nullptr, true));
    const bool bHasTable = m_poFrequencyData && m_poFrequencyData->columnCount() > Height;
    m_vIntervals = bHasTable ? intervalsOf(*m_poFrequencyData) : std::vector<HistogramInterval>();
    m_dMin = m_vIntervals.empty() ? g_dMissingValue : m_vIntervals.front().m_dLeft;
    m_iPoints = m_vIntervals.empty() ? 0 : countValues(*poData, m_viRecords);
    m_dStandardDeviation = m_vIntervals.empty() ? g_dMissingValue : poData->standardDeviation(m_viRecords);
    m_oPercentiles = bHasTable ? percentilesOf(*m_poFrequencyData) : HistogramPercentiles();
    endResetModel();
}

void QHistogramItemModel::clear()
{
    takeNewDataSet(nullptr, m_eType, {});
}

double QHistogramItemModel::maximumHeight() const
{
    double dMaximum = 0.0;
    for (const HistogramInterval& interval : m_vIntervals)
        dMaximum = interval.m_dHeight > dMaximum ? interval.m_dHeight : dMaximum;
    return dMaximum;
}

double QHistogramItemModel::intervalShare(int iInterval) const
{
    const int iRows = rowCount();
    if (iInterval < 0 || iInterval >= iRows)
        return 0.0;
    const double dTo = iInterval + 1 < iRows ? m_poFrequencyData->recordNumber(iInterval + 1, ShareAtLeft) : g_dAll;
    return dTo - m_poFrequencyData->recordNumber(iInterval, ShareAtLeft);
}

QModelIndex QHistogramItemModel::index(int iRow, int iColumn, const QModelIndex& oParent) const
{
    return hasIndex(iRow, iColumn, oParent) ? createIndex(iRow, iColumn) : QModelIndex();
}

QModelIndex QHistogramItemModel::parent(const QModelIndex&) const
{
    return {};
}

int QHistogramItemModel::rowCount(const QModelIndex& oParent) const
{
    return oParent.isValid() || !m_poFrequencyData ? 0 : m_poFrequencyData->recordCount();
}

int QHistogramItemModel::columnCount(const QModelIndex& oParent) const
{
    return oParent.isValid() || !m_poFrequencyData ? 0 : m_poFrequencyData->columnCount();
}

QVariant QHistogramItemModel::data(const QModelIndex& oIndex, int iRole) const
{
    if (!oIndex.isValid() || !m_poFrequencyData)
        return {};
    if (iRole == Qt::DisplayRole)
        return m_poFrequencyData->value(oIndex.row() + m_poFrequencyData->rowOffSet(), oIndex.column());
    if (iRole == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant QHistogramItemModel::headerData(int iSection, Qt::Orientation eOrientation, int iRole) const
{
    if (iRole != Qt::DisplayRole)
        return {};
    if (!m_poFrequencyData)
        return QString();
    // Deliberately one interval low: row 0 carries the label of the interval before the first.
    if (eOrientation == Qt::Vertical)
        return QString::number(m_dMin - m_dIntervalSize + iSection * m_dIntervalSize, 'f', 2);
    const QString sHeader = m_poFrequencyData->columnHeaders().value(iSection);
    bool bNumber = false;
    const double dNumber = sHeader.toDouble(&bNumber);
    if (m_eType == MatrixData::Frequency || !bNumber)
        return sHeader;
    return QString::number(dNumber, 'g', 6) + QLatin1Char('%');
}

} // namespace gkBase

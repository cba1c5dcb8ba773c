#include "CircularStatistics.h"
#include "ColumnNumbers.h"
#include "Curve.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRange.h"
#include "MatrixDataRestore.h"
#include "MissingValue.h"
#include "SummaryStatistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

/// The cached range of a column, made when it is not there yet.
template <typename Range>
Range& rangeOf(std::vector<Range>& vRanges, int iColumn)
{
    if (static_cast<std::size_t>(iColumn) >= vRanges.size()) {
        vRanges.resize(static_cast<std::size_t>(iColumn) + 1);
    }
    return vRanges[static_cast<std::size_t>(iColumn)];
}

/// Fills what is not known yet. Tables show mean and range together, so both are taken while the column is at hand.
template <typename Range>
void summarize(Range& oRange, const MatrixColumn& column)
{
    if (oRange.m_bRangeKnown && oRange.m_bMeanKnown) {
        return;
    }
    const SummaryStatistics oSummary = rangeAndMean(ColumnNumbers(column).values());
    oRange.m_dMean = oSummary.m_dMean;
    oRange.m_bMeanKnown = true;
    if (!oRange.m_bRangeKnown) {
        oRange.m_dMin = oSummary.m_dMin;
        oRange.m_dMax = oSummary.m_dMax;
        oRange.m_bRangeKnown = true;
    }
}

} // namespace

void MatrixData::getMinMax(double& dMin, double& dMax) const
{
    ColumnRange& oRange = rangeOf(m_vRanges, 0);
    summarize(oRange, column(0));
    dMin = oRange.m_dMin;
    dMax = oRange.m_dMax;
}

void MatrixData::setMinMax(int iColumn, const std::vector<int>& viRecords)
{
    if (iColumn < 0 || iColumn >= columnCount()) {
        return;
    }
    const SummaryStatistics oSummary = valueRange(ColumnNumbers(column(iColumn)).values(viRecords));
    ColumnRange& oRange = rangeOf(m_vRanges, iColumn);
    oRange.m_dMin = oSummary.m_dMin;
    oRange.m_dMax = oSummary.m_dMax;
    oRange.m_bRangeKnown = true;
}

double MatrixData::mean() const
{
    ColumnRange& oRange = rangeOf(m_vRanges, 0);
    summarize(oRange, column(0));
    return oRange.m_dMean;
}

double MatrixData::standardDeviation() const
{
    return standardDeviation({});
}

double MatrixData::standardDeviation(const std::vector<int>& viRecords) const
{
    return summaryStatistics(ColumnNumbers(column(0)).values(viRecords)).m_dStandardDeviation;
}

double MatrixData::resultantMeanDirection(double& dResultantLength, const std::vector<int>& viRecords) const
{
    const CircularMean oMean = circularMean(ColumnNumbers(column(0)).values(viRecords));
    dResultantLength = oMean.m_dResultantLength;
    return oMean.m_dDirection;
}

double MatrixData::maximumOfColumn(int iColumn) const
{
    const SummaryStatistics oSummary = valueRange(ColumnNumbers(column(iColumn)).values());
    return oSummary.m_iCount > 0 ? oSummary.m_dMax : 0.0;
}

double MatrixData::getInterpolationValue(double x, int iColumnX, int iColumnY) const
{
    const ColumnNumbers oResults(column(iColumnX));
    const ColumnNumbers oPositions(column(iColumnY));
    return curveValue(oPositions.cells(), oResults.cells(), x);
}

void MatrixData::reduceToAveraged(int iColumnA, int iColumnB)
{
    if (iColumnA == iColumnB || std::min(iColumnA, iColumnB) < 0 || std::max(iColumnA, iColumnB) >= columnCount()) {
        return;
    }
    // Classes without values share the cumulative value of the class after them, so that one position can have
    // several edges: the curve passes the middle of such a step.
    AveragedCurve oCurve =
        averagedCurve(ColumnNumbers(column(iColumnB)).cells(), ColumnNumbers(column(iColumnA)).cells());
    const int iLast = recordCount() - 1;
    if (columnCount() > 3 && iLast >= 0) {
        const double dLastEdge = recordNumber(iLast, 2);
        const double dLastHeight = recordNumber(iLast, 3);
        const bool bBeyond = oCurve.m_vdPositions.empty() || oCurve.m_vdPositions.back() < dLastHeight;
        if (bBeyond && !isMissing(dLastEdge) && !isMissing(dLastHeight)) {
            oCurve.m_vdPositions.push_back(dLastHeight);
            oCurve.m_vdValues.push_back(dLastEdge);
        }
    }
    const auto iRows = static_cast<int>(oCurve.m_vdPositions.size());
    const int iColumns = std::max(iColumnA, iColumnB) + 1;
    m_eType = QMetaType::Double;
    m_vColumns.assign(static_cast<std::size_t>(iColumns), MatrixColumn(QMetaType::Double, iRows));
    m_vColumns[static_cast<std::size_t>(iColumnA)] = MatrixColumn::fromDoubles(std::move(oCurve.m_vdValues));
    m_vColumns[static_cast<std::size_t>(iColumnB)] = MatrixColumn::fromDoubles(std::move(oCurve.m_vdPositions));
    m_lColumnHeaders = m_lColumnHeaders.mid(0, iColumns);
    valuesChanged();
}

void MatrixData::interpolate(int iFirstRow, int iLastRow, int iColumn, MatrixDataRestore* poRestore)
{
    const QMetaType::Type eType = column(iColumn).type();
    if (eType != QMetaType::Double && eType != QMetaType::Int) {
        return;
    }
    const int iFirst = std::max(std::min(iFirstRow, iLastRow) - m_iRowOffSet, 0);
    const int iLast = std::min(std::max(iFirstRow, iLastRow) - m_iRowOffSet, column(iColumn).size() - 1);
    if (iFirst > iLast) {
        return;
    }
    std::vector<double> vdCells;
    vdCells.reserve(static_cast<std::size_t>(iLast - iFirst) + 1);
    for (int iRecord = iFirst; iRecord <= iLast; ++iRecord) {
        vdCells.push_back(recordNumber(iRecord, iColumn));
    }
    const std::vector<double> vdBefore = vdCells;
    if (fillGaps(vdCells) == 0) {
        return;
    }
    std::vector<int> viFilled;
    for (std::size_t i = 0; i < vdCells.size(); ++i) {
        if (isMissing(vdBefore[i]) && !isMissing(vdCells[i])) {
            viFilled.push_back(iFirst + static_cast<int>(i));
        }
    }
    if (poRestore) {
        poRestore->storeRecords(this, iColumn, viFilled);
    }
    const auto filledValue = [&](int iRecord) {
        const double dValue = vdCells[static_cast<std::size_t>(iRecord - iFirst)];
        return eType == QMetaType::Int ? QVariant(static_cast<int>(std::lround(dValue))) : QVariant(dValue);
    };
    if (isDerived()) { // the cells are kept elsewhere: setValue() knows where
        const MatrixDataNotifier::Batch oBatch(this);
        for (const int iRecord : viFilled) {
            setValue(iRecord + m_iRowOffSet, iColumn, filledValue(iRecord));
        }
        return;
    }
    MatrixColumn& oColumn = mutableColumn(iColumn);
    for (const int iRecord : viFilled) {
        oColumn.setValue(iRecord, filledValue(iRecord));
    }
    valuesChanged();
}

int MatrixData::defaultFilterStepSize(int iRows)
{
    if (m_iDefaultFilterStepSize == 0) {
        int iRecords = 0;
        for (const MatrixData* poLeaf : leafs()) {
            iRecords = std::max(iRecords, poLeaf->recordCount());
        }
        const bool bThin = iRows > 0 && iRecords > iRows;
        m_iDefaultFilterStepSize = bThin ? (iRecords - 1) / iRows + 1 : -1;
    }
    return m_iDefaultFilterStepSize;
}

} // namespace gkBase

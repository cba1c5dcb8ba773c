#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRange.h"
#include "MatrixDataUndoStack.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace gkBase {

namespace {

constexpr int iMaxRecords = 1 << 28; ///< a wrong row number must not ask for all memory

} // namespace

void MatrixData::setType(QMetaType::Type eType)
{
    eType = MatrixColumn::columnType(eType);
    if (eType == m_eType || isDerived())
        return;
    m_eType = eType;
    for (MatrixColumn& oColumn : m_vColumns)
        oColumn = oColumn.converted(eType);
    valuesChanged();
}

int MatrixData::columnCount() const
{
    return static_cast<int>(m_vColumns.size());
}

int MatrixData::recordCount() const
{
    int iRecords = 0;
    for (const MatrixColumn& oColumn : m_vColumns)
        iRecords = std::max(iRecords, oColumn.size());
    return iRecords;
}

QVariant MatrixData::value(int iRow, int iColumn) const
{
    return iRow < m_iRowOffSet ? summaryValue(iRow, iColumn) : cellValue(iRow - m_iRowOffSet, iColumn);
}

QVariant MatrixData::value(const QModelIndex& index) const
{
    return index.isValid() ? value(index.row(), 0) : QVariant();
}

QVariant MatrixData::cellValue(int iRecord, int iColumn) const
{
    return column(iColumn).value(iRecord);
}

double MatrixData::cellNumber(int iRecord, int iColumn) const
{
    return column(iColumn).number(iRecord);
}

QVariant MatrixData::summaryValue(int iRow, int iColumn) const
{
    if (iRow < 0 || iRow > 2 || iColumn != 0 || columnCount() == 0 || !column(0).isNumeric())
        return QVariant();
    double dValue = g_dMissingValue;
    if (iRow == 1) {
        dValue = mean();
    } else {
        double dMin = g_dMissingValue;
        double dMax = g_dMissingValue;
        getMinMax(dMin, dMax);
        dValue = iRow == 0 ? dMin : dMax;
    }
    if (isMissing(dValue))
        return QVariant();
    return iRow != 1 && m_eType != QMetaType::Double ? QVariant(static_cast<int>(dValue)) : QVariant(dValue);
}

void MatrixData::setValue(int iRow, int iColumn, const QVariant& qValue)
{
    const int iRecord = iRow - m_iRowOffSet;
    if (iRow < m_iRowOffSet || iRecord >= iMaxRecords || iColumn < 0 || iColumn > std::max(columnCount() - 1, 0))
        return;
    if (writeDerived(iRecord, iColumn, qValue)) // which announces the change where the cells are
        return;
    ensureColumn(iColumn, iRecord + 1);
    m_vColumns[static_cast<std::size_t>(iColumn)].setValue(iRecord, qValue);
    valuesChanged();
}

void MatrixData::setValue(const QModelIndex& index, const QVariant& qValue)
{
    if (index.isValid())
        setValue(index.row(), 0, qValue);
}

void MatrixData::insertValue(int iRow, const QVariant& qValue)
{
    const int iRecord = iRow - m_iRowOffSet;
    if (iRow < m_iRowOffSet || iRecord >= iMaxRecords || isDerived())
        return;
    ensureColumn(0, 0);
    m_vColumns.front().insertValue(iRecord, qValue);
    valuesChanged();
}

bool MatrixData::writeDerived(int, int, const QVariant&)
{
    return false;
}

void MatrixData::ensureColumn(int iColumn, int iRecords)
{
    while (columnCount() <= iColumn)
        m_vColumns.emplace_back(m_eType);
    MatrixColumn& oColumn = m_vColumns[static_cast<std::size_t>(iColumn)];
    if (oColumn.size() < iRecords)
        oColumn.resize(iRecords);
}

double MatrixData::toDouble(int iRow, int iColumn) const
{
    double dValue = g_dMissingValue;
    if (iRow >= m_iRowOffSet) {
        dValue = cellNumber(iRow - m_iRowOffSet, iColumn);
    } else if (const QVariant qValue = summaryValue(iRow, iColumn); qValue.isValid()) {
        dValue = qValue.toDouble();
    }
    return isMissing(dValue) ? g_dMissingValue : dValue;
}

int MatrixData::toInt(int iRow, int iColumn) const
{
    const double dValue = std::round(toDouble(iRow, iColumn));
    const bool bFits = dValue >= std::numeric_limits<int>::min() && dValue <= std::numeric_limits<int>::max();
    return bFits ? static_cast<int>(dValue) : static_cast<int>(g_dMissingValue);
}

const MatrixColumn& MatrixData::column(int iColumn) const
{
    static const MatrixColumn oNone;
    return iColumn >= 0 && iColumn < static_cast<int>(m_vColumns.size()) ? m_vColumns[static_cast<std::size_t>(iColumn)]
                                                                         : oNone;
}

MatrixColumn& MatrixData::mutableColumn(int iColumn)
{
    static MatrixColumn oNone;
    if (iColumn >= 0 && iColumn < static_cast<int>(m_vColumns.size()))
        return m_vColumns[static_cast<std::size_t>(iColumn)];
    oNone = MatrixColumn(m_eType);
    return oNone;
}

void MatrixData::setColumn(int iColumn, MatrixColumn column)
{
    if (iColumn < 0 || iColumn > columnCount() || isDerived())
        return;
    if (columnCount() <= 1 && iColumn == 0)
        m_eType = column.type();
    else if (column.type() != m_eType)
        column = column.converted(m_eType);
    ensureColumn(iColumn, 0);
    m_vColumns[static_cast<std::size_t>(iColumn)] = std::move(column);
    valuesChanged();
}

void MatrixData::touch()
{
    m_vRanges.clear();
    ++m_iRevision;
    for (MatrixData* poDependent : m_vDependents)
        poDependent->touch();
}

void MatrixData::valuesChanged()
{
    touch();
    MatrixDataNotifier* pqNotifier = existingNotifier();
    if (!pqNotifier)
        return;
    if (m_vDependents.empty()) {
        pqNotifier->announceValues(this);
        return;
    }
    const MatrixDataNotifier::Batch batch(this); // a listener of the first signal may remove the others
    pqNotifier->announceValues(this);
    for (MatrixData* poDependent : m_vDependents)
        pqNotifier->announceValues(poDependent);
}

void MatrixData::addDependentTo(MatrixData& source)
{
    source.m_vDependents.push_back(this);
}

void MatrixData::removeDependentFrom(MatrixData& source)
{
    std::erase(source.m_vDependents, this);
}

std::vector<MatrixData*> MatrixData::dataSetsWithAttributes() const
{
    std::vector<MatrixData*> vpDataSets;
    if (m_vChildren.empty()) {
        if (isAttribute())
            vpDataSets.push_back(const_cast<MatrixData*>(this));
        return vpDataSets;
    }
    const auto isAttributeNode = [](const auto& poChild) { return poChild->isAttribute(); };
    if (std::any_of(m_vChildren.begin(), m_vChildren.end(), isAttributeNode))
        vpDataSets.push_back(const_cast<MatrixData*>(this));
    for (const auto& poChild : m_vChildren) {
        if (poChild->childCount() > 0) {
            const std::vector<MatrixData*> vpBelow = poChild->dataSetsWithAttributes();
            vpDataSets.insert(vpDataSets.end(), vpBelow.begin(), vpBelow.end());
        }
    }
    return vpDataSets;
}

namespace {

/// The attributes of one data set whose cells are stored (the node itself when it is an attribute).
std::vector<MatrixData*> storedAttributes(MatrixData* poDataSet)
{
    std::vector<MatrixData*> vpAttributes;
    if (poDataSet->isAttribute() && !poDataSet->isDerived())
        vpAttributes.push_back(poDataSet);
    for (int i = 0; i < poDataSet->childCount(); ++i)
        if (poDataSet->child(i)->isAttribute() && !poDataSet->child(i)->isDerived())
            vpAttributes.push_back(poDataSet->child(i));
    return vpAttributes;
}

int longest(const std::vector<MatrixData*>& vpAttributes)
{
    int iRecords = 0;
    for (const MatrixData* poAttribute : vpAttributes)
        iRecords = std::max(iRecords, poAttribute->recordCount());
    return iRecords;
}

int longestUsed(const std::vector<MatrixData*>& vpAttributes)
{
    int iRecords = 0;
    for (const MatrixData* poAttribute : vpAttributes)
        for (int i = 0; i < poAttribute->columnCount(); ++i)
            iRecords = std::max(iRecords, poAttribute->column(i).usedSize());
    return iRecords;
}

} // namespace

void MatrixData::resizeRecords(int iRecords)
{
    ensureColumn(0, 0);
    const bool bSame = std::all_of(m_vColumns.begin(), m_vColumns.end(),
                                   [iRecords](const auto& oColumn) { return oColumn.size() == iRecords; });
    if (bSame)
        return;
    for (MatrixColumn& oColumn : m_vColumns)
        oColumn.resize(iRecords);
    valuesChanged();
}

void MatrixData::appendRows(int iRows)
{
    if (iRows <= 0)
        return;
    const MatrixDataNotifier::Batch batch(existingNotifier() ? this : nullptr);
    for (MatrixData* poAttribute : leafs())
        if (!poAttribute->isDerived() && poAttribute->recordCount() < iMaxRecords - iRows)
            poAttribute->resizeRecords(poAttribute->recordCount() + iRows);
}

void MatrixData::appendColumns(int iColumns)
{
    if (iColumns <= 0 || isDerived())
        return;
    const int iRecords = recordCount();
    for (int i = 0; i < iColumns; ++i)
        m_vColumns.emplace_back(m_eType, iRecords);
    valuesChanged();
}

void MatrixData::appendOneRowForEachColumn()
{
    const MatrixDataNotifier::Batch batch(existingNotifier() ? this : nullptr);
    for (MatrixData* poDataSet : dataSetsWithAttributes()) {
        const std::vector<MatrixData*> vpAttributes = storedAttributes(poDataSet);
        const int iRecords = longest(vpAttributes) + 1;
        for (MatrixData* poAttribute : vpAttributes)
            poAttribute->resizeRecords(iRecords);
    }
}

void MatrixData::resetRowCount(bool bGrow)
{
    const MatrixDataNotifier::Batch batch(existingNotifier() ? this : nullptr);
    for (MatrixData* poDataSet : dataSetsWithAttributes()) {
        const std::vector<MatrixData*> vpAttributes = storedAttributes(poDataSet);
        const int iLimit = bGrow ? longest(vpAttributes) : longestUsed(vpAttributes);
        for (MatrixData* poAttribute : vpAttributes)
            if (bGrow || poAttribute->recordCount() > iLimit)
                poAttribute->resizeRecords(iLimit);
    }
}

void MatrixData::checkValidRowCount()
{
    resetRowCount(true);
}

} // namespace gkBase

#include "MatrixDataRestoreEntries.h"

#include "MatrixDataRange.h"
#include "UnitManager.h"

#include <algorithm>
#include <utility>

namespace gkBase {

MatrixDataRestore::CellsEntry::CellsEntry(MatrixData* poNode, int iColumn)
    : Entry(poNode)
    , m_iColumn(iColumn)
    , m_oCells(poNode->type())
{
}

void MatrixDataRestore::CellsEntry::exchange(bool bUndo)
{
    MatrixData* poNode = m_poNode.get();
    if (!poNode)
        return;
    MatrixColumn& oColumn = poNode->mutableColumn(m_iColumn);
    const int iCells = size();
    for (int n = 0; n < iCells; ++n) {
        const int iCell = bUndo ? iCells - 1 - n : n;
        oColumn.swapCell(m_viRecords[static_cast<std::size_t>(iCell)], m_oCells, iCell);
    }
    poNode->valuesChanged();
}

std::size_t MatrixDataRestore::CellsEntry::memoryUsage() const
{
    return sizeof(*this) + m_viRecords.capacity() * sizeof(std::int32_t) + m_oCells.memoryUsage();
}

MatrixDataRestore::ColumnEntry::ColumnEntry(MatrixData* poNode, int iColumn)
    : Entry(poNode)
    , m_iColumn(iColumn)
    , m_eType(poNode->type())
{
    if (iColumn < poNode->columnCount())
        m_oColumn = poNode->column(iColumn);
}

void MatrixDataRestore::ColumnEntry::exchange(bool)
{
    MatrixData* poNode = m_poNode.get();
    if (!poNode)
        return;
    std::optional<MatrixColumn> oNow;
    if (m_iColumn < poNode->columnCount())
        oNow = std::move(poNode->mutableColumn(m_iColumn));
    std::swap(poNode->m_eType, m_eType);
    if (m_oColumn) {
        poNode->ensureColumn(m_iColumn, 0);
        poNode->mutableColumn(m_iColumn) = std::move(*m_oColumn);
    } else if (oNow) {
        poNode->m_vColumns.erase(poNode->m_vColumns.begin() + m_iColumn, poNode->m_vColumns.end());
    }
    m_oColumn = std::move(oNow);
    poNode->valuesChanged();
}

std::size_t MatrixDataRestore::ColumnEntry::memoryUsage() const
{
    return sizeof(*this) + (m_oColumn ? m_oColumn->memoryUsage() : 0);
}

MatrixDataRestore::LengthEntry::LengthEntry(MatrixData* poNode)
    : Entry(poNode)
{
    for (int i = 0; i < poNode->columnCount(); ++i)
        m_viSizes.push_back(poNode->column(i).size());
}

void MatrixDataRestore::LengthEntry::exchange(bool)
{
    MatrixData* poNode = m_poNode.get();
    if (!poNode)
        return;
    const std::size_t nNow = poNode->m_vColumns.size();
    const std::size_t nTarget = m_viSizes.size();
    m_vTails.resize(std::max({nNow, nTarget, m_vTails.size()}));
    std::vector<int> viNow;
    bool bChanged = nNow != nTarget;
    for (std::size_t n = 0; n < std::max(nNow, nTarget); ++n) {
        const int iTarget = n < nTarget ? m_viSizes[n] : 0;
        poNode->ensureColumn(static_cast<int>(n), 0);
        MatrixColumn& oColumn = poNode->m_vColumns[n];
        const int iNow = oColumn.size();
        if (n < nNow)
            viNow.push_back(iNow);
        if (iTarget < iNow) {
            m_vTails[n] = oColumn.mid(iTarget, iNow - iTarget);
        } else if (iTarget > iNow) {
            oColumn.append(std::exchange(m_vTails[n], MatrixColumn(oColumn.type())));
        }
        bChanged = bChanged || iTarget != iNow;
        oColumn.resize(iTarget);
    }
    poNode->m_vColumns.resize(nTarget);
    m_viSizes = std::move(viNow);
    if (bChanged)
        poNode->valuesChanged();
}

std::size_t MatrixDataRestore::LengthEntry::memoryUsage() const
{
    std::size_t nBytes = sizeof(*this) + m_viSizes.capacity() * sizeof(int);
    for (const MatrixColumn& oTail : m_vTails)
        nBytes += sizeof(oTail) + oTail.memoryUsage();
    return nBytes;
}

void MatrixDataRestore::NameEntry::exchange(bool)
{
    if (MatrixData* poNode = m_poNode.get()) {
        const QString sNow = poNode->name();
        poNode->setName(std::exchange(m_sName, sNow));
    }
}

void MatrixDataRestore::ColorEntry::exchange(bool)
{
    if (MatrixData* poNode = m_poNode.get()) {
        const QColor oNow = poNode->color();
        poNode->setColor(std::exchange(m_oColor, oNow));
    }
}

void MatrixDataRestore::UnitEntry::exchange(bool)
{
    if (MatrixData* poNode = m_poNode.get()) {
        std::swap(poNode->m_poUnitManager, m_poUnitManager);
        poNode->valuesChanged();
    }
}

MatrixDataRestore::ContentsEntry::ContentsEntry(MatrixData* poNode)
    : Entry(poNode)
    , m_poContents(poNode->clone())
{
}

void MatrixDataRestore::ContentsEntry::exchange(bool)
{
    if (MatrixData* poNode = m_poNode.get()) {
        poNode->swapContents(*m_poContents);
        poNode->notifyAttributes();
        poNode->valuesChanged();
    }
}

std::size_t MatrixDataRestore::ContentsEntry::memoryUsage() const
{
    return sizeof(*this) + sizeof(MatrixData) + m_poContents->memoryUsage();
}

MatrixDataRestore::BranchEntry::BranchEntry(MatrixData* poNode, MatrixData* poParent, int iIndex,
                                            std::unique_ptr<MatrixData> poOwned)
    : Entry(poNode)
    , m_poParent(poParent)
    , m_iIndex(iIndex)
    , m_poOwned(std::move(poOwned))
{
}

void MatrixDataRestore::BranchEntry::exchange(bool)
{
    MatrixData* poNode = m_poNode.get();
    if (m_poOwned) {
        if (m_poParent)
            m_poParent->attachChild(m_iIndex, std::move(m_poOwned));
    } else if (poNode && poNode->parentNode()) {
        m_poParent = MatrixDataPointer(poNode->parentNode());
        m_iIndex = poNode->parentNode()->indexOfChild(poNode);
        m_poOwned = poNode->parentNode()->detachChild(m_iIndex);
    }
}

std::size_t MatrixDataRestore::BranchEntry::memoryUsage() const
{
    return sizeof(*this) + (m_poOwned ? sizeof(MatrixData) + m_poOwned->memoryUsage() : 0);
}

} // namespace gkBase

#include "MatrixDataRestore.h"

#include "MatrixDataRestoreEntries.h"
#include "UnitManager.h"

namespace gkBase {

MatrixDataRestore::MatrixDataRestore(MatrixData* poNode, const QString& sName, bool bRemoval)
    : m_poNode(poNode)
    , m_sName(sName)
    , m_bRemoval(bRemoval)
{
}

MatrixDataRestore::~MatrixDataRestore() = default;

void MatrixDataRestore::addEntry(std::unique_ptr<Entry> poEntry)
{
    m_openCells.clear();
    m_vEntries.push_back(std::move(poEntry));
}

MatrixDataRestore::CellsEntry& MatrixDataRestore::cellsEntry(MatrixData* poNode, int iColumn)
{
    CellsEntry*& poEntry = m_openCells[{poNode, iColumn}];
    if (!poEntry) {
        auto poNew = std::make_unique<CellsEntry>(poNode, iColumn);
        poEntry = poNew.get();
        m_vEntries.push_back(std::move(poNew));
    }
    return *poEntry;
}

void MatrixDataRestore::dataStore(int iRow, const QVariant& qOldValue)
{
    dataStore(m_poNode.get(), iRow, 0, qOldValue);
}

void MatrixDataRestore::dataStore(MatrixData* poNode, int iRow, int iColumn, const QVariant& qOldValue)
{
    MatrixData* poStorage = poNode ? poNode->storageNode() : nullptr;
    if (!poStorage || iRow < poNode->rowOffSet() || iColumn < 0)
        return;
    const int iRecord = iRow - poNode->rowOffSet();
    if (iRecord >= poStorage->column(iColumn).size())
        storeRowCount(poStorage->owner() ? poStorage->owner() : poStorage);
    CellsEntry& entry = cellsEntry(poStorage, iColumn);
    entry.m_viRecords.push_back(iRecord);
    // Only the cell itself is exact to the last bit when the value was computed from it.
    entry.m_oCells.appendValue(poStorage == poNode ? qOldValue : poStorage->column(iColumn).value(iRecord));
}

void MatrixDataRestore::storeRecords(MatrixData* poNode, int iColumn, const std::vector<int>& viRecords)
{
    MatrixData* poStorage = poNode ? poNode->storageNode() : nullptr;
    if (!poStorage || iColumn < 0 || viRecords.empty())
        return;
    if (viRecords.back() >= poStorage->column(iColumn).size())
        storeRowCount(poStorage->owner() ? poStorage->owner() : poStorage);
    CellsEntry& entry = cellsEntry(poStorage, iColumn);
    entry.m_viRecords.insert(entry.m_viRecords.end(), viRecords.begin(), viRecords.end());
    entry.m_oCells.append(poStorage->column(iColumn).gather(viRecords));
}

void MatrixDataRestore::storeColumn(MatrixData* poNode, int iColumn)
{
    MatrixData* poStorage = poNode ? poNode->storageNode() : nullptr;
    if (poStorage && iColumn >= 0)
        addEntry(std::make_unique<ColumnEntry>(poStorage, iColumn));
}

void MatrixDataRestore::storeRowCount(MatrixData* poNode)
{
    if (!poNode || !m_lengthsOf.insert(poNode).second)
        return;
    // Cells past the end are left alone when entries are applied, so that the order of cells and lengths is free and
    // open blocks stay open.
    for (MatrixData* poAttribute : poNode->leafs())
        if (!poAttribute->isDerived())
            m_vEntries.push_back(std::make_unique<LengthEntry>(poAttribute));
}

void MatrixDataRestore::storeName(MatrixData* poNode)
{
    if (poNode)
        addEntry(std::make_unique<NameEntry>(poNode));
}

void MatrixDataRestore::storeColor(MatrixData* poNode)
{
    if (poNode)
        addEntry(std::make_unique<ColorEntry>(poNode));
}

void MatrixDataRestore::storeUnit(MatrixData* poNode)
{
    if (poNode)
        addEntry(std::make_unique<UnitEntry>(poNode));
}

void MatrixDataRestore::storeContents(MatrixData* poNode)
{
    if (poNode)
        addEntry(std::make_unique<ContentsEntry>(poNode));
}

void MatrixDataRestore::storeInsertion(MatrixData* poNode)
{
    if (poNode)
        addEntry(std::make_unique<BranchEntry>(poNode, nullptr, 0, nullptr));
}

bool MatrixDataRestore::adopt(std::unique_ptr<MatrixData>& poNode, MatrixData* poParent, int iIndex)
{
    if (!m_bRemoval || m_bAdopted || !(m_poNode == poNode.get()))
        return false;
    m_bAdopted = true;
    MatrixData* poRemoved = poNode.get();
    addEntry(std::make_unique<BranchEntry>(poRemoved, poParent, iIndex, std::move(poNode)));
    return true;
}

void MatrixDataRestore::undo()
{
    for (auto it = m_vEntries.rbegin(); it != m_vEntries.rend(); ++it)
        (*it)->exchange(true);
}

void MatrixDataRestore::redo()
{
    for (const auto& poEntry : m_vEntries)
        poEntry->exchange(false);
}

int MatrixDataRestore::size() const
{
    int iSize = 0;
    for (const auto& poEntry : m_vEntries)
        iSize += poEntry->size();
    return iSize;
}

std::size_t MatrixDataRestore::memoryUsage() const
{
    std::size_t nBytes = m_vEntries.capacity() * sizeof(m_vEntries.front());
    for (const auto& poEntry : m_vEntries)
        nBytes += poEntry->memoryUsage();
    return nBytes;
}

} // namespace gkBase

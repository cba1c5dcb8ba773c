#pragma once

#include "MatrixDataRestore.h"

#include <optional>

namespace gkBase {

/// One thing that a record restores. exchange() swaps what is stored with what the node holds now; bUndo tells the
/// direction, since cells that were stored twice have to come back in the opposite order.
struct MatrixDataRestore::Entry
{
    explicit Entry(MatrixData* poNode)
        : m_poNode(poNode)
    {
    }
    virtual ~Entry() = default;
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    virtual void exchange(bool bUndo) = 0;
    virtual int size() const { return 1; }
    virtual std::size_t memoryUsage() const { return sizeof(*this); }

    MatrixDataPointer m_poNode;
};

/// Single cells of one column, in the order in which they were stored.
struct MatrixDataRestore::CellsEntry : Entry
{
    CellsEntry(MatrixData* poNode, int iColumn);
    void exchange(bool bUndo) override;
    int size() const override { return static_cast<int>(m_viRecords.size()); }
    std::size_t memoryUsage() const override;

    int m_iColumn;
    std::vector<std::int32_t> m_viRecords;
    MatrixColumn m_oCells;
};

/// A whole column, empty for a column that did not exist.
struct MatrixDataRestore::ColumnEntry : Entry
{
    ColumnEntry(MatrixData* poNode, int iColumn);
    void exchange(bool bUndo) override;
    int size() const override { return m_oColumn ? m_oColumn->size() : 1; }
    std::size_t memoryUsage() const override;

    int m_iColumn;
    QMetaType::Type m_eType; ///< of the node, which follows its first column
    std::optional<MatrixColumn> m_oColumn;
};

/// The lengths of the columns of one node, with the cells past the end of the shorter state.
struct MatrixDataRestore::LengthEntry : Entry
{
    explicit LengthEntry(MatrixData* poNode);
    void exchange(bool bUndo) override;
    std::size_t memoryUsage() const override;

    std::vector<int> m_viSizes; ///< of the columns that there were
    std::vector<MatrixColumn> m_vTails;
};

struct MatrixDataRestore::NameEntry : Entry
{
    explicit NameEntry(MatrixData* poNode)
        : Entry(poNode)
        , m_sName(poNode->name())
    {
    }
    void exchange(bool bUndo) override;

    QString m_sName;
};

struct MatrixDataRestore::ColorEntry : Entry
{
    explicit ColorEntry(MatrixData* poNode)
        : Entry(poNode)
        , m_oColor(poNode->color())
    {
    }
    void exchange(bool bUndo) override;

    QColor m_oColor;
};

struct MatrixDataRestore::UnitEntry : Entry
{
    explicit UnitEntry(MatrixData* poNode)
        : Entry(poNode)
        , m_poUnitManager(poNode->m_poUnitManager)
    {
    }
    void exchange(bool bUndo) override;

    boost::shared_ptr<UnitManager> m_poUnitManager;
};

/// Everything that a node holds.
struct MatrixDataRestore::ContentsEntry : Entry
{
    explicit ContentsEntry(MatrixData* poNode);
    void exchange(bool bUndo) override;
    std::size_t memoryUsage() const override;

    std::unique_ptr<MatrixData> m_poContents; ///< of the same dynamic type
};

/// A node that was put into the tree or taken out of it; the entry owns it while it is out.
struct MatrixDataRestore::BranchEntry : Entry
{
    BranchEntry(MatrixData* poNode, MatrixData* poParent, int iIndex, std::unique_ptr<MatrixData> poOwned);
    void exchange(bool bUndo) override;
    std::size_t memoryUsage() const override;

    MatrixDataPointer m_poParent;
    int m_iIndex;
    std::unique_ptr<MatrixData> m_poOwned;
};

} // namespace gkBase

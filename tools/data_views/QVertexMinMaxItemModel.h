#pragma once

#include "QVertexItemModel.h"

namespace gkBase {

/// Five summary rows for the columns of QVertexItemModel: minimum, mean, maximum, unit and unit category.
class GKBASETOOLS_EXPORT QVertexMinMaxItemModel : public QVertexItemModel
{
    Q_OBJECT
public:
    enum Row
    {
        Minimum = 0,
        Mean = 1,
        Maximum = 2,
        Unit = 3,
        UnitCategory = 4,
        RowCount = 5
    };

    QVertexMinMaxItemModel(QObject* pqParent, MatrixData* poRoot, int iFilterStepSize);

    int numberOfUneditable() const { return m_iNumberOfUneditable; }
    /// Rows above this number are read-only; the three statistics are so at first. They cannot be written in any case.
    void setNumberOfUneditable(int iRows);

    QVariant data(const QModelIndex& index, int iRole = Qt::DisplayRole) const override;
    QVariant headerData(int iSection, Qt::Orientation eOrientation, int iRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Unit row: chooses the display unit of the column's category, for the whole program. Category row: gives the
    /// column another unit category, as one undo record; an unknown category is ignored.
    bool setData(const QModelIndex& index, const QVariant& qValue, int iRole = Qt::EditRole) override;
    bool canDropMimeData(const QMimeData* pMimeData, Qt::DropAction eAction, int iRow, int iColumn,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* pMimeData, Qt::DropAction eAction, int iRow, int iColumn,
                      const QModelIndex& parent) override;

    using QVertexItemModel::modifySelectedCells;
    /// Summaries cannot be changed: false.
    bool modifySelectedCells(const CellRuns& oCells, const ColumnChanges& oChanges) override;
    bool setMimeData(const QMimeData& oMimeData, int iRow, int iColumn) override;

    /// What the editors of the unit and category rows offer for a column; empty for other rows.
    QStringList choices(const QModelIndex& index) const;
    /// The one of them that holds now.
    QString currentChoice(const QModelIndex& index) const;

signals:
    void unitCategoryChanged();

protected:
    int wantedRowCount() const override;
    QString exactText(int iRow, int iColumn) const override;

private:
    bool setUnitCategory(const QModelIndex& index, MatrixData* poNode, const QString& sCategory);

    int m_iNumberOfUneditable = 3;
};

} // namespace gkBase

#pragma once

#include "gkBaseToolsExport.h"

#include <QModelIndex>
#include <QStyledItemDelegate>

#include <functional>

namespace gkBase {

/// The cell editor of the attribute table: a line edit by the type of the attribute. Enter commits and asks for the
/// next cell of the column; a text that does not fit the type is marked and not committed. Colour cells have no editor
/// here (the view opens a colour dialog) and keep showing their colour while selected.
class GKBASETOOLS_EXPORT QVertexItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using CellTest = std::function<bool(const QModelIndex&)>;

    explicit QVertexItemDelegate(QObject* pqParent = nullptr);

    /// Cells that are painted as selected besides those of the view's selection model.
    void setSelectedTest(CellTest isSelected) { m_isSelected = std::move(isSelected); }
    /// Cells that get a frame in the highlight colour while selected.
    void setFramedTest(CellTest isFramed) { m_isFramed = std::move(isFramed); }

    QWidget* createEditor(QWidget* pqParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pqEditor, const QModelIndex& index) const override;
    void setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const override;
    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

signals:
    /// The edit in this editor was committed with Enter: the editor should move to the next cell of its column.
    void setNextInColumn(QWidget* pqEditor);

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;
    bool eventFilter(QObject* pqObject, QEvent* pEvent) override;

private:
    CellTest m_isSelected;
    CellTest m_isFramed;
};

} // namespace gkBase

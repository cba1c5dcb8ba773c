#pragma once

#include "gkBaseToolsExport.h"

#include <QStringList>
#include <QStyledItemDelegate>

namespace gkBase {

/// Edits a cell with a combo box of fixed texts. Choosing an entry commits it at once.
class GKBASETOOLS_EXPORT QComboBoxItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit QComboBoxItemDelegate(QObject* pqParent = nullptr);
    QComboBoxItemDelegate(const QStringList& lItems, QObject* pqParent);

    void setItems(const QStringList& lItems) { m_lItems = lItems; }
    /// The entries for a cell; no editor opens when there is none.
    virtual QStringList items(const QModelIndex& index) const;

    QWidget* createEditor(QWidget* pqParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pqEditor, const QModelIndex& index) const override;
    void setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    /// The entry to start with.
    virtual QString currentItem(const QModelIndex& index) const;

private:
    void slotItemChosen();

    QStringList m_lItems;
};

} // namespace gkBase

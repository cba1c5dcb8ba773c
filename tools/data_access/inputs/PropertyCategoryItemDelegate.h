#pragma once

#include "UnitRegistry.h"
#include "gkBaseQtExport.h"

#include <QStyledItemDelegate>

namespace gkBase {

/// Edits the unit category of a property with a combo box of the registry's categories. The item's edit value is the
/// category's name; a name that the registry does not know is offered too, so that opening the editor changes nothing.
class GKBASEQT_EXPORT PropertyCategoryItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// The registry is not owned and must outlive the delegate; null offers the standard categories.
    explicit PropertyCategoryItemDelegate(const UnitRegistry* poRegistry, QObject* pqParent = nullptr);

    QWidget* createEditor(QWidget* pqParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pqEditor, const QModelIndex& index) const override;
    void setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    const UnitRegistry* m_poRegistry; ///< not owned
};

} // namespace gkBase

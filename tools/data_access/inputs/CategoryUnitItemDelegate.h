#pragma once

#include "UnitManager.h"
#include "gkBaseQtExport.h"

#include <QStyledItemDelegate>

#include <boost/shared_ptr.hpp>

#include <functional>

namespace gkBase {

/// Edits the display unit of a category with a combo box of the units to which its values convert. The item's edit
/// value is the unit as UnitManager::possibleDisplayUnits() writes it.
class GKBASEQT_EXPORT CategoryUnitItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// Gives the unit manager of an item; null means that the item has no units to choose from.
    using UnitManagerSource = std::function<boost::shared_ptr<UnitManager>(const QModelIndex&)>;

    explicit CategoryUnitItemDelegate(UnitManagerSource unitManagerSource, QObject* pqParent = nullptr);

    /// No editor for an item without a unit manager.
    QWidget* createEditor(QWidget* pqParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pqEditor, const QModelIndex& index) const override;
    void setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    UnitManagerSource m_unitManagerSource;
};

} // namespace gkBase

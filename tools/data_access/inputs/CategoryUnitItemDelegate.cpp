#include "CategoryUnitItemDelegate.h"

#include "ComboBoxItemEditing.h"

#include <QComboBox>

#include <utility>

namespace gkBase {

CategoryUnitItemDelegate::CategoryUnitItemDelegate(UnitManagerSource unitManagerSource, QObject* pqParent)
    : QStyledItemDelegate(pqParent)
    , m_unitManagerSource(std::move(unitManagerSource))
{
}

QWidget* CategoryUnitItemDelegate::createEditor(QWidget* pqParent, const QStyleOptionViewItem& /*option*/,
                                                const QModelIndex& index) const
{
    const boost::shared_ptr<UnitManager> poUnitManager =
        m_unitManagerSource ? m_unitManagerSource(index) : boost::shared_ptr<UnitManager>();
    if (!poUnitManager)
        return nullptr;
    // Editing does not change the delegate itself; only its signals are emitted.
    auto* pqSelf = const_cast<CategoryUnitItemDelegate*>(this);
    QComboBox* pqComboBox = createChoiceEditor(pqParent, pqSelf, poUnitManager->possibleDisplayUnits());
    pqComboBox->setAccessibleName(tr("Display unit"));
    return pqComboBox;
}

void CategoryUnitItemDelegate::setEditorData(QWidget* pqEditor, const QModelIndex& index) const
{
    setChoiceEditorData(pqEditor, index);
}

void CategoryUnitItemDelegate::setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel,
                                            const QModelIndex& index) const
{
    setChoiceModelData(pqEditor, pqModel, index);
}

void CategoryUnitItemDelegate::updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                                                    const QModelIndex& /*index*/) const
{
    pqEditor->setGeometry(option.rect);
}

} // namespace gkBase

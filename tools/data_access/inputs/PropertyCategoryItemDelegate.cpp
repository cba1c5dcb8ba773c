#include "PropertyCategoryItemDelegate.h"

#include "ComboBoxItemEditing.h"

#include <QComboBox>

namespace gkBase {

PropertyCategoryItemDelegate::PropertyCategoryItemDelegate(const UnitRegistry* poRegistry, QObject* pqParent)
    : QStyledItemDelegate(pqParent)
    , m_poRegistry(poRegistry)
{
}

QWidget* PropertyCategoryItemDelegate::createEditor(QWidget* pqParent, const QStyleOptionViewItem& /*option*/,
                                                    const QModelIndex& /*index*/) const
{
    const UnitRegistry oStandard;
    const UnitRegistry& oRegistry = m_poRegistry ? *m_poRegistry : oStandard;
    QStringList lCategories;
    for (auto it = oRegistry.categories_begin(); it != oRegistry.categories_end(); ++it)
        lCategories.append(it->first);
    // Editing does not change the delegate itself; only its signals are emitted.
    auto* pqSelf = const_cast<PropertyCategoryItemDelegate*>(this);
    QComboBox* pqComboBox = createChoiceEditor(pqParent, pqSelf, lCategories);
    pqComboBox->setAccessibleName(tr("Unit category"));
    return pqComboBox;
}

void PropertyCategoryItemDelegate::setEditorData(QWidget* pqEditor, const QModelIndex& index) const
{
    setChoiceEditorData(pqEditor, index);
}

void PropertyCategoryItemDelegate::setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel,
                                                const QModelIndex& index) const
{
    setChoiceModelData(pqEditor, pqModel, index);
}

void PropertyCategoryItemDelegate::updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                                                        const QModelIndex& /*index*/) const
{
    pqEditor->setGeometry(option.rect);
}

} // namespace gkBase

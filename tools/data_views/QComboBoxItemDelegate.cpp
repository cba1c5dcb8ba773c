#include "QComboBoxItemDelegate.h"

#include <QComboBox>

namespace gkBase {

QComboBoxItemDelegate::QComboBoxItemDelegate(QObject* pqParent)
    : QStyledItemDelegate(pqParent)
{
}

QComboBoxItemDelegate::QComboBoxItemDelegate(const QStringList& lItems, QObject* pqParent)
    : QStyledItemDelegate(pqParent)
    , m_lItems(lItems)
{
}

QStringList QComboBoxItemDelegate::items(const QModelIndex& /*index*/) const
{
    return m_lItems;
}

QString QComboBoxItemDelegate::currentItem(const QModelIndex& index) const
{
    return index.data(Qt::EditRole).toString();
}

QWidget* QComboBoxItemDelegate::createEditor(QWidget* pqParent, const QStyleOptionViewItem& /*option*/,
                                             const QModelIndex& index) const
{
    const QStringList lItems = items(index);
    if (lItems.isEmpty())
        return nullptr;
    auto* pqComboBox = new QComboBox(pqParent);
    pqComboBox->addItems(lItems);
    pqComboBox->setAccessibleName(index.model()->headerData(index.row(), Qt::Vertical).toString());
    connect(pqComboBox, &QComboBox::activated, this, &QComboBoxItemDelegate::slotItemChosen);
    return pqComboBox;
}

void QComboBoxItemDelegate::setEditorData(QWidget* pqEditor, const QModelIndex& index) const
{
    if (auto* pqComboBox = qobject_cast<QComboBox*>(pqEditor))
        pqComboBox->setCurrentIndex(pqComboBox->findText(currentItem(index)));
}

void QComboBoxItemDelegate::setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const
{
    const auto* pqComboBox = qobject_cast<QComboBox*>(pqEditor);
    if (pqComboBox && pqComboBox->currentIndex() >= 0 && pqComboBox->currentText() != currentItem(index))
        pqModel->setData(index, pqComboBox->currentText(), Qt::EditRole);
}

void QComboBoxItemDelegate::updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                                                 const QModelIndex& /*index*/) const
{
    pqEditor->setGeometry(option.rect);
}

void QComboBoxItemDelegate::slotItemChosen()
{
    auto* pqEditor = qobject_cast<QWidget*>(sender());
    emit commitData(pqEditor);
    emit closeEditor(pqEditor);
}

} // namespace gkBase

#include "ComboBoxItemEditing.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QStyledItemDelegate>

namespace gkBase {

QComboBox* createChoiceEditor(QWidget* pqParent, QStyledItemDelegate* pqDelegate, const QStringList& lChoices)
{
    auto* pqComboBox = new QComboBox(pqParent);
    pqComboBox->setFrame(false);
    pqComboBox->setAutoFillBackground(true);
    pqComboBox->addItems(lChoices);
    QObject::connect(pqComboBox, &QComboBox::activated, pqDelegate, [pqDelegate, pqComboBox] {
        emit pqDelegate->commitData(pqComboBox);
        emit pqDelegate->closeEditor(pqComboBox);
    });
    return pqComboBox;
}

void setChoiceEditorData(QWidget* pqEditor, const QModelIndex& index)
{
    auto* pqComboBox = qobject_cast<QComboBox*>(pqEditor);
    if (!pqComboBox)
        return;
    const QString sCurrent = index.data(Qt::EditRole).toString();
    int iCurrent = pqComboBox->findText(sCurrent, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (iCurrent < 0) {
        pqComboBox->insertItem(0, sCurrent);
        iCurrent = 0;
    }
    pqComboBox->setCurrentIndex(iCurrent);
}

void setChoiceModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index)
{
    const auto* pqComboBox = qobject_cast<QComboBox*>(pqEditor);
    if (pqComboBox && pqModel && pqComboBox->currentText() != index.data(Qt::EditRole).toString())
        pqModel->setData(index, pqComboBox->currentText(), Qt::EditRole);
}

} // namespace gkBase

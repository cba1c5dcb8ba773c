#include "QVertexItemDelegate.h"

#include "MatrixData.h"
#include "QVertexItemModel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace gkBase {

namespace {

bool isColorCell(const QModelIndex& index)
{
    const auto* pqModel = qobject_cast<const QVertexItemModel*>(index.model());
    const MatrixData* poNode = pqModel ? pqModel->getNode(index.column()) : nullptr;
    return poNode && poNode->type() == QMetaType::QColor;
}

} // namespace

QVertexItemDelegate::QVertexItemDelegate(QObject* pqParent)
    : QStyledItemDelegate(pqParent)
{
}

QWidget* QVertexItemDelegate::createEditor(QWidget* pqParent, const QStyleOptionViewItem& /*option*/,
                                           const QModelIndex& index) const
{
    if (isColorCell(index))
        return nullptr;
    auto* pqLineEdit = new QLineEdit(pqParent);
    pqLineEdit->setFrame(false);
    pqLineEdit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    pqLineEdit->setAccessibleName(tr("Cell value"));
    return pqLineEdit;
}

void QVertexItemDelegate::setEditorData(QWidget* pqEditor, const QModelIndex& index) const
{
    if (auto* pqLineEdit = qobject_cast<QLineEdit*>(pqEditor))
        pqLineEdit->setText(index.data(Qt::EditRole).toString());
}

void QVertexItemDelegate::setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const
{
    // isModified(): an untouched editor, whose text has fewer digits than the value, writes nothing.
    const auto* pqLineEdit = qobject_cast<QLineEdit*>(pqEditor);
    if (pqLineEdit && pqLineEdit->isModified())
        pqModel->setData(index, pqLineEdit->text(), Qt::EditRole);
}

void QVertexItemDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(pOption, index);
    // Cells are light on every desktop; a check box takes its face from the palette and its mark from the dark text.
    pOption->palette.setColor(QPalette::Base, Qt::white);
    if (m_isSelected && m_isSelected(index))
        pOption->state |= QStyle::State_Selected;
}

void QVertexItemDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(pPainter, option, index);
    const bool bSelected = (option.state & QStyle::State_Selected) || (m_isSelected && m_isSelected(index));
    if (!bSelected)
        return;
    if (isColorCell(index)) {
        const QVariant qBrush = index.data(Qt::BackgroundRole);
        pPainter->fillRect(option.rect.adjusted(3, 3, -3, -3), qBrush.value<QBrush>());
    }
    if (m_isFramed && m_isFramed(index)) {
        pPainter->save();
        pPainter->setPen(QPen(option.palette.color(QPalette::HighlightedText), 1, Qt::DotLine));
        pPainter->drawRect(option.rect.adjusted(1, 1, -2, -2));
        pPainter->restore();
    }
}

bool QVertexItemDelegate::eventFilter(QObject* pqObject, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::KeyPress) {
        const int iKey = static_cast<QKeyEvent*>(pEvent)->key();
        auto* pqEditor = qobject_cast<QWidget*>(pqObject);
        if (pqEditor && (iKey == Qt::Key_Return || iKey == Qt::Key_Enter)) {
            emit commitData(pqEditor);
            emit setNextInColumn(pqEditor);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(pqObject, pEvent);
}

} // namespace gkBase

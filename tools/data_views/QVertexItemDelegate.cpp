#include "QVertexItemDelegate.h"

#include "CellValueEdit.h"
#include "MatrixData.h"
#include "QVertexItemModel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace gkBase {

namespace {

const MatrixData* attributeOf(const QModelIndex& index)
{
    const auto* pqModel = qobject_cast<const QVertexItemModel*>(index.model());
    return pqModel ? pqModel->getNode(index.column()) : nullptr;
}

bool isColorCell(const QModelIndex& index)
{
    const MatrixData* poNode = attributeOf(index);
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
    const MatrixData* poNode = attributeOf(index);
    return poNode && poNode->type() != QMetaType::QColor ? new CellValueEdit(*poNode, pqParent) : nullptr;
}

void QVertexItemDelegate::setEditorData(QWidget* pqEditor, const QModelIndex& index) const
{
    if (auto* pqValueEdit = qobject_cast<CellValueEdit*>(pqEditor))
        pqValueEdit->setText(index.data(Qt::EditRole).toString());
}

void QVertexItemDelegate::setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const
{
    // isModified(): an untouched editor, whose text has fewer digits than the value, writes nothing.
    const auto* pqValueEdit = qobject_cast<CellValueEdit*>(pqEditor);
    if (pqValueEdit && pqValueEdit->isModified() && pqValueEdit->isTextValid())
        pqModel->setData(index, pqValueEdit->cellText(), Qt::EditRole);
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
        auto* pqEditor = qobject_cast<CellValueEdit*>(pqObject);
        if (pqEditor && (iKey == Qt::Key_Return || iKey == Qt::Key_Enter)) {
            if (!pqEditor->isTextValid()) // stays open until the text is right or Esc drops it
                return true;
            emit commitData(pqEditor);
            emit setNextInColumn(pqEditor);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(pqObject, pEvent);
}

} // namespace gkBase

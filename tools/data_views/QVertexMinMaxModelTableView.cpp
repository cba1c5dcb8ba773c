#include "QVertexMinMaxModelTableView.h"

#include "QVertexMinMaxItemModel.h"
#include "UnitItemUnitDelegateImpl.h"

#include <QHeaderView>
#include <QScrollBar>

namespace gkBase {

QVertexMinMaxModelTableView::QVertexMinMaxModelTableView(QWidget* pqParent)
    : QVertexModelTableView(pqParent)
{
    auto* pqDelegate = new UnitItemUnitDelegateImpl(this);
    setItemDelegateForRow(QVertexMinMaxItemModel::Unit, pqDelegate);
    setItemDelegateForRow(QVertexMinMaxItemModel::UnitCategory, pqDelegate);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setDragDropMode(DragOnly);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize QVertexMinMaxModelTableView::sizeHint() const
{
    const int iRows = QVertexMinMaxItemModel::RowCount * verticalHeader()->defaultSectionSize();
    return {QTableView::sizeHint().width(), horizontalHeader()->sizeHint().height() + iRows + 2 * frameWidth()};
}

QSize QVertexMinMaxModelTableView::minimumSizeHint() const
{
    return {QTableView::minimumSizeHint().width(), sizeHint().height()};
}

void QVertexMinMaxModelTableView::updateMetrics()
{
    QVertexModelTableView::updateMetrics();
    updateGeometry();
}

void QVertexMinMaxModelTableView::slotSliderMoved(int iValue)
{
    m_iOffset = iValue;
    // The attribute table has a vertical scroll bar and so scrolls a little further than this one.
    if (iValue > horizontalScrollBar()->maximum())
        horizontalScrollBar()->setMaximum(iValue);
    horizontalScrollBar()->setValue(iValue);
}

void QVertexMinMaxModelTableView::updateGeometries()
{
    QVertexModelTableView::updateGeometries();
    if (m_iOffset != horizontalScrollBar()->value())
        slotSliderMoved(m_iOffset);
}

} // namespace gkBase

#include "QVertexModelTableView.h"

#include "MatrixData.h"
#include "QVertexItemDelegate.h"
#include "QVertexItemModel.h"
#include "UnitManager.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDrag>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QToolTip>

#include <algorithm>

namespace gkBase {

namespace {

/// The base class cuts long texts off at both ends, whatever its elide mode is. The tool tip has the whole name.
class ElidingHeaderView : public QHeaderView
{
public:
    explicit ElidingHeaderView(QWidget* pqParent)
        : QHeaderView(Qt::Horizontal, pqParent)
    {
        setSectionsClickable(true);
        setHighlightSections(true);
    }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* pOption, int iLogicalIndex) const override
    {
        QHeaderView::initStyleOptionForIndex(pOption, iLogicalIndex);
        QFont oFont = font();
        oFont.setBold(true); // as headers of selected columns are
        const int iMargin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
        pOption->text =
            QFontMetrics(oFont).elidedText(pOption->text, Qt::ElideRight, sectionSize(iLogicalIndex) - 2 * iMargin);
    }
};

QColor askForColor(const QColor& oInitial, QWidget* pqParent)
{
    return QColorDialog::getColor(oInitial, pqParent);
}

} // namespace

QVertexModelTableView::QVertexModelTableView(QWidget* pqParent)
    : QTableView(pqParent)
    , m_pqDelegate(new QVertexItemDelegate(this))
    , m_chooseColor(askForColor)
{
    setItemDelegate(m_pqDelegate);
    setHorizontalHeader(new ElidingHeaderView(this));
    m_pqDelegate->setSelectedTest([this](const QModelIndex& index) {
        return m_bUnmirrored && m_oUnmirrored.contains(index.row(), index.column());
    });
    m_pqDelegate->setFramedTest([this](const QModelIndex& index) {
        const QVertexItemModel* pqModel = vertexModel();
        const MatrixData* poNode = pqModel ? pqModel->getNode(index.column()) : nullptr;
        return m_bVertexHighlight && poNode && poNode->isVertex();
    });
    connect(m_pqDelegate, &QVertexItemDelegate::setNextInColumn, this, &QVertexModelTableView::slotSetNextInColumn);

    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::CopyAction);
    connectHeaders();
    QVertexModelTableView::updateMetrics();
}

QVertexModelTableView::~QVertexModelTableView() = default;

void QVertexModelTableView::connectHeaders()
{
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // never by contents: that asks every row
    horizontalHeader()->viewport()->installEventFilter(this);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &QVertexModelTableView::sectionResized);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &QVertexModelTableView::sectionClicked);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &QVertexModelTableView::sliderMoved);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &QVertexModelTableView::slotVerticalScrollBarChanged);
}

QVertexItemModel* QVertexModelTableView::vertexModel() const
{
    return qobject_cast<QVertexItemModel*>(model());
}

void QVertexModelTableView::setModel(QAbstractItemModel* pqModel)
{
    if (model()) {
        disconnect(model(), &QAbstractItemModel::modelAboutToBeReset, this,
                   &QVertexModelTableView::slotModelAboutToBeReset);
        disconnect(model(), &QAbstractItemModel::modelReset, this, &QVertexModelTableView::slotModelReset);
    }
    m_bUnmirrored = false;
    m_oUnmirrored = CellRuns();
    QTableView::setModel(pqModel); // connects reset() first, so that slotModelReset() runs after it
    if (pqModel) {
        connect(pqModel, &QAbstractItemModel::modelAboutToBeReset, this,
                &QVertexModelTableView::slotModelAboutToBeReset);
        connect(pqModel, &QAbstractItemModel::modelReset, this, &QVertexModelTableView::slotModelReset);
    }
    updateMetrics();
}

void QVertexModelTableView::updateMetrics()
{
    const QFontMetrics oMetrics(font());
    verticalHeader()->setDefaultSectionSize(oMetrics.height() + 6);
    // Both tables get the same width, so that their columns stand below each other.
    const QVertexItemModel* pqModel = vertexModel();
    const QString sNumber = QString::number(pqModel ? pqModel->largestRowNumber() : 1);
    const int iDigits = oMetrics.horizontalAdvance(QString(sNumber.size(), u'8'));
    const int iLabel = oMetrics.horizontalAdvance(tr("Unit Category"));
    verticalHeader()->setFixedWidth(std::max(iDigits, iLabel) + 2 * oMetrics.averageCharWidth() + 6);
}

void QVertexModelTableView::changeEvent(QEvent* pEvent)
{
    QTableView::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange)
        updateMetrics();
}

void QVertexModelTableView::updateView()
{
    updateMetrics();
    scheduleDelayedItemsLayout();
    horizontalHeader()->viewport()->update();
    verticalHeader()->viewport()->update();
    viewport()->update();
}

void QVertexModelTableView::resizeColumnsToHeaderContents()
{
    for (int iColumn = 0; model() && iColumn < model()->columnCount(); ++iColumn)
        setColumnWidth(iColumn, horizontalHeader()->sectionSizeHint(iColumn));
}

void QVertexModelTableView::setAllColumnWidth(int iWidth)
{
    if (iWidth < 0)
        iWidth = QFontMetrics(font()).horizontalAdvance(QStringLiteral("-88888.8888")) + 12;
    for (int iColumn = 0; model() && iColumn < model()->columnCount(); ++iColumn)
        setColumnWidth(iColumn, iWidth);
}

void QVertexModelTableView::setRowsHidden(int iFirstRow, int iLastRow, bool bHidden)
{
    const int iRows = model() ? model()->rowCount() : 0;
    for (int iRow = std::max(iFirstRow, 0); iRow <= std::min(iLastRow, iRows - 1); ++iRow)
        setRowHidden(iRow, bHidden);
}

void QVertexModelTableView::slotSectionResized(int iLogicalIndex, int /*iOldSize*/, int iNewSize)
{
    if (columnWidth(iLogicalIndex) != iNewSize)
        setColumnWidth(iLogicalIndex, iNewSize);
}

void QVertexModelTableView::slotVerticalScrollBarChanged(int /*iValue*/)
{
    // The rectangle goes over cell borders, which scrolling by pixels would leave behind.
    if (m_bSelectionRectangle)
        viewport()->update();
}

bool QVertexModelTableView::eventFilter(QObject* pqObject, QEvent* pEvent)
{
    if (pqObject == horizontalHeader()->viewport() && pEvent->type() == QEvent::ToolTip) {
        const auto* pHelpEvent = static_cast<QHelpEvent*>(pEvent);
        const QString sToolTip = headerToolTip(horizontalHeader()->logicalIndexAt(pHelpEvent->pos()));
        if (!sToolTip.isEmpty()) {
            QToolTip::showText(pHelpEvent->globalPos(), sToolTip, horizontalHeader());
            return true;
        }
    }
    return QTableView::eventFilter(pqObject, pEvent);
}

QString QVertexModelTableView::headerToolTip(int iColumn) const
{
    const MatrixData* poNode = vertexModel() ? vertexModel()->getNode(iColumn) : nullptr;
    if (!poNode)
        return {};
    const QString sUnit = poNode->unitManager()->getDisplayUnitTag();
    QString sToolTip = sUnit.isEmpty() ? poNode->name() : tr("%1 (%2)").arg(poNode->name(), sUnit);
    if (poNode->owner())
        sToolTip += u'\n' + poNode->owner()->name();
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(sToolTip.toHtmlEscaped());
}

// ---- cells ---------------------------------------------------------------------------------------------------------

void QVertexModelTableView::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->matches(QKeySequence::Copy)) {
        copyToClipboard();
    } else if (pEvent->matches(QKeySequence::Paste)) {
        pasteFromClipboard();
    } else if (pEvent->key() == Qt::Key_Delete && pEvent->modifiers() == Qt::NoModifier) {
        clearSelectedCells();
    } else if (pEvent->key() == Qt::Key_Escape) {
        clearSelection();
        emit selectionChangedByUser(); // also without a selection here: a chart may show one of rows that are not
    } else if (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter) {
        if (isColorCell(currentIndex()))
            chooseColor(currentIndex());
        else
            moveDown();
    } else {
        QTableView::keyPressEvent(pEvent);
        return;
    }
    pEvent->accept();
}

void QVertexModelTableView::moveDown()
{
    const QModelIndex next = currentIndex().siblingAtRow(currentIndex().row() + 1);
    if (next.isValid())
        setCurrentIndex(next);
}

void QVertexModelTableView::slotSetNextInColumn(QWidget* pqRect)
{
    if (!pqRect)
        return;
    const QPersistentModelIndex edited = indexAt(pqRect->geometry().center());
    closeEditor(pqRect, QAbstractItemDelegate::NoHint);
    if (!edited.isValid())
        return;
    if (edited.row() == model()->rowCount() - 1)
        extendRows();
    const QModelIndex next = edited.sibling(edited.row() + 1, edited.column());
    if (!next.isValid())
        return;
    selectionModel()->setCurrentIndex(next, m_bUnmirrored || selectionMode() == MultiSelection
                                                ? QItemSelectionModel::NoUpdate
                                                : QItemSelectionModel::ClearAndSelect);
    scrollTo(next);
    if (next.flags() & Qt::ItemIsEditable)
        QTableView::edit(next);
}

bool QVertexModelTableView::isColorCell(const QModelIndex& index) const
{
    const QVertexItemModel* pqModel = vertexModel();
    const MatrixData* poNode = pqModel && index.isValid() ? pqModel->getNode(index.column()) : nullptr;
    return poNode && poNode->type() == QMetaType::QColor && (index.flags() & Qt::ItemIsEditable);
}

bool QVertexModelTableView::chooseColor(const QModelIndex& index)
{
    const QPersistentModelIndex cell = index; // the dialog lets events through
    const QVertexItemModel* pqModel = vertexModel();
    const auto oOld = pqModel->getNode(index.column())->value(pqModel->row(index), 0).value<QColor>();
    const QColor oColor = m_chooseColor ? m_chooseColor(oOld.isValid() ? oOld : QColor(Qt::white), this) : QColor();
    return oColor.isValid() && cell.isValid() && model()->setData(cell, oColor, Qt::EditRole);
}

bool QVertexModelTableView::edit(const QModelIndex& index, EditTrigger eTrigger, QEvent* pEvent)
{
    if (!isColorCell(index) || (vertexModel() && vertexModel()->inherits("gkBase::QVertexMinMaxItemModel")))
        return QTableView::edit(index, eTrigger, pEvent);
    if (eTrigger == DoubleClicked || eTrigger == EditKeyPressed)
        chooseColor(index);
    return eTrigger == DoubleClicked || eTrigger == EditKeyPressed;
}

QMimeData* QVertexModelTableView::getSelectedData() const
{
    return vertexModel() ? vertexModel()->mimeDataForCopy(selectedCells()) : nullptr;
}

void QVertexModelTableView::copyToClipboard() const
{
    if (QMimeData* pMimeData = getSelectedData())
        QApplication::clipboard()->setMimeData(pMimeData);
}

void QVertexModelTableView::pasteFromClipboard()
{
    if (const QMimeData* pMimeData = QApplication::clipboard()->mimeData())
        setMimeData(*pMimeData);
}

bool QVertexModelTableView::setMimeData(const QMimeData& oMimeData)
{
    QVertexItemModel* pqModel = vertexModel();
    if (!pqModel)
        return false;
    int iRow = currentIndex().row();
    int iColumn = currentIndex().column();
    const CellRuns oCells = selectedCells();
    if (!oCells.isEmpty()) {
        iRow = oCells.touchedRows().front().iFirst;
        iColumn = 0;
        while (oCells.column(iColumn).empty())
            ++iColumn;
    }
    if (iRow < 0 || iColumn < 0)
        return false;
    // The rows above the data are summaries; a paste that begins there begins with the first data row.
    iRow = std::max(iRow, pqModel->rowMap().firstDataRow(pqModel->rowCount()));
    return pqModel->setMimeData(oMimeData, iRow, iColumn);
}

bool QVertexModelTableView::clearSelectedCells()
{
    QVertexItemModel* pqModel = vertexModel();
    if (!pqModel)
        return false;
    const CellRuns oCells = selectedCells();
    if (oCells.cellCount() != 1)
        return pqModel->modifySelectedCells(oCells, QVariant(), CellModification::Clear);
    const QModelIndexList lIndexes = sortedSelectedIndexes();
    return !lIndexes.isEmpty() && pqModel->setData(lIndexes.first(), QString(), Qt::EditRole);
}

bool QVertexModelTableView::extendRows()
{
    QVertexItemModel* pqModel = vertexModel();
    if (!pqModel || !pqModel->rowsCanBeExtended())
        return false;
    pqModel->extendRows();
    return true;
}

void QVertexModelTableView::startDrag(Qt::DropActions /*eSupportedActions*/)
{
    // Not the base class's way, which makes an index of every selected cell.
    QMimeData* pMimeData = getSelectedData();
    if (!pMimeData)
        return;
    auto* pqDrag = new QDrag(this);
    pqDrag->setMimeData(pMimeData);
    pqDrag->exec(Qt::CopyAction);
}

// ---- painting ------------------------------------------------------------------------------------------------------

void QVertexModelTableView::paintEvent(QPaintEvent* pEvent)
{
    QTableView::paintEvent(pEvent);
    if (m_bSelectionRectangle && !m_bUnmirrored && selectionModel() && selectionModel()->selection().size() == 1)
        paintSelectionRectangle();
}

void QVertexModelTableView::paintSelectionRectangle()
{
    const QItemSelectionRange oRange = selectionModel()->selection().first();
    // Of a tall block only the part around the visible rows has coordinates worth painting.
    const int iTop = std::max(oRange.top(), std::max(rowAt(0), 0) - 1);
    const int iLastVisible = rowAt(viewport()->height() - 1);
    const int iBottom = iLastVisible < 0 ? oRange.bottom() : std::min(oRange.bottom(), iLastVisible + 1);
    if (iTop > iBottom)
        return;
    const QRect oBlock =
        visualRect(model()->index(iTop, oRange.left())).united(visualRect(model()->index(iBottom, oRange.right())));
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Highlight).darker(150), 2));
    painter.drawRect(oBlock.adjusted(0, 0, -1, -1));
}

void QVertexModelTableView::turnOffSelectionRectangle()
{
    m_bSelectionRectangle = false;
    viewport()->repaint();
}

void QVertexModelTableView::setVertexHighlightOn(bool bOn)
{
    m_bVertexHighlight = bOn;
    viewport()->update();
}

} // namespace gkBase

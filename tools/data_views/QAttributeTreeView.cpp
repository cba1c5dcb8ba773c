#include "QAttributeTreeView.h"

#include "MatrixData.h"
#include "QTreeItemModel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFile>
#include <QIcon>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace gkBase {

namespace {

/// Empty when the host brings no such picture.
QIcon hostIcon(const QString& sPath)
{
    return QFile::exists(sPath) ? QIcon(sPath) : QIcon();
}

} // namespace

struct QAttributeTreeView::ViewState
{
    std::vector<int> m_viCollapsed; ///< data sets, rising
    std::vector<int> m_viSelected;  ///< in selection order
    int m_iCurrent = -1;
    int m_iScrollPosition = 0;
};

QAttributeTreeView::QAttributeTreeView(QWidget* pqParent, QMenu* pqMenu)
    : QTreeView(pqParent)
    , m_pqMenu(pqMenu)
{
    setAccessibleName(tr("Data sets and attributes"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDefaultDropAction(Qt::CopyAction);
    if (!m_pqMenu)
        m_pqMenu = createDefaultPopupMenu();
    // The model's parent() names a data set with a row that is not its own; whoever expands that index means the
    // data set.
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) { setExpanded(ownIndex(index), true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { setExpanded(ownIndex(index), false); });
}

QAttributeTreeView::~QAttributeTreeView() = default;

QMenu* QAttributeTreeView::menu() const
{
    return m_pqMenu;
}

QMenu* QAttributeTreeView::createDefaultPopupMenu()
{
    auto* pqMenu = new QMenu(QCoreApplication::translate("QAttributeTreeView", "Default Menu"), this);
    QAction* pqColorAction =
        pqMenu->addAction(hostIcon(QStringLiteral(":/orrel/Resources/color_swatch.png")),
                          QCoreApplication::translate("QAttributeTreeView", "Edit Attribute Colour..."));
    pqColorAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    // Two trees in one window must not make the shortcut ambiguous.
    pqColorAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(pqColorAction, &QAction::triggered, this, &QAttributeTreeView::changeColor);
    addAction(pqColorAction);
    return pqMenu;
}

void QAttributeTreeView::setColorPicker(ColorPicker fnPicker)
{
    m_fnColorPicker = std::move(fnPicker);
}

QTreeItemModel* QAttributeTreeView::treeModel() const
{
    return qobject_cast<QTreeItemModel*>(model());
}

QModelIndex QAttributeTreeView::ownIndex(const QModelIndex& index) const
{
    const QTreeItemModel* pqModel = treeModel();
    return pqModel && index.isValid() ? pqModel->indexFromNode(pqModel->nodeFromIndex(index)) : index;
}

// ---- selected nodes -------------------------------------------------------------------------------------------------

MatrixData* QAttributeTreeView::firstSelected() const
{
    const QTreeItemModel* pqModel = treeModel();
    const QModelIndexList lIndexes = selectedIndexes();
    return pqModel && !lIndexes.isEmpty() ? pqModel->nodeFromIndex(lIndexes.first()) : nullptr;
}

std::vector<MatrixData*> QAttributeTreeView::allSelected() const
{
    std::vector<MatrixData*> vpAttributes;
    if (const QTreeItemModel* pqModel = treeModel()) {
        for (const QModelIndex& index : selectedIndexes()) {
            MatrixData* poNode = pqModel->nodeFromIndex(index);
            if (poNode && poNode->owner())
                vpAttributes.push_back(poNode);
        }
    }
    return vpAttributes;
}

QMimeData* QAttributeTreeView::getSelectedData() const
{
    const QTreeItemModel* pqModel = treeModel();
    return pqModel ? pqModel->getHTML_MimeData(selectedIndexes()) : nullptr;
}

bool QAttributeTreeView::copyToClipboard() const
{
    std::unique_ptr<QMimeData> pMimeData(getSelectedData());
    if (!pMimeData || pMimeData->formats().isEmpty())
        return false;
    QApplication::clipboard()->setMimeData(pMimeData.release());
    return true;
}

void QAttributeTreeView::deleteSelectedAttributes()
{
    QTreeItemModel* pqModel = treeModel();
    if (!pqModel)
        return;
    const QModelIndexList lIndexes = selectedIndexes();
    clearSelection();
    pqModel->deleteSelectedRows(lIndexes);
    expandAll();
}

void QAttributeTreeView::changeColor()
{
    if (!treeModel() || !selectionModel() || !selectionModel()->hasSelection())
        return;
    // The dialog runs the event loop: the view may be gone afterwards, and the selection another one.
    const QPointer<QAttributeTreeView> pqThis(this);
    const QColor oColor = m_fnColorPicker ? m_fnColorPicker(Qt::white, this) : QColorDialog::getColor(Qt::white, this);
    if (!pqThis || !oColor.isValid() || !treeModel())
        return;
    treeModel()->changeAttributeColor(selectedIndexes(), oColor);
    viewport()->update();
    emit treeItemsChanged();
}

// ---- resets ---------------------------------------------------------------------------------------------------------

// Called by setModel() too. The selection model clears itself on a reset; restoring must come after it.
void QAttributeTreeView::setSelectionModel(QItemSelectionModel* pqSelectionModel)
{
    QTreeView::setSelectionModel(pqSelectionModel);
    disconnect(m_oAboutToBeReset);
    disconnect(m_oReset);
    m_pState.reset();
    noteDataSets();
    if (!model())
        return;
    m_oAboutToBeReset =
        connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, &QAttributeTreeView::rememberState);
    m_oReset = connect(model(), &QAbstractItemModel::modelReset, this, &QAttributeTreeView::restoreState);
}

void QAttributeTreeView::rememberState()
{
    const QTreeItemModel* pqModel = treeModel();
    if (!pqModel)
        return;
    m_pState = std::make_unique<ViewState>();
    // An insertion has moved rows already; the indexes noted before it still say what is expanded.
    for (const auto& [iId, dataSet] : m_vDataSets)
        if (dataSet.isValid() && !isExpanded(dataSet))
            m_pState->m_viCollapsed.push_back(iId);
    std::sort(m_pState->m_viCollapsed.begin(), m_pState->m_viCollapsed.end());
    for (const QModelIndex& index : selectedIndexes())
        m_pState->m_viSelected.push_back(pqModel->nodeFromIndex(index)->globalID());
    if (currentIndex().isValid())
        m_pState->m_iCurrent = pqModel->nodeFromIndex(currentIndex())->globalID();
    m_pState->m_iScrollPosition = verticalScrollBar()->value();
}

void QAttributeTreeView::noteDataSets()
{
    m_vDataSets.clear();
    if (const QTreeItemModel* pqModel = treeModel()) {
        for (int iRow = 0; iRow < pqModel->rowCount(); ++iRow) {
            const QModelIndex dataSet = pqModel->index(iRow, 0);
            m_vDataSets.emplace_back(pqModel->nodeFromIndex(dataSet)->globalID(), dataSet);
        }
    }
}

void QAttributeTreeView::restoreState()
{
    noteDataSets();
    const std::unique_ptr<ViewState> pState = std::move(m_pState);
    const QTreeItemModel* pqModel = treeModel();
    if (!pState || !pqModel || !pqModel->dataRoot() || !selectionModel())
        return;
    const QScopedValueRollback<bool> oRestoring(m_bRestoring, true);
    for (const auto& [iId, dataSet] : m_vDataSets) {
        setExpanded(dataSet, !std::binary_search(pState->m_viCollapsed.begin(), pState->m_viCollapsed.end(), iId));
    }
    const auto fnIndex = [pqModel](int iId) { return pqModel->indexFromNode(pqModel->dataRoot()->nodeFromID(iId)); };
    QItemSelection oSelection;
    for (const int iId : pState->m_viSelected) {
        const QModelIndex index = fnIndex(iId);
        if (index.isValid())
            oSelection.append(QItemSelectionRange(index));
    }
    selectionModel()->select(oSelection, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(fnIndex(pState->m_iCurrent), QItemSelectionModel::NoUpdate);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(pState->m_iScrollPosition);
}

void QAttributeTreeView::updateView()
{
    rememberState();
    reset();
    restoreState();
    expandAll();
}

void QAttributeTreeView::expandAll()
{
    if (!model())
        return;
    for (int iRow = 0; iRow < model()->rowCount(); ++iRow)
        setExpanded(model()->index(iRow, 0), true);
}

// ---- navigation -----------------------------------------------------------------------------------------------------

void QAttributeTreeView::scrollTo(const QModelIndex& index, ScrollHint eHint)
{
    if (m_bRestoring)
        return;
    const bool bExpandable = itemsExpandable();
    if (bExpandable && state() == NoState && index.parent().isValid())
        setExpanded(ownIndex(index.parent()), true);
    // The base class would expand the parent by the row that parent() gives.
    setItemsExpandable(false);
    QTreeView::scrollTo(index, eHint);
    setItemsExpandable(bExpandable);
}

QModelIndex QAttributeTreeView::moveCursor(CursorAction eAction, Qt::KeyboardModifiers eModifiers)
{
    return ownIndex(QTreeView::moveCursor(eAction, eModifiers));
}

void QAttributeTreeView::keyPressEvent(QKeyEvent* pqEvent)
{
    if (pqEvent->matches(QKeySequence::Delete) && state() != EditingState) {
        deleteSelectedAttributes();
        pqEvent->accept();
        return;
    }
    if (pqEvent->matches(QKeySequence::Copy) && state() != EditingState) {
        copyToClipboard();
        pqEvent->accept();
        return;
    }
    QTreeView::keyPressEvent(pqEvent);
}

// A drag out of the tree copies: after a move the base class would remove the rows that were dragged.
void QAttributeTreeView::startDrag(Qt::DropActions)
{
    QTreeView::startDrag(Qt::CopyAction);
}

// ---- menu -----------------------------------------------------------------------------------------------------------

void QAttributeTreeView::mouseReleaseEvent(QMouseEvent* pqEvent)
{
    const QPointer<QAttributeTreeView> pqThis(this);
    if (pqEvent->button() == Qt::RightButton && m_pqMenu)
        m_pqMenu->exec(pqEvent->globalPosition().toPoint());
    if (pqThis)
        QTreeView::mouseReleaseEvent(pqEvent);
}

// The mouse opens the menu on release; left to the parents, its event would open a second one there.
void QAttributeTreeView::contextMenuEvent(QContextMenuEvent* pqEvent)
{
    pqEvent->accept();
    if (pqEvent->reason() == QContextMenuEvent::Mouse || !m_pqMenu)
        return;
    const QRect itemRect = visualRect(currentIndex());
    const QPoint position = itemRect.isValid() ? itemRect.center() : viewport()->rect().center();
    m_pqMenu->exec(viewport()->mapToGlobal(position));
}

// ---- painting -------------------------------------------------------------------------------------------------------

// As the base class draws them, but with the data set's own place among its siblings.
void QAttributeTreeView::drawBranches(QPainter* pPainter, const QRect& rect, const QModelIndex& index) const
{
    const QModelIndex dataSet = ownIndex(index.parent());
    if (!dataSet.isValid() || !rootIsDecorated()) {
        QTreeView::drawBranches(pPainter, rect, index);
        return;
    }
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const bool bRightToLeft = isRightToLeft();
    const int iIndent = indentation();
    const QStyle::State eBase =
        (option.state & ~(QStyle::State_MouseOver | QStyle::State_HasFocus)) | QStyle::State_None;
    const auto fnDraw = [&](int iLevel, bool bItem, bool bMoreSiblings) {
        const int iLeft = bRightToLeft ? rect.right() + 1 - (iLevel + 1) * iIndent : rect.left() + iLevel * iIndent;
        option.rect = QRect(iLeft, rect.top(), iIndent, rect.height());
        option.state = eBase | (bItem ? QStyle::State_Item : QStyle::State_None) |
                       (bMoreSiblings ? QStyle::State_Sibling : QStyle::State_None);
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, pPainter, this);
    };
    const QAbstractItemModel* pqModel = model();
    fnDraw(0, false, dataSet.row() < pqModel->rowCount() - 1);
    fnDraw(1, true, index.row() < pqModel->rowCount(dataSet) - 1);
}

} // namespace gkBase

#include "ScatLineList.h"

#include "DepthLineField.h"
#include "ScatLineDelegate.h"
#include "ScatLineModel.h"
#include "ScatScenarios.h"

#include <QAction>
#include <QColorDialog>
#include <QEvent>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iRowPadding = 6;
constexpr int g_iLeastRows = 5;
constexpr int g_iNarrowestName = 90;
constexpr QSize g_oSizeHint(340, 240);

} // namespace

ScatLineList::ScatLineList(ScatScenarios* pqScenarios, QWidget* pqParent)
    : QTableView(pqParent)
    , m_pqScenarios(pqScenarios)
    , m_pqModel(new ScatLineModel(pqScenarios, this))
    , m_pqGoToAction(new QAction(tr("Go to Depth"), this))
    , m_pqRenameAction(new QAction(tr("Rename..."), this))
    , m_pqColorAction(new QAction(tr("Modify Colour..."), this))
    , m_pqDeleteAction(new QAction(tr("Delete"), this))
    , m_fnChooseColor([](const QColor& oInitial, QWidget* pqDialogParent) {
        return QColorDialog::getColor(oInitial, pqDialogParent);
    })
{
    setUpView();
    setUpActions();
    // After the model, which hears of changes first.
    connect(m_pqModel, &QAbstractItemModel::modelReset, this, &ScatLineList::fitColumns);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ScatLineList::pickSelected);
    connect(this, &QTableView::doubleClicked, this, &ScatLineList::goToDepth);
    if (pqScenarios) {
        connect(pqScenarios, &ScatScenarios::activeChanged, this, &ScatLineList::showPicks);
        connect(pqScenarios, &ScatScenarios::linesChanged, this, &ScatLineList::showPicks);
        connect(pqScenarios, &ScatScenarios::pickChanged, this, &ScatLineList::showPicks);
    }
    fitColumns();
    showPicks();
}

void ScatLineList::setUpView()
{
    setModel(m_pqModel);
    setItemDelegate(new ScatLineDelegate(this));
    setAccessibleName(tr("Interpreted lines"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(ScatLineDelegate::colorColumnWidth());
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(ScatLineModel::NameColumn, QHeaderView::Stretch);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void ScatLineList::setUpActions()
{
    m_pqDeleteAction->setShortcut(QKeySequence::Delete);
    m_pqDeleteAction->setShortcutContext(Qt::WidgetShortcut);
    connect(m_pqGoToAction, &QAction::triggered, this, [this] { goToDepth(currentIndex()); });
    connect(m_pqRenameAction, &QAction::triggered, this, &ScatLineList::renamePicked);
    connect(m_pqColorAction, &QAction::triggered, this, &ScatLineList::chooseColorOfPicked);
    connect(m_pqDeleteAction, &QAction::triggered, this, &ScatLineList::deletePicked);
    addActions({m_pqGoToAction, m_pqRenameAction, m_pqColorAction, m_pqDeleteAction});
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void ScatLineList::setDepthAttribute(const MatrixData* poDepth)
{
    m_pqModel->setDepthAttribute(poDepth);
    fitColumns();
}

QSize ScatLineList::sizeHint() const
{
    return g_oSizeHint;
}

QSize ScatLineList::minimumSizeHint() const
{
    return {QTableView::minimumSizeHint().width(),
            horizontalHeader()->sizeHint().height() + g_iLeastRows * rowHeightForText() + 2 * frameWidth()};
}

int ScatLineList::rowHeightForText() const
{
    return fontMetrics().height() + g_iRowPadding;
}

void ScatLineList::fitColumns()
{
    verticalHeader()->setDefaultSectionSize(rowHeightForText());
    for (const int iColumn : {ScatLineModel::TypeColumn, ScatLineModel::DepthColumn, ScatLineModel::OrientationColumn})
        resizeColumnToContents(iColumn);
    setColumnWidth(ScatLineModel::ColorColumn,
                   std::max(ScatLineDelegate::colorColumnWidth(),
                            horizontalHeader()->sectionSizeHint(ScatLineModel::ColorColumn)));
    int iName = viewport()->width();
    for (int iColumn = ScatLineModel::TypeColumn; iColumn < ScatLineModel::ColumnCount; ++iColumn)
        iName -= columnWidth(iColumn);
    if (iName < g_iNarrowestName)
        setColumnWidth(ScatLineModel::TypeColumn,
                       std::max(ScatLineDelegate::letterColumnWidth(fontMetrics()),
                                horizontalHeader()->sectionSizeHint(ScatLineModel::TypeColumn)));
}

void ScatLineList::resizeEvent(QResizeEvent* pEvent)
{
    QTableView::resizeEvent(pEvent);
    if (pEvent->size().width() != pEvent->oldSize().width())
        fitColumns();
}

void ScatLineList::changeEvent(QEvent* pEvent)
{
    QTableView::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange)
        fitColumns();
}

void ScatLineList::paintEvent(QPaintEvent* pEvent)
{
    QTableView::paintEvent(pEvent);
    if (m_pqModel->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(g_iRowPadding, g_iRowPadding, -g_iRowPadding, -g_iRowPadding),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     tr("No lines yet. Choose a kind of line, then click on a track."));
}

// ---- picks ----------------------------------------------------------------------------------------------------------

std::vector<int> ScatLineList::selectedLines() const
{
    std::vector<int> viLines;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int iRow = range.top(); iRow <= range.bottom(); ++iRow)
            viLines.push_back(m_pqModel->lineAt(iRow));
    std::sort(viLines.begin(), viLines.end());
    return viLines;
}

std::vector<int> ScatLineList::pickedLines() const
{
    const DepthLineField* pField = m_pqScenarios ? m_pqScenarios->lines() : nullptr;
    return pField ? pField->selectedLines() : std::vector<int>();
}

void ScatLineList::showPicks()
{
    const std::vector<int> viPicked = pickedLines();
    if (viPicked != selectedLines()) {
        QItemSelection selection;
        int iFirst = m_pqModel->rowCount();
        for (const int iLine : viPicked) {
            const int iRow = m_pqModel->rowOf(iLine);
            selection.select(m_pqModel->index(iRow, 0), m_pqModel->index(iRow, ScatLineModel::ColumnCount - 1));
            iFirst = std::min(iFirst, iRow);
        }
        const QScopedValueRollback guard(m_bShowingPicks, true);
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        if (!viPicked.empty() && !selectionModel()->isRowSelected(currentIndex().row()))
            selectionModel()->setCurrentIndex(m_pqModel->index(iFirst, 0), QItemSelectionModel::NoUpdate);
        if (!viPicked.empty())
            scrollTo(m_pqModel->index(iFirst, 0));
    }
    updateActions();
}

void ScatLineList::pickSelected()
{
    if (m_bShowingPicks || !m_pqScenarios)
        return;
    const QScopedValueRollback guard(m_bShowingPicks, true);
    m_pqScenarios->pick(selectedLines(), false);
}

// ---- edits ----------------------------------------------------------------------------------------------------------

void ScatLineList::updateActions()
{
    const bool bPicked = !pickedLines().empty();
    for (QAction* pqAction : actions())
        pqAction->setEnabled(bPicked);
}

void ScatLineList::goToDepth(const QModelIndex& index)
{
    if (index.isValid())
        emit depthActivated(m_pqModel->line(index.row()).m_dDepth);
}

void ScatLineList::keyPressEvent(QKeyEvent* pEvent)
{
    const bool bEnter = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
    if (bEnter && state() != EditingState && currentIndex().isValid())
        edit(currentIndex());
    else
        QTableView::keyPressEvent(pEvent);
}

bool ScatLineList::edit(const QModelIndex& index, EditTrigger eTrigger, QEvent* pEvent)
{
    // A click comes here first, and again as AllEditTriggers when no second one has made it a double click.
    const bool bNow = eTrigger == AllEditTriggers || eTrigger == EditKeyPressed;
    if (index.column() != ScatLineModel::ColorColumn || !bNow)
        return QTableView::edit(index, eTrigger, pEvent);
    chooseColor(index);
    return true;
}

void ScatLineList::chooseColor(const QModelIndex& index)
{
    const QPersistentModelIndex cell = index; // the dialog lets events through
    const QPointer<ScatLineList> pqThis = this;
    const QColor oColor = m_fnChooseColor(m_pqModel->line(index.row()).m_oColor, this);
    if (pqThis && cell.isValid() && oColor.isValid())
        m_pqModel->setData(cell, oColor, Qt::EditRole);
}

void ScatLineList::chooseColorOfPicked()
{
    const std::vector<int> viPicked = pickedLines();
    if (viPicked.empty())
        return;
    const QPointer<ScatLineList> pqThis = this;
    const QColor oColor = m_fnChooseColor(m_pqScenarios->lines()->line(viPicked.front()).m_oColor, this);
    if (pqThis && m_pqScenarios && oColor.isValid())
        m_pqScenarios->setPickedColor(oColor);
}

void ScatLineList::renamePicked()
{
    const std::vector<int> viPicked = pickedLines();
    if (viPicked.empty())
        return;
    const QPointer<ScatLineList> pqThis = this;
    bool bAccepted = false;
    const QString sName = QInputDialog::getText(this, tr("Rename"), tr("New Name"), QLineEdit::Normal,
                                                m_pqScenarios->lines()->line(viPicked.front()).m_sName, &bAccepted);
    if (pqThis && m_pqScenarios && bAccepted)
        m_pqScenarios->setPickedName(sName);
}

void ScatLineList::deletePicked()
{
    if (!m_pqScenarios)
        return;
    const QModelIndex current = currentIndex();
    m_pqScenarios->erasePicked();
    // The keys go on from where the lines were.
    const int iRow = std::min(current.row(), m_pqModel->rowCount() - 1);
    if (iRow >= 0)
        selectionModel()->setCurrentIndex(m_pqModel->index(iRow, current.column()), QItemSelectionModel::NoUpdate);
}

} // namespace gkBase

#include "QDataAnalyserDialog.h"

#include "AnalyserTablePage.h"
#include "MatrixDataNotifier.h"
#include "QAttributeTreeView.h"
#include "QHistogramChartWidget.h"
#include "QSelectCellsDialog.h"
#include "QTreeItemModel.h"
#include "QVertexItemModel.h"
#include "QVertexMinMaxItemModel.h"
#include "QVertexMinMaxModelTableView.h"
#include "QVertexModelTableView.h"
#include "TabWidgetWithFloatingTabs.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QIcon>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabBar>
#include <QTimer>

#include <memory>

namespace gkBase {

namespace {

constexpr char g_tablePage[] = "TABLE";
constexpr char g_histogramPage[] = "HISTOGRAM";
constexpr std::array<const char*, 3> g_orientationPages = {"ROSEPLOT", "STEREOPLOT", "TANGENTPLOT"};

constexpr char g_filePathGroup[] = "attribute_analyser/last_trn_data_analyser_file_path";
constexpr char g_splitterGroup[] = "attribute_analyser/tree_splitter_size";

QString browserText(const char* pText)
{
    return QCoreApplication::translate("AttributeBrowser", pText);
}

QIcon pageIcon(const char* pName)
{
    return QIcon(QStringLiteral(":/gkBaseQt/Resources/") + QLatin1String(pName));
}

QIcon actionIcon(const char* pName)
{
    return QIcon(QStringLiteral(":/orrel/Resources/") + QLatin1String(pName));
}

QString chooseCsvFile(QWidget* pqParent, const QString& sStartPath)
{
    const QFileInfo oStart(sStartPath);
    QFileDialog dialog(pqParent, QDataAnalyserDialog::tr("Save As"), oStart.absolutePath(),
                       QStringLiteral("CSV(Comma delimited)(*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("csv"));
    dialog.selectFile(oStart.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constLast();
}

/// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

QDataAnalyserDialog::QDataAnalyserDialog(QWidget* pqParent) : QWidget(pqParent), m_fnFileChooser(chooseCsvFile) {}

QDataAnalyserDialog::~QDataAnalyserDialog()
{
    for (const QMetaObject::Connection& connection : m_lRootConnections)
        disconnect(connection);
    delete m_pqSelectCellsDialog;
}

void QDataAnalyserDialog::initialize(const QString& sName, QMenu* pqMenu, Qt::Orientation eOrientation, bool bFlag,
                                     bool bOrientationCharts, bool bDepthPlot, int iTableOption)
{
    // The panels of point charts and orientations that these three ask for are not part of the library yet.
    Q_UNUSED(bFlag)
    Q_UNUSED(bOrientationCharts)
    Q_UNUSED(bDepthPlot)
    if (m_pqSplitter)
        return;
    m_bUpdateNeeded.fill(true);
    m_pqMenu = pqMenu ? pqMenu : createDefaultPopupMenu();

    auto* pqLayout = new QGridLayout(this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    m_pqSplitter = new QSplitter(eOrientation, this);
    m_pqSplitter->setChildrenCollapsible(false);
    pqLayout->addWidget(m_pqSplitter);

    m_pTreeModel = new QTreeItemModel(this, m_poDataRoot);
    m_pqTreeView = new QAttributeTreeView(m_pqSplitter, nullptr);
    m_pqTreeView->setAccessibleName(tr("Data sets"));
    m_pqTreeView->setMinimumSize(150, 100);
    m_pqTreeView->setModel(m_pTreeModel);
    connect(m_pTreeModel, &QTreeItemModel::dataModified, this, &QDataAnalyserDialog::dataModified);
    connect(m_pTreeModel, &QTreeItemModel::updateView, m_pqTreeView, &QAttributeTreeView::updateView);
    m_pqTreeView->expandAll();

    m_pqTabWidget = new TabWidgetWithFloatingTabs(m_pqSplitter);
    m_pqSplitter->setStretchFactor(0, 0);
    m_pqSplitter->setStretchFactor(1, 1);
    m_pqSplitter->setSizes({m_iTreeSize, width() - m_iTreeSize});

    createTableWidget(iTableOption);
    createTreeWidget();
    createHistogramChart(sName);
    m_pqTabWidget->setCurrentIndex(0);
    connect(m_pqTabWidget, &QTabWidget::currentChanged, this, &QDataAnalyserDialog::slotTabWidgetChanged);
    // Tearing a page off makes another one current without currentChanged().
    connect(m_pqTabWidget, &TabWidgetWithFloatingTabs::detachedTab, this, &QDataAnalyserDialog::scheduleRefill);

    readSettings();
    connect(m_pqSplitter, &QSplitter::splitterMoved, this, [this] { m_iTreeSize = m_pqSplitter->sizes().value(0); });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &QDataAnalyserDialog::enablePasteAction);
    updateChartDataSetSelectionBoxes();
}

// ---- construction --------------------------------------------------------------------------------------------------

QMenu* QDataAnalyserDialog::createDefaultPopupMenu()
{
    auto* pqMenu = new QMenu(browserText("Default Menu"), this);
    const auto addAction = [this, pqMenu](const char* pText, const QKeySequence& shortcut, const char* pIcon,
                                          void (QDataAnalyserDialog::*slot)()) {
        QAction* pqAction = pqMenu->addAction(pIcon ? actionIcon(pIcon) : QIcon(), browserText(pText));
        pqAction->setShortcut(shortcut);
        // Chart canvases have shortcuts of their own: these belong to the widgets that the actions are added to.
        pqAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(pqAction, &QAction::triggered, this, slot);
        return pqAction;
    };
    m_pqCopyAction = addAction("Copy", QKeySequence(QStringLiteral("Ctrl+C")), "page_copy.png",
                               &QDataAnalyserDialog::copyToClipboard);
    m_pqPasteAction = addAction("Paste", QKeySequence(QStringLiteral("Ctrl+V")), "page_paste.png",
                                &QDataAnalyserDialog::pasteFromClipboard);
    m_pqPasteAction->setEnabled(false);
    m_pqSelectCellsAction = addAction("Select Cell(s)...", {}, "find.png",
                                      &QDataAnalyserDialog::showSelectValueCellsDlg);
    m_pqSelectInverseAction = addAction("Select Inverse", {}, "arrow_switch.png", &QDataAnalyserDialog::selectInverse);
    m_pqSaveAsAction = addAction("Save As...", {}, nullptr, &QDataAnalyserDialog::slotSaveAs);
    return pqMenu;
}

void QDataAnalyserDialog::createTableWidget(int iTableOption)
{
    m_pqTablePage = new AnalyserTablePage(m_poDataRoot, iTableOption == 1, m_pqTabWidget);
    addPage(m_pqTablePage, QLatin1String(g_tablePage), tr("Table View"), QStringLiteral("table.png"));
    if (m_pqCopyAction) {
        m_pqTablePage->addAction(m_pqCopyAction);
        m_pqTablePage->addAction(m_pqPasteAction);
    }

    connect(m_pqTablePage->model(), &QVertexItemModel::dataModified, this, &QDataAnalyserDialog::slotDataModified);
    connect(m_pqTablePage->summaryModel(), &QVertexItemModel::dataModified, this,
            &QDataAnalyserDialog::slotDataModified);
    connect(m_pqTablePage->model(), &QVertexItemModel::dataModified, this,
            &QDataAnalyserDialog::updateChartDataSetSelectionBoxes);
    connect(m_pqTablePage->summaryModel(), &QVertexItemModel::dataModified, this,
            &QDataAnalyserDialog::updateChartDataSetSelectionBoxes);
    connect(m_pqTablePage->summaryModel(), &QVertexMinMaxItemModel::unitCategoryChanged, this,
            &QDataAnalyserDialog::hideShowOrientationWindows);

    QVertexModelTableView* pqTable = vertexTable();
    connect(m_pqTablePage, &AnalyserTablePage::tableClicked, pqTable, &QVertexModelTableView::slotDeselectVertecies);
    connect(m_pqTablePage, &AnalyserTablePage::tableClicked, this, &QDataAnalyserDialog::checkResetChartsUpdateNeeded);
    connect(m_pqTablePage, &AnalyserTablePage::tableClicked, this, &QDataAnalyserDialog::enablePasteAction);
    connect(pqTable, &QVertexModelTableView::selectionChangedByUser, this,
            &QDataAnalyserDialog::resetChartsUpdateNeeded);
    // Whole columns and vertices are no block of cells that a frame would mark.
    connect(pqTable, &QVertexModelTableView::sectionClicked, pqTable,
            &QVertexModelTableView::turnOffSelectionRectangle);
    connect(pqTable, &QVertexModelTableView::verteciesSelected, pqTable,
            &QVertexModelTableView::turnOffSelectionRectangle);
    connect(m_pqTablePage, &AnalyserTablePage::contextMenuRequested, this, [this](const QPoint& oGlobalPos) {
        enablePasteAction();
        if (m_pqMenu)
            m_pqMenu->popup(oGlobalPos);
    });
}

void QDataAnalyserDialog::createTreeWidget()
{
    connect(m_pTreeModel, &QTreeItemModel::treeItemNameChanged, this,
            &QDataAnalyserDialog::updateChartDataSetSelectionBoxes);
    connect(m_pTreeModel, &QTreeItemModel::treeItemNameChanged, this, &QDataAnalyserDialog::updateTableViews);
    connect(m_pTreeModel, &QTreeItemModel::treeItemSelected, this, &QDataAnalyserDialog::updateTableViews);
    connect(m_pTreeModel, &QTreeItemModel::treeItemSelected, this,
            &QDataAnalyserDialog::updateChartDataSetSelectionBoxes);
    connect(m_pqTreeView, &QAbstractItemView::clicked, this, &QDataAnalyserDialog::accept_ClearSelection);
    connect(m_pqTreeView, &QAbstractItemView::clicked, this, &QDataAnalyserDialog::setCurrentHistogramDataSet);
    connect(vertexTable(), &QVertexModelTableView::tableItemSelected, m_pqTreeView,
            &QAbstractItemView::clearSelection);
    connect(vertexTable(), &QAbstractItemView::clicked, m_pqTreeView, &QAbstractItemView::clearSelection);
    connect(m_pqTreeView, &QAttributeTreeView::treeItemsChanged, this,
            &QDataAnalyserDialog::updateChartDataSetSelectionBoxes);
}

void QDataAnalyserDialog::createHistogramChart(const QString& sName)
{
    m_pqHistogramChart = new QHistogramChartWidget(m_pqTabWidget);
    m_pqHistogramChart->setAccessibleName(sName);
    m_pqHistogramChart->setDataRoot(m_poDataRoot);
    addPage(m_pqHistogramChart, QLatin1String(g_histogramPage), tr("Histogram Chart"),
            QStringLiteral("histogram.png"));
    m_vChartPages.push_back({Histogram, m_pqHistogramChart, [this] { updateHistogramData(); },
                             [this] { m_pqHistogramChart->copyToClipboard(); }});
    connect(m_pqHistogramChart, &QHistogramChartWidget::dataSetSelected, this,
            &QDataAnalyserDialog::updateHistogramData);
}

void QDataAnalyserDialog::addPage(QWidget* pqPage, const QString& sObjectName, const QString& sText,
                                  const QString& sIcon)
{
    pqPage->setObjectName(sObjectName);
    m_pqTabWidget->addTab(pqPage, pageIcon(sIcon.toLatin1().constData()), sText);
}

// ---- data ------------------------------------------------------------------------------------------------------------

void QDataAnalyserDialog::changeDataRoot(MatrixData* poRoot)
{
    for (const QMetaObject::Connection& connection : m_lRootConnections)
        disconnect(connection);
    m_lRootConnections.clear();
    m_poDataRoot = poRoot;
    if (m_poDataRoot && m_poRegistry)
        m_poDataRoot->setRegistry(m_poRegistry);
    connectRoot();
    if (!m_pqSplitter)
        return;
    m_pTreeModel->setDataRoot(m_poDataRoot);
    m_pqTreeView->expandAll();
    m_pqTablePage->setDataRoot(m_poDataRoot);
    m_pqHistogramChart->setDataRoot(m_poDataRoot);
    updateChartDataSetSelectionBoxes();
    hideShowOrientationWindows();
    resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::connectRoot()
{
    if (!m_poDataRoot)
        return;
    MatrixDataNotifier* pNotifier = m_poDataRoot->notifier();
    m_lRootConnections << connect(pNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                                  &QDataAnalyserDialog::slotRootAboutToBeDestroyed)
                       << connect(pNotifier, &MatrixDataNotifier::valuesChanged, this,
                                  &QDataAnalyserDialog::resetChartsUpdateNeeded)
                       << connect(pNotifier, &MatrixDataNotifier::structureChanged, this,
                                  &QDataAnalyserDialog::updateChartDataSetSelectionBoxes)
                       << connect(pNotifier, &MatrixDataNotifier::attributesChanged, this,
                                  &QDataAnalyserDialog::resetChartsUpdateNeeded)
                       << connect(pNotifier, &MatrixDataNotifier::undoApplied, this, [this] {
                              updateChartDataSetSelectionBoxes();
                              hideShowOrientationWindows();
                              resetChartsUpdateNeeded();
                              emit dataModified(true);
                          });
}

void QDataAnalyserDialog::slotRootAboutToBeDestroyed()
{
    // Models and panels listen to the same announcement and drop the root themselves.
    m_poDataRoot = nullptr;
    m_lRootConnections.clear();
}

void QDataAnalyserDialog::setRegistry(UnitRegistry* poRegistry)
{
    m_poRegistry = poRegistry;
    if (m_poDataRoot)
        m_poDataRoot->setRegistry(poRegistry);
}

void QDataAnalyserDialog::setFileChooser(FileChooser fnChooser)
{
    m_fnFileChooser = fnChooser ? std::move(fnChooser) : FileChooser(chooseCsvFile);
}

QVertexModelTableView* QDataAnalyserDialog::vertexTable() const
{
    return m_pqTablePage ? m_pqTablePage->table() : nullptr;
}

QVertexItemModel* QDataAnalyserDialog::vertexItemModel() const
{
    return m_pqTablePage ? m_pqTablePage->model() : nullptr;
}

QVertexMinMaxModelTableView* QDataAnalyserDialog::minMaxVertexTable() const
{
    return m_pqTablePage ? m_pqTablePage->summaryTable() : nullptr;
}

void QDataAnalyserDialog::createMeasuredDepth()
{
    if (!m_poDataRoot)
        return;
    m_poDataRoot->createMeasuredDepth();
    updateAllViews();
}

void QDataAnalyserDialog::updateAllViews()
{
    if (!m_pqSplitter)
        return;
    m_pTreeModel->updateModel();
    m_pqTreeView->expandAll();
    updateTableViews();
    updateChartDataSetSelectionBoxes();
    resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::updateTableViews()
{
    // The table keeps its selected rows when attributes are switched in or out.
    m_pqTablePage->updateModels();
    checkResetChartsUpdateNeeded();
}

void QDataAnalyserDialog::slotDataModified(bool bOk)
{
    resetChartsUpdateNeeded();
    m_pqTablePage->summaryTable()->updateView();
    emit dataModified(bOk);
}

// ---- charts ----------------------------------------------------------------------------------------------------------

void QDataAnalyserDialog::updateChartDataSetSelectionBox(MatrixData::AttributeCollection eCollection,
                                                         bool bSelectedOnly)
{
    Q_UNUSED(bSelectedOnly) // the histogram offers switched-off attributes as well
    if (m_pqHistogramChart &&
        (eCollection == MatrixData::NumericAttribute || eCollection == MatrixData::AnyAttribute))
        m_pqHistogramChart->updateDataSetSelectionBox();
}

void QDataAnalyserDialog::updateChartDataSetSelectionBoxes()
{
    updateChartDataSetSelectionBox(MatrixData::AnyAttribute, false);
    resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::setCurrentHistogramDataSet()
{
    MatrixData* poNode = m_pqTreeView->firstSelected();
    if (!poNode || !poNode->owner())
        return;
    m_pqHistogramChart->setCurrentDataSet(poNode->globalID());
    m_bUpdateNeeded[Histogram] = true;
    scheduleRefill();
}

MatrixData* QDataAnalyserDialog::firstCountableAttribute() const
{
    MatrixData* poFirst = nullptr;
    for (MatrixData* poAttribute : m_poDataRoot ? m_poDataRoot->leafs() : std::vector<MatrixData*>()) {
        const bool bNumeric = poAttribute->type() == QMetaType::Double || poAttribute->type() == QMetaType::Int;
        if (bNumeric && poAttribute->isSelected())
            return poAttribute;
        if (bNumeric && !poFirst)
            poFirst = poAttribute;
    }
    return poFirst;
}

void QDataAnalyserDialog::updateHistogramData()
{
    if (!m_pqHistogramChart)
        return;
    m_bUpdateNeeded[Histogram] = false;
    const bool bRebuilt = m_pqHistogramChart->setSelectedRows(vertexTable()->selectedRecords());
    if (!m_pqHistogramChart->currentSelectedDataSet())
        m_pqHistogramChart->setDataSet(firstCountableAttribute());
    else if (!bRebuilt)
        m_pqHistogramChart->updateHistogram();
}

void QDataAnalyserDialog::hideShowOrientationWindows()
{
    const bool bOrientations = m_poDataRoot && m_poDataRoot->hasOrientationData();
    for (const char* pName : g_orientationPages)
        bOrientations ? showTab(QLatin1String(pName)) : hideTab(QLatin1String(pName));
}

void QDataAnalyserDialog::resetChartsUpdateNeeded()
{
    m_bUpdateNeeded.fill(true);
    m_iRowsInCharts = m_pqTablePage ? vertexTable()->selectedRowCount() : 0;
    scheduleRefill();
}

void QDataAnalyserDialog::checkResetChartsUpdateNeeded()
{
    if (vertexTable()->selectedRowCount() != m_iRowsInCharts)
        resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::scheduleRefill()
{
    if (m_bRefillPending || !m_pqSplitter)
        return;
    m_bRefillPending = true;
    QTimer::singleShot(0, this, &QDataAnalyserDialog::refillVisibleCharts);
}

void QDataAnalyserDialog::refillVisibleCharts()
{
    m_bRefillPending = false;
    for (const ChartPage& page : m_vChartPages)
        if (m_bUpdateNeeded[page.m_eChart] && isPageVisible(page.m_pqPage)) {
            m_bUpdateNeeded[page.m_eChart] = false;
            page.m_fnRefill();
        }
}

void QDataAnalyserDialog::slotTabWidgetChanged()
{
    if (!m_pqSplitter)
        return;
    resetSplitterRatios();
    refillVisibleCharts();
    enablePasteAction();
}

void QDataAnalyserDialog::resetSplitterRatios()
{
    // A page with a wide minimum size must not squeeze the tree for the pages after it.
    const QList<int> liSizes = m_pqSplitter->sizes();
    m_pqSplitter->setSizes({m_iTreeSize, liSizes.value(0) + liSizes.value(1) - m_iTreeSize});
}

QWidget* QDataAnalyserDialog::pageNamed(const QString& sName) const
{
    // Torn-off pages are numbered after the tabs.
    for (int i = 0; m_pqTabWidget && m_pqTabWidget->widget(i); ++i)
        if (m_pqTabWidget->widget(i)->objectName() == sName)
            return m_pqTabWidget->widget(i);
    return nullptr;
}

const QDataAnalyserDialog::ChartPage* QDataAnalyserDialog::currentChartPage() const
{
    for (const ChartPage& page : m_vChartPages)
        if (m_pqTabWidget->currentWidget() == page.m_pqPage)
            return &page;
    return nullptr;
}

bool QDataAnalyserDialog::isTablePageCurrent() const
{
    return m_pqTabWidget && m_pqTabWidget->currentWidget() == m_pqTablePage;
}

bool QDataAnalyserDialog::isPageVisible(const QWidget* pqPage) const
{
    return m_pqTabWidget->currentWidget() == pqPage || (m_pqTabWidget->isFloating(pqPage) && pqPage->isVisible());
}

void QDataAnalyserDialog::hideTab(const QString& sName)
{
    QWidget* pqPage = pageNamed(sName);
    if (pqPage && !m_pqTabWidget->isFloating(pqPage))
        m_pqTabWidget->setTabVisible(m_pqTabWidget->indexOf(pqPage), false);
}

void QDataAnalyserDialog::showTab(const QString& sName)
{
    QWidget* pqPage = pageNamed(sName);
    if (pqPage && !m_pqTabWidget->isFloating(pqPage))
        m_pqTabWidget->setTabVisible(m_pqTabWidget->indexOf(pqPage), true);
}

void QDataAnalyserDialog::setLightMode()
{
    if (m_pqTablePage)
        m_pqTablePage->setSummaryVisible(false);
}

void QDataAnalyserDialog::setUltraLightMode()
{
    setLightMode();
    if (!m_pqSplitter)
        return;
    m_pqTreeView->hide();
    m_pqTabWidget->tabBar()->hide();
}

// ---- selection -------------------------------------------------------------------------------------------------------

void QDataAnalyserDialog::setNewRowSelectionFromGraphicalSelection(bool* pvFlags, int iCount)
{
    if (!m_pqTablePage)
        return;
    vertexTable()->setNewRowSelection(pvFlags, iCount);
    resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::selectInverse()
{
    if (!m_pqTablePage)
        return;
    vertexTable()->selectInverse();
    resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::clearAllSelections()
{
    if (!m_pqTablePage)
        return;
    m_pqTreeView->clearSelection();
    accept_ClearSelection();
}

void QDataAnalyserDialog::accept_ClearSelection()
{
    m_pqTablePage->clearSelection();
    checkResetChartsUpdateNeeded();
}

void QDataAnalyserDialog::updateCellView()
{
    if (!m_pqTablePage)
        return;
    const std::vector<int> viRecords = vertexTable()->selectedRecords();
    m_pqTablePage->table()->resetEmpty();
    m_pqTablePage->summaryTable()->resetEmpty();
    if (!viRecords.empty()) {
        const int iFlags = viRecords.back() + 1;
        const auto pbFlags = std::make_unique<bool[]>(static_cast<std::size_t>(iFlags));
        for (const int iRecord : viRecords)
            pbFlags[static_cast<std::size_t>(iRecord)] = true;
        vertexTable()->setRowSelection(pbFlags.get(), iFlags);
    }
    resetChartsUpdateNeeded();
    slotTabWidgetChanged();
}

void QDataAnalyserDialog::showSelectValueCellsDlg()
{
    if (!m_pqTablePage)
        return;
    if (!m_pqSelectCellsDialog) {
        m_pqSelectCellsDialog = new QSelectCellsDialog(this);
        m_pqSelectCellsDialog->setWindowTitle(tr("Select Cell(s)"));
        connect(m_pqSelectCellsDialog->acceptButton(), &QPushButton::clicked, this,
                &QDataAnalyserDialog::accept_SelectValueCellsDlg);
        connect(m_pqSelectCellsDialog, &QSelectCellsDialog::clearSelection, this,
                &QDataAnalyserDialog::accept_ClearSelection);
        connect(vertexItemModel(), &QAbstractItemModel::modelReset, m_pqSelectCellsDialog,
                [this] { fillSelectCellsDialog(); });
        connect(vertexTable()->selectionModel(), &QItemSelectionModel::currentColumnChanged, m_pqSelectCellsDialog,
                [this] { fillSelectCellsDialog(); });
    }
    fillSelectCellsDialog();
    m_pqSelectCellsDialog->show();
    m_pqSelectCellsDialog->raise();
    m_pqSelectCellsDialog->activateWindow();
}

void QDataAnalyserDialog::fillSelectCellsDialog()
{
    const QVertexItemModel* pModel = vertexItemModel();
    QStringList lNames;
    for (int i = 0; i < pModel->columnCount(); ++i)
        lNames << pModel->headerData(i, Qt::Horizontal).toString();
    m_pqSelectCellsDialog->setColumns(lNames);

    const QModelIndex current = vertexTable()->currentIndex();
    const MatrixData* poNode = pModel->getNode(current.isValid() ? current.column() : 0);
    if (poNode)
        m_pqSelectCellsDialog->setAttribute(poNode->name(), poNode->type(), poNode->unitManager());
}

void QDataAnalyserDialog::accept_SelectValueCellsDlg()
{
    if (!m_pqSelectCellsDialog)
        return;
    const WaitCursor waitCursor;
    resetChartsUpdateNeeded();
    QVertexModelTableView* pqTable = vertexTable();
    pqTable->turnOffSelectionRectangle();
    const QSelectCellsDialog& dialog = *m_pqSelectCellsDialog;
    if (dialog.isColumnSelection())
        pqTable->selectColumnCells(dialog.columnFrom(), dialog.columnTo(), dialog.keepPreviousSelection());
    else
        pqTable->selectCells(dialog.value1(), dialog.value2(), dialog.method(), dialog.isRowSelection(),
                             dialog.keepPreviousSelection());
    checkResetChartsUpdateNeeded();
}

// ---- clipboard and files ---------------------------------------------------------------------------------------------

void QDataAnalyserDialog::copyToClipboard()
{
    if (!m_pqTabWidget)
        return;
    if (isTablePageCurrent()) {
        // An empty selection leaves the clipboard alone.
        if (QMimeData* pMimeData = vertexTable()->getSelectedData()) {
            QApplication::clipboard()->clear();
            QApplication::clipboard()->setMimeData(pMimeData);
        }
        if (m_pqPasteAction)
            m_pqPasteAction->setEnabled(true);
    } else if (const ChartPage* pPage = currentChartPage()) {
        QApplication::clipboard()->clear();
        pPage->m_fnCopy();
        if (m_pqPasteAction)
            m_pqPasteAction->setEnabled(false);
    }
}

void QDataAnalyserDialog::pasteFromClipboard()
{
    const QMimeData* pMimeData = QApplication::clipboard()->mimeData();
    if (!m_pqTablePage || !pMimeData)
        return;
    vertexTable()->setMimeData(*pMimeData);
    resetChartsUpdateNeeded();
}

void QDataAnalyserDialog::enablePasteAction()
{
    emit signalEnablePasteAction();
    if (!m_pqPasteAction)
        return;
    const QMimeData* pMimeData = QApplication::clipboard()->mimeData();
    m_pqPasteAction->setEnabled(pMimeData && isTablePageCurrent() &&
                                !pMimeData->data(QStringLiteral("text/plain")).isEmpty());
}

void QDataAnalyserDialog::slotSaveAs()
{
    if (!m_poDataRoot)
        return;
    const QString sStart = QDir(m_sAbsolutePath).filePath(m_sFileName);
    const QString sFile = m_fnFileChooser(this, sStart);
    if (sFile.isEmpty())
        return;
    const QFileInfo oFile(sFile);
    m_sFileName = oFile.fileName();
    m_sAbsolutePath = oFile.absolutePath();

    const std::vector<int> viRecords = vertexTable()->selectedRecords();
    const int iFlags = viRecords.empty() ? 0 : viRecords.back() + 1;
    const auto pbFlags = std::make_unique<bool[]>(static_cast<std::size_t>(iFlags));
    for (const int iRecord : viRecords)
        pbFlags[static_cast<std::size_t>(iRecord)] = true;
    bool bOk = false;
    m_poDataRoot->writeCSV(sFile, &bOk, pbFlags.get(), iFlags);
    emit csvWritten(sFile, bOk);
    saveSettings();
}

void QDataAnalyserDialog::saveSettings()
{
    QSettings settings;
    settings.beginGroup(QLatin1String(g_filePathGroup));
    settings.setValue(QStringLiteral("path"), m_sAbsolutePath);
    settings.endGroup();
    if (!m_pqSplitter)
        return;
    settings.beginGroup(QLatin1String(g_splitterGroup));
    settings.setValue(QStringLiteral("tree_splitter"), m_pqSplitter->saveState());
    settings.endGroup();
}

void QDataAnalyserDialog::readSettings()
{
    QSettings settings;
    settings.beginGroup(QLatin1String(g_filePathGroup));
    m_sAbsolutePath = settings.value(QStringLiteral("path"), m_sAbsolutePath).toString();
    settings.endGroup();
    if (!m_pqSplitter)
        return;
    settings.beginGroup(QLatin1String(g_splitterGroup));
    if (m_pqSplitter->restoreState(settings.value(QStringLiteral("tree_splitter")).toByteArray()))
        m_iTreeSize = m_pqSplitter->sizes().value(0, m_iTreeSize);
    settings.endGroup();
}

void QDataAnalyserDialog::hide()
{
    if (m_pqSelectCellsDialog)
        m_pqSelectCellsDialog->hide();
    QWidget::hide();
}

} // namespace gkBase

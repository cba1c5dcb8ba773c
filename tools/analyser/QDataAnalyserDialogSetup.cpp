// How QDataAnalyserDialog builds its widgets and connects them.

#include "AnalyserChartPages.h"
#include "AnalyserTablePage.h"
#include "QAttributeTreeView.h"
#include "QCrossPlotWidget.h"
#include "QDataAnalyserDialog.h"
#include "QDepthPlotWidget.h"
#include "QHistogramChartWidget.h"
#include "QRoseChartWidget.h"
#include "QStereoChartWidget.h"
#include "QTRNBarChartWidget.h"
#include "QTangentChartWidget.h"
#include "QTreeItemModel.h"
#include "QVertexItemModel.h"
#include "QVertexMinMaxItemModel.h"
#include "QVertexModelTableView.h"
#include "TabWidgetWithFloatingTabs.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QGridLayout>
#include <QIcon>
#include <QMenu>
#include <QSplitter>

namespace gkBase {

namespace {

constexpr char g_tablePage[] = "TABLE";
constexpr char g_histogramPage[] = "HISTOGRAM";
constexpr char g_barChartPage[] = "BARCHART";
constexpr char g_crossPlotPage[] = "CROSSPLOT";
constexpr char g_depthPlotPage[] = "WELLLOGPLOT";
constexpr char g_rosePage[] = "ROSEPLOT";
constexpr char g_stereoPage[] = "STEREOPLOT";
constexpr char g_tangentPage[] = "TANGENTPLOT";

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

} // namespace

void QDataAnalyserDialog::initialize(const QString& sName, QMenu* pqMenu, Qt::Orientation eOrientation, bool bFlag,
                                     bool bOrientationCharts, bool bDepthPlot, int iTableOption)
{
    Q_UNUSED(bFlag) // what hosts asked for with it is always there
    if (m_pqSplitter)
        return;
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
    m_pCharts = new AnalyserChartPages(m_pqTabWidget, this);
    m_pqSplitter->setStretchFactor(0, 0);
    m_pqSplitter->setStretchFactor(1, 1);
    m_pqSplitter->setSizes({m_iTreeSize, width() - m_iTreeSize});

    createTableWidget(iTableOption);
    createTreeWidget();
    createBarChart(sName);
    createHistogramChart(sName);
    createRelationshipChart(sName);
    if (bOrientationCharts) {
        createRoseChart(sName);
        createStereoChart(sName);
        createTangentChart(sName);
    }
    if (bDepthPlot)
        createDepthPlot(sName);
    hideShowOrientationWindows();
    m_pqTabWidget->setCurrentIndex(0);
    connect(m_pqTabWidget, &QTabWidget::currentChanged, this, &QDataAnalyserDialog::slotTabWidgetChanged);
    // Tearing a page off makes another one current without currentChanged().
    connect(m_pqTabWidget, &TabWidgetWithFloatingTabs::detachedTab, m_pCharts, &AnalyserChartPages::scheduleRefill);

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
    m_pqSelectCellsAction =
        addAction("Select Cell(s)...", {}, "find.png", &QDataAnalyserDialog::showSelectValueCellsDlg);
    m_pqModifyCellsAction =
        addAction("Modify Cell(s)...", {}, "table_edit.png", &QDataAnalyserDialog::showModifyCellsDlg);
    m_pqModifyCellsAction->setEnabled(false);
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
    connect(pqTable, &QVertexModelTableView::selectedCellsChanged, this, [this, pqTable] {
        if (m_pqModifyCellsAction)
            m_pqModifyCellsAction->setEnabled(pqTable->hasSelectedCells());
        scheduleSelectionCheck();
    });
    connect(pqTable, &QVertexModelTableView::selectionChangedByUser, this, &QDataAnalyserDialog::markSelectionChanged);
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
    connect(vertexTable(), &QVertexModelTableView::tableItemSelected, m_pqTreeView, &QAbstractItemView::clearSelection);
    connect(vertexTable(), &QAbstractItemView::clicked, m_pqTreeView, &QAbstractItemView::clearSelection);
    connect(m_pqTreeView, &QAttributeTreeView::treeItemsChanged, this,
            &QDataAnalyserDialog::updateChartDataSetSelectionBoxes);
}

/// An attribute, or the data set, whose records a chart panel shows; null for none.
template <typename Panel>
static MatrixData* shownData(const Panel& panel)
{
    if constexpr (requires { panel.nodeX(); })
        return panel.nodeX() ? panel.nodeX() : panel.nodeY();
    else if constexpr (requires { panel.nodeAngle(); })
        return panel.nodeAngle();
    else
        return panel.currentSelectedDataSet();
}

template <typename Panel>
void QDataAnalyserDialog::addChartPage(int iChart, Panel* pqPanel, const QString& sObjectName, const QString& sText,
                                       const QString& sIcon, std::function<void()> fnRefill,
                                       const QString& sSettingsGroup)
{
    pqPanel->setDataRoot(m_poDataRoot);
    addPage(pqPanel, sObjectName, sText, sIcon);
    AnalyserChartPages::Page page;
    page.m_eChart = static_cast<AnalyserChartPages::Chart>(iChart);
    page.m_pqPage = pqPanel;
    page.m_fnRefill = std::move(fnRefill);
    page.m_fnSelect = [this, pqPanel] { pqPanel->setSelectedRows(selectedRecords()); };
    page.m_fnCopy = [pqPanel] { pqPanel->copyToClipboard(); };
    page.m_fnSetRoot = [pqPanel](MatrixData* poRoot) { pqPanel->setDataRoot(poRoot); };
    page.m_fnUpdateChooser = [pqPanel] { pqPanel->updateDataSetSelectionBox(); };
    page.m_fnPicture = [pqPanel] { return pqPanel->picture(); };
    if constexpr (requires { pqPanel->readSettings(sSettingsGroup); }) {
        page.m_fnReadSettings = [pqPanel, sSettingsGroup] { pqPanel->readSettings(sSettingsGroup); };
        page.m_fnSaveSettings = [pqPanel, sSettingsGroup] { pqPanel->writeSettings(sSettingsGroup); };
    }
    m_pCharts->add(std::move(page));
    if constexpr (requires { &Panel::dataPointsSelection; })
        connect(pqPanel, &Panel::dataPointsSelection, this, [this, pqPanel](bool* pbFlags, int iCount) {
            MatrixData* poShown = shownData(*pqPanel);
            selectRecordsOf(poShown && poShown->isAttribute() ? poShown->owner() : poShown, pbFlags, iCount);
        });
}

void QDataAnalyserDialog::createBarChart(const QString& sName)
{
    m_pqBarChart = new QTRNBarChartWidget(m_pqTabWidget);
    m_pqBarChart->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::BarChart, m_pqBarChart, QLatin1String(g_barChartPage), tr("Bar Chart"),
        QStringLiteral("chart_bar.png"), [this] { updateBarChart(); }, QString());
    connect(m_pqBarChart, &QTRNBarChartWidget::dataSetSelected, this, &QDataAnalyserDialog::updateBarChart);
}

void QDataAnalyserDialog::createRelationshipChart(const QString& sName)
{
    m_pqCrossPlot = new QCrossPlotWidget(m_pqTabWidget);
    m_pqCrossPlot->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::CrossPlot, m_pqCrossPlot, QLatin1String(g_crossPlotPage), tr("Cross Plot"),
        QStringLiteral("cross_plot.png"), [this] { updateRelationshipData(); },
        QStringLiteral("attribute_analyser/cross_plot/"));
    connect(m_pqCrossPlot, &QCrossPlotWidget::signalUpdateChartData, this,
            &QDataAnalyserDialog::updateRelationshipData);
    connect(m_pqCrossPlot, &QCrossPlotWidget::createClusterAttribute, this,
            &QDataAnalyserDialog::createClusterAttribute);
}

void QDataAnalyserDialog::createRoseChart(const QString& sName)
{
    m_pqRoseChart = new QRoseChartWidget(m_pqTabWidget);
    m_pqRoseChart->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::RosePlot, m_pqRoseChart, QLatin1String(g_rosePage), tr("Rose Plot"),
        QStringLiteral("rose_plot.png"), [this] { updateRoseChartData(); },
        QStringLiteral("attribute_analyser/rose_plot/"));
    connect(m_pqRoseChart, &QRoseChartWidget::dataSetSelected, this, &QDataAnalyserDialog::updateRoseChartData);
}

void QDataAnalyserDialog::createStereoChart(const QString& sName)
{
    m_pqStereoChart = new QStereoChartWidget(m_pqTabWidget);
    m_pqStereoChart->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::StereoPlot, m_pqStereoChart, QLatin1String(g_stereoPage), tr("Stereo Plot"),
        QStringLiteral("stereo_plot.png"), [this] { updateStereoChartData(); },
        QStringLiteral("attribute_analyser/stereo_plot/"));
    connect(m_pqStereoChart, &QStereoChartWidget::dataSetSelected, this, &QDataAnalyserDialog::updateStereoChartData);
    connect(m_pqStereoChart, &QStereoChartWidget::createRotatedAttributes, this,
            &QDataAnalyserDialog::createRotatedAttributes);
    connectOrientationChart(m_pqStereoChart);
}

void QDataAnalyserDialog::createTangentChart(const QString& sName)
{
    m_pqTangentChart = new QTangentChartWidget(m_pqTabWidget);
    m_pqTangentChart->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::TangentPlot, m_pqTangentChart, QLatin1String(g_tangentPage), tr("Tangent Plot"),
        QStringLiteral("tangent_plot.png"), [this] { updateTangentChartData(); },
        QStringLiteral("attribute_analyser/tangent_plot/"));
    connect(m_pqTangentChart, &QStereoChartWidget::dataSetSelected, this, &QDataAnalyserDialog::updateTangentChartData);
    connect(m_pqTangentChart, &QStereoChartWidget::createRotatedAttributes, this,
            [this] { createRotatedAttributesOf(m_pqTangentChart); });
    connectOrientationChart(m_pqTangentChart);
}

void QDataAnalyserDialog::connectOrientationChart(const QStereoChartWidget* pqPanel)
{
    connect(pqPanel, &QStereoChartWidget::createClusterAttribute, this, &QDataAnalyserDialog::createClusterAttribute);
    connect(pqPanel, &QStereoChartWidget::createBiasWeightAttribute, this,
            &QDataAnalyserDialog::createBiasWeightAttribute);
}

void QDataAnalyserDialog::createDepthPlot(const QString& sName)
{
    m_pqDepthPlot = new QDepthPlotWidget(m_pqTabWidget);
    m_pqDepthPlot->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::DepthPlot, m_pqDepthPlot, QLatin1String(g_depthPlotPage), tr("Depth Plot"),
        QStringLiteral("well_log_plot.png"), [this] { updateDepthPlotData(); },
        QStringLiteral("attribute_analyser/well_log_plot/"));
    connect(m_pqDepthPlot, &QDepthPlotWidget::signalUpdateChartData, this, &QDataAnalyserDialog::updateDepthPlotData);
    connect(m_pqDepthPlot, &QDepthPlotWidget::createDataDecimationAttribute, this,
            &QDataAnalyserDialog::createDataDecimationAttribute);
}

void QDataAnalyserDialog::createHistogramChart(const QString& sName)
{
    m_pqHistogramChart = new QHistogramChartWidget(m_pqTabWidget);
    m_pqHistogramChart->setAccessibleName(sName);
    addChartPage(
        AnalyserChartPages::Histogram, m_pqHistogramChart, QLatin1String(g_histogramPage), tr("Histogram Chart"),
        QStringLiteral("histogram.png"), [this] { updateHistogramData(); }, QString());
    connect(m_pqHistogramChart, &QHistogramChartWidget::dataSetSelected, this,
            &QDataAnalyserDialog::updateHistogramData);
}

void QDataAnalyserDialog::addPage(QWidget* pqPage, const QString& sObjectName, const QString& sText,
                                  const QString& sIcon)
{
    pqPage->setObjectName(sObjectName);
    m_pqTabWidget->addTab(pqPage, pageIcon(sIcon.toLatin1().constData()), sText);
}

} // namespace gkBase

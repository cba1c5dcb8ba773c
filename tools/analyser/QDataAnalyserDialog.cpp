#include "QDataAnalyserDialog.h"

#include "AnalyserChartPages.h"
#include "AnalyserTablePage.h"
#include "ChartExporter.h"
#include "MatrixDataNotifier.h"
#include "QAttributeTreeView.h"
#include "QHistogramChartWidget.h"
#include "QModifyCellsDialog.h"
#include "QSelectCellsDialog.h"
#include "QTreeItemModel.h"
#include "QVertexItemModel.h"
#include "QVertexMinMaxModelTableView.h"
#include "QVertexModelTableView.h"
#include "TabWidgetWithFloatingTabs.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabBar>

#include <memory>
#include <utility>

namespace gkBase {

namespace {

constexpr char g_filePathGroup[] = "attribute_analyser/last_trn_data_analyser_file_path";
constexpr char g_splitterGroup[] = "attribute_analyser/tree_splitter_size";

constexpr QSize g_roomForSplitter(16000, 16000);

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

/// Records, rising, as one flag for each up to the last of them.
class RecordFlags
{
public:
    explicit RecordFlags(const std::vector<int>& viRecords)
        : m_iSize(viRecords.empty() ? 0 : viRecords.back() + 1)
        , m_pbFlags(std::make_unique<bool[]>(static_cast<std::size_t>(m_iSize) + 1))
    {
        for (const int iRecord : viRecords)
            m_pbFlags[static_cast<std::size_t>(iRecord)] = true;
    }
    bool* data() { return m_pbFlags.get(); }
    int size() const { return m_iSize; }

private:
    int m_iSize;
    std::unique_ptr<bool[]> m_pbFlags;
};

} // namespace

QDataAnalyserDialog::QDataAnalyserDialog(QWidget* pqParent)
    : QWidget(pqParent)
    , m_fnFileChooser(chooseCsvFile)
{
}

QDataAnalyserDialog::~QDataAnalyserDialog()
{
    for (const QMetaObject::Connection& connection : m_lRootConnections)
        disconnect(connection);
    delete m_pqSelectCellsDialog;
    delete m_pqModifyCellsDialog;
}

// ---- data ----------------------------------------------------------------------------------------------------------

void QDataAnalyserDialog::changeDataRoot(MatrixData* poRoot)
{
    for (const QMetaObject::Connection& connection : m_lRootConnections)
        disconnect(connection);
    m_lRootConnections.clear();
    m_oGesture.reset();
    m_poDataRoot = poRoot;
    if (m_poDataRoot && m_poRegistry)
        m_poDataRoot->setRegistry(m_poRegistry);
    connectRoot();
    if (!m_pqSplitter)
        return;
    m_pTreeModel->setDataRoot(m_poDataRoot);
    m_pqTreeView->expandAll();
    m_pqTablePage->setDataRoot(m_poDataRoot);
    m_pCharts->setDataRoot(m_poDataRoot);
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
                                  [this] {
                                      if (m_pCharts && m_poDataRoot && m_poDataRoot->childCount() == 0)
                                          m_pCharts->forgetShown();
                                      hideShowOrientationWindows();
                                      updateChartDataSetSelectionBoxes();
                                  })
                       << connect(pNotifier, &MatrixDataNotifier::attributesChanged, this,
                                  [this] {
                                      hideShowOrientationWindows(); // by names and units
                                      resetChartsUpdateNeeded();
                                  })
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

// ---- charts --------------------------------------------------------------------------------------------------------

void QDataAnalyserDialog::updateChartDataSetSelectionBox(MatrixData::AttributeCollection eCollection,
                                                         bool bSelectedOnly)
{
    Q_UNUSED(eCollection)   // each chart knows what it can show
    Q_UNUSED(bSelectedOnly) // and offers switched-off attributes as well
    if (m_pCharts)
        m_pCharts->updateChoosers();
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
    m_pqHistogramChart->chooseDataSet(poNode);
    m_pCharts->mark(AnalyserChartPages::Histogram);
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
    m_pCharts->unmark(AnalyserChartPages::Histogram);
    const bool bRebuilt = m_pqHistogramChart->setSelectedRows(selectedRecords());
    if (!m_pqHistogramChart->currentSelectedDataSet() && m_pCharts->isUnused(AnalyserChartPages::Histogram))
        m_pqHistogramChart->setDataSet(firstCountableAttribute());
    else if (!bRebuilt)
        m_pqHistogramChart->updateHistogram();
    showTandLdirection();
    m_pCharts->noteShown(AnalyserChartPages::Histogram, m_pqHistogramChart->currentSelectedDataSet());
}

void QDataAnalyserDialog::resetChartsUpdateNeeded()
{
    if (!m_pCharts)
        return;
    m_iRowsInCharts = m_pqTablePage ? vertexTable()->selectedRowCount() : 0;
    m_pCharts->markAll();
}

void QDataAnalyserDialog::slotTabWidgetChanged()
{
    if (!m_pqSplitter)
        return;
    resetSplitterRatios();
    m_pCharts->refillVisible();
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

QWidget* QDataAnalyserDialog::activePage() const
{
    const QWidget* pqFocus = QApplication::focusWidget();
    for (QWidget* pqPage : m_pqTabWidget->floatingPages())
        if (pqFocus && pqPage->isAncestorOf(pqFocus))
            return pqPage;
    return m_pqTabWidget->currentWidget();
}

QString QDataAnalyserDialog::activePageName() const
{
    const QWidget* pqPage = m_pqTabWidget ? activePage() : nullptr;
    return pqPage ? pqPage->objectName() : QString();
}

bool QDataAnalyserDialog::hasActiveChart() const
{
    return m_pCharts && m_pCharts->find(activePage());
}

bool QDataAnalyserDialog::exportActiveChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    if (!hasActiveChart()) {
        if (psError)
            *psError = tr("No chart is shown.");
        return false;
    }
    m_pCharts->refillVisible();
    return ChartExporter::write(sPath, oSize, m_pCharts->find(activePage())->m_fnPicture(), psError);
}

bool QDataAnalyserDialog::printActiveChart(QPrinter& printer)
{
    if (!hasActiveChart())
        return false;
    m_pCharts->refillVisible();
    return ChartExporter::print(printer, m_pCharts->find(activePage())->m_fnPicture());
}

bool QDataAnalyserDialog::isTablePageActive() const
{
    return m_pqTabWidget && activePage() == m_pqTablePage;
}

void QDataAnalyserDialog::hideTab(const QString& sName)
{
    setTabShown(sName, false);
}

void QDataAnalyserDialog::showTab(const QString& sName)
{
    setTabShown(sName, true);
}

void QDataAnalyserDialog::setTabShown(const QString& sName, bool bShown)
{
    QWidget* pqPage = pageNamed(sName);
    if (pqPage && !m_pqTabWidget->isFloating(pqPage))
        m_pqTabWidget->setTabVisible(m_pqTabWidget->indexOf(pqPage), bShown);
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

// ---- selection -----------------------------------------------------------------------------------------------------

void QDataAnalyserDialog::updateCellView()
{
    if (!m_pqTablePage)
        return;
    const std::vector<int> viRecords = vertexTable()->selectedRecords();
    m_pqTablePage->table()->resetEmpty();
    m_pqTablePage->summaryTable()->resetEmpty();
    if (!viRecords.empty()) {
        RecordFlags flags(viRecords);
        vertexTable()->setRowSelection(flags.data(), flags.size());
    }
    resetChartsUpdateNeeded();
    slotTabWidgetChanged();
}

// ---- clipboard and files -------------------------------------------------------------------------------------------

void QDataAnalyserDialog::copyToClipboard()
{
    if (!m_pqTabWidget)
        return;
    if (isTablePageActive()) {
        // An empty selection leaves the clipboard alone.
        if (m_pqTreeView->hasFocus() && m_pqTreeView->copyToClipboard()) {
            // The attributes that are selected there.
        } else if (QMimeData* pMimeData = vertexTable()->getSelectedData()) {
            QApplication::clipboard()->clear();
            QApplication::clipboard()->setMimeData(pMimeData);
        }
        enablePasteAction();
    } else if (const AnalyserChartPages::Page* pPage = m_pCharts->find(activePage())) {
        QApplication::clipboard()->clear();
        m_pCharts->refillVisible(); // the picture is of the present data
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
    m_pqPasteAction->setEnabled(pMimeData && isTablePageActive() &&
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

    RecordFlags flags(vertexTable()->selectedRecords());
    bool bOk = false;
    m_poDataRoot->writeCSV(sFile, &bOk, flags.data(), flags.size());
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
    m_pCharts->saveSettings();
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
    // The state holds an orientation too, but the host has said which one this dialog has.
    const Qt::Orientation eOrientation = m_pqSplitter->orientation();
    // A splitter that is not laid out yet has no room for the sizes that come back.
    if (!isVisible())
        m_pqSplitter->resize(m_pqSplitter->size().expandedTo(g_roomForSplitter));
    const bool bRestored = m_pqSplitter->restoreState(settings.value(QStringLiteral("tree_splitter")).toByteArray());
    if (m_pqSplitter->orientation() != eOrientation) {
        m_pqSplitter->setOrientation(eOrientation);
        resetSplitterRatios();
    } else if (bRestored) {
        m_iTreeSize = m_pqSplitter->sizes().value(0, m_iTreeSize);
    }
    settings.endGroup();
    m_pCharts->readSettings();
}

void QDataAnalyserDialog::hide()
{
    if (m_pqSelectCellsDialog)
        m_pqSelectCellsDialog->hide();
    if (m_pqModifyCellsDialog)
        m_pqModifyCellsDialog->hide();
    QWidget::hide();
}

} // namespace gkBase

#include "AnalyserWindow.h"

#include "AnalyserApplication.h"
#include "AnglesDialog.h"
#include "ChartOutput.h"
#include "FileImporter.h"
#include "ImportOptionsDialog.h"
#include "ImportReportDialog.h"
#include "ScatWindow.h"

#include <gkBase/DisplayUnitManager.h>
#include <gkBase/QDataAnalyserDialog.h>
#include <gkBase/TabWidgetWithFloatingTabs.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

#include <map>

namespace gkHost {

namespace {

QStringList localFiles(const QMimeData* pMimeData)
{
    QStringList lFiles;
    for (const QUrl& url : pMimeData->urls())
        if (url.isLocalFile())
            lFiles << url.toLocalFile();
    return lFiles;
}

} // namespace

AnalyserWindow::AnalyserWindow(AnalyserApplication* pApplication)
    : m_pApplication(pApplication)
    , m_pqAnalyser(new gkBase::QDataAnalyserDialog(this))
    , m_pqStatusLabel(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setCentralWidget(m_pqAnalyser);
    Document* pDocument = pApplication->document();
    m_pqAnalyser->setRegistry(pDocument->registry());
    m_pqAnalyser->initialize(QStringLiteral("gkanalyser"), nullptr, Qt::Horizontal, false, true, true, 1);
    m_pqAnalyser->changeDataRoot(pDocument->root());
    m_pqStatusLabel->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(m_pqStatusLabel, 1);
    m_pqStatusLabel->setText(tr("Open a CSV or LAS file, or drop it here."));

    createFileMenu();
    createEditMenu();
    createViewMenu();
    createWindowMenu();
    createHelpMenu();

    connect(pDocument, &Document::filesChanged, this, &AnalyserWindow::updateTitle);
    connect(pDocument, &Document::modifiedChanged, this, &AnalyserWindow::updateTitle);
    connect(pDocument, &Document::undoStateChanged, this, &AnalyserWindow::updateUndoActions);
    connect(pApplication->importController(), &ImportController::opened, this, &AnalyserWindow::showOpened);
    connect(m_pqAnalyser, &gkBase::QDataAnalyserDialog::csvWritten, this, [this](const QString& sPath, bool bOk) {
        if (bOk)
            m_pqStatusLabel->setText(tr("Saved %1").arg(sPath));
        else
            QMessageBox::warning(this, tr("Save As"), tr("%1: cannot be written").arg(sPath));
    });
    updateTitle();
    updateUndoActions();
    resize(1200, 800);
}

AnalyserWindow::~AnalyserWindow()
{
    m_pqAnalyser->changeDataRoot(nullptr);
}

// ---- menus ---------------------------------------------------------------------------------------------------------

void AnalyserWindow::createFileMenu()
{
    QMenu* pqMenu = menuBar()->addMenu(tr("&File"));
    pqMenu->addAction(tr("&Open…"), QKeySequence::Open, this, &AnalyserWindow::openFiles);
    pqMenu->addAction(tr("Open &with Options…"), this, &AnalyserWindow::openWithOptions);
    m_pqRecentMenu = pqMenu->addMenu(tr("Open &Recent"));
    connect(m_pqRecentMenu, &QMenu::aboutToShow, this, &AnalyserWindow::fillRecentMenu);
    m_pqReportAction = pqMenu->addAction(tr("&Import Report…"), this, &AnalyserWindow::showReport);
    pqMenu->addSeparator();
    pqMenu->addAction(tr("&Save As CSV…"), QKeySequence(tr("Ctrl+Shift+S")), this, &AnalyserWindow::saveAsCsv);
    m_pqExportAction =
        pqMenu->addAction(tr("&Export Chart…"), QKeySequence(tr("Ctrl+Shift+E")), this, &AnalyserWindow::exportChart);
    m_pqPrintAction = pqMenu->addAction(tr("&Print Chart…"), QKeySequence::Print, this, &AnalyserWindow::printChart);
    pqMenu->addSeparator();
    pqMenu->addAction(tr("&Close Window"), QKeySequence::Close, this, &QWidget::close);
    pqMenu->addAction(tr("&Quit"), QKeySequence::Quit, m_pApplication, &AnalyserApplication::quit);
    connect(pqMenu, &QMenu::aboutToShow, this, [this] {
        m_pqReportAction->setEnabled(!m_pApplication->document()->reports().empty());
        m_pqRecentMenu->setEnabled(!m_pApplication->recentFiles().isEmpty());
        m_pqExportAction->setEnabled(m_pqAnalyser->hasActiveChart());
        m_pqPrintAction->setEnabled(m_pqAnalyser->hasActiveChart());
    });
    // The shortcuts work whatever page was current when the menu was last open; the slots tell what is wrong.
    connect(pqMenu, &QMenu::aboutToHide, this, [this] {
        m_pqExportAction->setEnabled(true);
        m_pqPrintAction->setEnabled(true);
    });
}

void AnalyserWindow::createEditMenu()
{
    QMenu* pqMenu = menuBar()->addMenu(tr("&Edit"));
    Document* pDocument = m_pApplication->document();
    m_pqUndoAction = pqMenu->addAction(tr("&Undo"), QKeySequence::Undo, this, [pDocument] { pDocument->undo(); });
    m_pqRedoAction = pqMenu->addAction(tr("&Redo"), QKeySequence::Redo, this, [pDocument] { pDocument->redo(); });
    pqMenu->addSeparator();
    pqMenu->addAction(m_pqAnalyser->copyAction());
    pqMenu->addAction(m_pqAnalyser->pasteAction());
    pqMenu->addSeparator();
    pqMenu->addAction(m_pqAnalyser->selectCellsAction());
    pqMenu->addAction(m_pqAnalyser->modifyCellsAction());
    pqMenu->addAction(m_pqAnalyser->selectInverseAction());
    pqMenu->addAction(tr("&Clear Selection"), m_pqAnalyser, &gkBase::QDataAnalyserDialog::clearAllSelections);
}

void AnalyserWindow::createViewMenu()
{
    QMenu* pqMenu = menuBar()->addMenu(tr("&View"));
    gkBase::TabWidgetWithFloatingTabs* pqTabs = m_pqAnalyser->tabWidget();
    for (int i = 0; i < pqTabs->count(); ++i) {
        QWidget* pqPage = pqTabs->widget(i);
        pqMenu->addAction(pqTabs->tabIcon(i), pqTabs->tabText(i), QKeySequence(tr("Ctrl+%1").arg(i + 1)), pqPage,
                          [pqTabs, pqPage] {
                              if (pqTabs->isFloating(pqPage))
                                  pqPage->window()->raise();
                              else
                                  pqTabs->setCurrentWidget(pqPage);
                          });
    }
    pqMenu->addSeparator();
    m_pqUnitsMenu = pqMenu->addMenu(tr("&Display Units"));
    connect(pqMenu, &QMenu::aboutToShow, this, &AnalyserWindow::fillUnitsMenu);
    QAction* pqMarkers = pqMenu->addAction(tr("&Marker Visibility…"), m_pqAnalyser,
                                           [this] { m_pqAnalyser->showMarkerVisibilityDlg(this); });
    connect(pqMenu, &QMenu::aboutToShow, pqMarkers,
            [this, pqMarkers] { pqMarkers->setEnabled(m_pqAnalyser->hasMarkerVisibility()); });
}

void AnalyserWindow::createWindowMenu()
{
    m_pqWindowMenu = menuBar()->addMenu(tr("&Window"));
    connect(m_pqWindowMenu, &QMenu::aboutToShow, this, &AnalyserWindow::fillWindowMenu);
    fillWindowMenu();
}

void AnalyserWindow::createHelpMenu()
{
    QMenu* pqMenu = menuBar()->addMenu(tr("&Help"));
    pqMenu->addAction(tr("&Conventions of Angles"), this, [this] {
        auto* pqDialog = new AnglesDialog(this);
        pqDialog->show();
    });
    pqMenu->addAction(tr("&About gkanalyser"), this, [this] {
        QMessageBox::about(this, tr("About gkanalyser"),
                           tr("<h3>gkanalyser %1</h3><p>Interactive analysis of geological attribute data: tables and "
                              "linked charts.</p><p>Built on the widget library gkBaseTools and Qt %2.</p>")
                               .arg(QApplication::applicationVersion(), QLatin1String(qVersion())));
    });
}

void AnalyserWindow::fillRecentMenu()
{
    m_pqRecentMenu->clear();
    for (const QString& sPath : m_pApplication->recentFiles()) {
        QString sText = sPath;
        sText.replace(QLatin1Char('&'), QLatin1String("&&"));
        m_pqRecentMenu->addAction(sText, this,
                                  [this, sPath] { m_pApplication->importController()->open({sPath}, this); });
    }
}

void AnalyserWindow::fillUnitsMenu()
{
    using gkBase::DisplayUnitManager;
    m_pqUnitsMenu->clear();
    // One entry per category in use; the units that its first attribute converts to.
    std::map<QString, QStringList> categories;
    for (const gkBase::MatrixData* poAttribute : m_pApplication->document()->root()->leafs()) {
        const QStringList lUnits = poAttribute->unitManager()->possibleDisplayUnits();
        if (lUnits.size() > 1)
            categories.emplace(poAttribute->unitCategory(), lUnits);
    }
    for (const auto& [sCategory, lUnits] : categories) {
        QMenu* pqMenu = m_pqUnitsMenu->addMenu(sCategory);
        auto* pqGroup = new QActionGroup(pqMenu);
        const auto it = DisplayUnitManager::instance().find(sCategory);
        const QString sChosen = it == DisplayUnitManager::instance().end() ? QString() : it->second;
        const auto addUnit = [&, &sName = sCategory](const QString& sText, const QString& sUnit) {
            QAction* pqAction = pqMenu->addAction(
                sText, this, [sName, sUnit] { DisplayUnitManager::instance().setDisplayUnit(sName, sUnit); });
            pqAction->setCheckable(true);
            pqAction->setChecked(sUnit == sChosen);
            pqGroup->addAction(pqAction);
        };
        addUnit(tr("As in the Data"), QString());
        pqMenu->addSeparator();
        for (const QString& sUnit : lUnits)
            addUnit(sUnit, sUnit);
    }
    m_pqUnitsMenu->setEnabled(!categories.empty());
}

void AnalyserWindow::fillWindowMenu()
{
    m_pqWindowMenu->clear();
    m_pqWindowMenu->addAction(tr("&New Analyser"), QKeySequence(tr("Ctrl+Shift+N")), this,
                              [this] { m_pApplication->newWindow(); });
    m_pqWindowMenu->addAction(tr("SCAT &Dipmeter"), QKeySequence(tr("Ctrl+Shift+D")), this,
                              &AnalyserWindow::openScatWindow);
    m_pqWindowMenu->addSeparator();
    m_pApplication->listWindows(m_pqWindowMenu, this);
}

void AnalyserWindow::openScatWindow()
{
    if (!m_pApplication->newScatWindow(this))
        QMessageBox::information(this, tr("SCAT Dipmeter"),
                                 tr("The dipmeter window needs a data set with depths, dips and dip azimuths. Open a "
                                    "file that has them."));
}

// ---- files ---------------------------------------------------------------------------------------------------------

void AnalyserWindow::openFiles()
{
    const QStringList lFiles = QFileDialog::getOpenFileNames(this, tr("Open"), m_pApplication->lastFolder(),
                                                             FileImporter::nameFilters().join(QLatin1String(";;")));
    m_pApplication->importController()->open(lFiles, this);
}

void AnalyserWindow::openWithOptions()
{
    ImportOptionsDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QStringList lFiles =
        QFileDialog::getOpenFileNames(this, tr("Open with Options"), m_pApplication->lastFolder(),
                                      FileImporter::nameFilters().join(QLatin1String(";;")));
    m_pApplication->importController()->open(lFiles, this, dialog.options());
}

void AnalyserWindow::showOpened(const QString& sPath)
{
    const ImportReport& report = m_pApplication->document()->reports().back();
    QString sText = tr("Opened %1").arg(sPath);
    if (!report.isClean())
        sText += tr(" — %1 repairs, %2 rejected rows: see File > Import Report")
                     .arg(report.repairCount())
                     .arg(report.rejectedRowCount());
    m_pqStatusLabel->setText(sText);
    m_pqAnalyser->setFileName(QFileInfo(sPath).completeBaseName() + QStringLiteral(".csv"));
    if (report.rejectedRowCount() > 0 && isActiveWindow())
        showReport();
}

void AnalyserWindow::showReport()
{
    auto* pqDialog = new ImportReportDialog(m_pApplication->document()->reports(), this);
    pqDialog->show();
}

bool AnalyserWindow::saveAsCsv()
{
    Document* pDocument = m_pApplication->document();
    QString sStart = m_pApplication->lastFolder();
    if (!pDocument->files().isEmpty())
        sStart +=
            QLatin1Char('/') + QFileInfo(pDocument->files().constFirst()).completeBaseName() + QStringLiteral(".csv");
    const QString sPath = ChartOutput::withExtension(
        QFileDialog::getSaveFileName(this, tr("Save As CSV"), sStart, QStringLiteral("CSV(Comma delimited)(*.csv)")),
        QStringLiteral("csv"));
    if (sPath.isEmpty())
        return false;
    if (!pDocument->save(sPath)) {
        QMessageBox::warning(this, tr("Save As CSV"), tr("%1: cannot be written").arg(sPath));
        return false;
    }
    m_pqStatusLabel->setText(tr("Saved %1").arg(sPath));
    return true;
}

bool AnalyserWindow::chartIsShown()
{
    if (!m_pqAnalyser->hasActiveChart())
        m_pqStatusLabel->setText(tr("The page that is shown is not a chart."));
    return m_pqAnalyser->hasActiveChart();
}

void AnalyserWindow::printChart()
{
    if (!chartIsShown())
        return;
    const QString sName = windowTitle().remove(QStringLiteral("[*]"));
    ChartOutput::print(this, sName, [this](QPrinter& printer) { m_pqAnalyser->printActiveChart(printer); });
}

void AnalyserWindow::exportChart()
{
    if (!chartIsShown())
        return;
    const QString sStart =
        QStringLiteral("%1/%2.png").arg(m_pApplication->lastFolder(), m_pqAnalyser->activePageName().toLower());
    const QString sPath =
        ChartOutput::write(this, sStart, [this](const QString& sFile, const QSize& oSize, QString* psError) {
            return m_pqAnalyser->exportActiveChart(sFile, oSize, psError);
        });
    if (!sPath.isEmpty())
        m_pqStatusLabel->setText(tr("Exported %1").arg(sPath));
}

// ---- state ---------------------------------------------------------------------------------------------------------

void AnalyserWindow::updateTitle()
{
    const Document* pDocument = m_pApplication->document();
    setWindowTitle(pDocument->isEmpty() ? tr("gkanalyser") : tr("%1[*] — gkanalyser").arg(pDocument->title()));
    setWindowModified(pDocument->isModified());
}

void AnalyserWindow::updateUndoActions()
{
    Document* pDocument = m_pApplication->document();
    const auto show = [](QAction* pqAction, const QString& sText, const QString& sName, bool bEnabled) {
        QString sShown = sName;
        sShown.replace(QLatin1Char('&'), QLatin1String("&&"));
        pqAction->setText(bEnabled ? sText + QLatin1Char(' ') + sShown : sText);
        pqAction->setEnabled(bEnabled);
    };
    show(m_pqUndoAction, tr("&Undo"), pDocument->root()->undoText(), pDocument->canUndo());
    show(m_pqRedoAction, tr("&Redo"), pDocument->root()->redoText(), pDocument->canRedo());
}

bool AnalyserWindow::mayLoseEdits()
{
    if (!m_pApplication->document()->isModified())
        return true;
    const auto eAnswer =
        QMessageBox::question(this, tr("gkanalyser"), tr("The data have been edited. Save them before closing?"),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (eAnswer == QMessageBox::Save)
        return saveAsCsv();
    return eAnswer == QMessageBox::Discard;
}

bool AnalyserWindow::canClose()
{
    for (ScatWindow* pqScat : m_pApplication->scatWindows(this))
        if (!pqScat->canClose())
            return false;
    // The data stay open in another window.
    int iWindows = 0;
    for (const QPointer<AnalyserWindow>& pqWindow : m_pApplication->windows())
        iWindows += pqWindow && pqWindow->isVisible();
    return iWindows > 1 || mayLoseEdits();
}

void AnalyserWindow::closeUnasked()
{
    m_bAsked = true;
    close();
}

void AnalyserWindow::closeEvent(QCloseEvent* pEvent)
{
    if (!m_bAsked && !canClose()) {
        pEvent->ignore();
        return;
    }
    for (ScatWindow* pqScat : m_pApplication->scatWindows(this))
        pqScat->closeUnasked();
    m_pqAnalyser->saveSettings();
    QMainWindow::closeEvent(pEvent);
}

void AnalyserWindow::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (!localFiles(pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void AnalyserWindow::dropEvent(QDropEvent* pEvent)
{
    const QStringList lFiles = localFiles(pEvent->mimeData());
    if (lFiles.isEmpty())
        return;
    pEvent->setDropAction(Qt::CopyAction);
    pEvent->accept();
    m_pApplication->importController()->open(lFiles, this);
}

} // namespace gkHost

#include "ScatWindow.h"

#include "AnalyserApplication.h"
#include "AnalyserWindow.h"
#include "ChartOutput.h"

#include <gkBase/ChartExporter.h>
#include <gkBase/MatrixDataNotifier.h>
#include <gkBase/QDataAnalyserDialog.h>
#include <gkBase/QScatDepthPlotWidget.h>
#include <gkBase/ScatAnalyserLink.h>
#include <gkBase/ScatScenarios.h>
#include <gkBase/WellDataSets.h>

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPrinter>
#include <QSettings>
#include <QStatusBar>

#include <vector>

namespace gkHost {

using gkBase::MatrixData;
using gkBase::MatrixDataNotifier;
using gkBase::QScatDepthPlotWidget;
using gkBase::ScatScenarios;

namespace {

QString geometryKey()
{
    return QStringLiteral("gkanalyser/scat_window_geometry");
}

bool isDipmeter(const MatrixData* poDataSet)
{
    return poDataSet && poDataSet->depthAttribute() && poDataSet->dipAttribute() && poDataSet->azimuthAttribute() &&
           !gkBase::isMarkerTable(*poDataSet);
}

} // namespace

MatrixData* ScatWindow::dataSetFor(const AnalyserWindow& analyser)
{
    MatrixData* poCurrent = analyser.analyser()->currentDataSet();
    std::vector<MatrixData*> vpDataSets{poCurrent, poCurrent ? gkBase::wellOf(*poCurrent) : nullptr};
    if (const MatrixData* poRoot = analyser.analyser()->dataRoot())
        for (MatrixData* poDataSet : gkBase::dataSetsBelow(*poRoot))
            vpDataSets.push_back(poDataSet);
    for (MatrixData* poDataSet : vpDataSets)
        if (isDipmeter(poDataSet))
            return poDataSet;
    return nullptr;
}

ScatWindow::ScatWindow(AnalyserApplication* pApplication, AnalyserWindow* pqAnalyser, MatrixData* poDataSet,
                       int iNumber)
    : m_pApplication(pApplication)
    , m_iNumber(iNumber)
    , m_pqPanel(new QScatDepthPlotWidget(this))
    , m_pqStatusLabel(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(m_pqPanel);
    m_pqStatusLabel->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(m_pqStatusLabel, 1);
    createMenus(pqAnalyser);
    resize(1280, 880);
    readSettings();

    MatrixData* poRoot = pApplication->document()->root();
    m_pqPanel->setDataRoot(poRoot);
    m_pqPanel->setDataSet(poDataSet);
    const auto identifier = [](const MatrixData* poNode) { return poNode ? poNode->globalID() : -1; };
    m_aiAttributes = {identifier(m_pqPanel->depthAttribute()), identifier(m_pqPanel->dipAttribute()),
                      identifier(m_pqPanel->azimuthAttribute())};
    m_pLink = new gkBase::ScatAnalyserLink(pqAnalyser->analyser(), m_pqPanel, this);
    connect(m_pLink, &gkBase::ScatAnalyserLink::markersReported, m_pqStatusLabel, &QLabel::setText);
    connect(m_pqPanel->scenarios(), &ScatScenarios::modifiedChanged, this, &ScatWindow::updateTitle);
    connect(m_pqPanel->scenarios(), &ScatScenarios::scenariosChanged, this, &ScatWindow::updateTitle);
    connect(poRoot->notifier(), &MatrixDataNotifier::attributesChanged, this, &ScatWindow::updateTitle);
    connect(poRoot->notifier(), &MatrixDataNotifier::structureChanged, this, &ScatWindow::restoreAttributes);
    updateTitle();
    m_pqPanel->setFocus();
}

ScatWindow::~ScatWindow()
{
    m_pqPanel->scenarios()->disconnect(this);
}

void ScatWindow::createMenus(const AnalyserWindow* pqAnalyser)
{
    QMenu* pqFile = menuBar()->addMenu(tr("&File"));
    pqFile->addAction(tr("&Export Chart…"), QKeySequence(tr("Ctrl+Shift+E")), this, &ScatWindow::exportChart);
    pqFile->addAction(tr("&Print Chart…"), QKeySequence::Print, this, &ScatWindow::printChart);
    pqFile->addSeparator();
    pqFile->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
    pqFile->addAction(tr("&Quit"), QKeySequence::Quit, m_pApplication, &AnalyserApplication::quit);

    QMenu* pqEdit = menuBar()->addMenu(tr("&Edit"));
    pqEdit->addAction(m_pqPanel->undoAction());
    pqEdit->addAction(m_pqPanel->redoAction());
    pqEdit->addSeparator();
    pqEdit->addAction(tr("Copy C&hart"), m_pqPanel, &QScatDepthPlotWidget::copyToClipboard);
    pqEdit->addAction(tr("&Clear Selection"), m_pqPanel, &QScatDepthPlotWidget::clearSelection);

    QMenu* pqView = menuBar()->addMenu(tr("&View"));
    QAction* pqMarkers =
        pqView->addAction(tr("&Marker Visibility…"), pqAnalyser->analyser(),
                          [this, pqDialog = pqAnalyser->analyser()] { pqDialog->showMarkerVisibilityDlg(this); });
    connect(pqView, &QMenu::aboutToShow, pqMarkers,
            [pqMarkers, pqDialog = QPointer<gkBase::QDataAnalyserDialog>(pqAnalyser->analyser())] {
                pqMarkers->setEnabled(pqDialog && pqDialog->hasMarkerVisibility());
            });

    QMenu* pqWindow = menuBar()->addMenu(tr("&Window"));
    connect(pqWindow, &QMenu::aboutToShow, this, [this, pqWindow] {
        pqWindow->clear();
        m_pApplication->listWindows(pqWindow, this);
    });
}

void ScatWindow::restoreAttributes()
{
    updateTitle(); // a data set that went takes its name along
    if (m_pqPanel->depthAttribute() && m_pqPanel->dipAttribute() && m_pqPanel->azimuthAttribute())
        return;
    std::array<MatrixData*, 3> apNodes{};
    for (std::size_t i = 0; i < apNodes.size(); ++i)
        if (!(apNodes[i] = m_pApplication->document()->root()->nodeFromID(m_aiAttributes[i])))
            return;
    m_pqPanel->setAttributes(apNodes[0], apNodes[1], apNodes[2]);
    m_pLink->takeSelection();
    updateTitle();
}

QString ScatWindow::wellName() const
{
    const MatrixData* poDepth = m_pqPanel->depthAttribute();
    const MatrixData* poDataSet = poDepth ? poDepth->owner() : nullptr;
    return poDataSet ? poDataSet->name() : QString();
}

QString ScatWindow::numberedName() const
{
    const QString sName = wellName();
    return m_iNumber > 1 && !sName.isEmpty() ? tr("%1 (%2)").arg(sName).arg(m_iNumber) : sName;
}

void ScatWindow::updateTitle()
{
    const QString sProgram = tr("SCAT Dipmeter[*] — gkanalyser");
    QString sName = numberedName(); // doubled, the sign of modified windows stands for itself
    sName.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    setWindowTitle(sName.isEmpty() ? sProgram : sName + QStringLiteral(" — ") + sProgram);
    bool bModified = false;
    for (int i = 0; i < m_pqPanel->scenarios()->count(); ++i)
        bModified = bModified || m_pqPanel->scenarios()->isModified(i);
    setWindowModified(bModified);
}

void ScatWindow::exportChart()
{
    const QString sPath = ChartOutput::write(this, m_pApplication->lastFolder() + QStringLiteral("/scat.png"),
                                             [this](const QString& sFile, const QSize& oSize, QString* psError) {
                                                 return m_pqPanel->exportChart(sFile, oSize, psError);
                                             });
    if (!sPath.isEmpty())
        m_pqStatusLabel->setText(tr("Exported %1").arg(sPath));
}

void ScatWindow::printChart()
{
    ChartOutput::print(this, windowTitle().remove(QStringLiteral("[*]")),
                       [this](QPrinter& printer) { gkBase::ChartExporter::print(printer, m_pqPanel->picture()); });
}

bool ScatWindow::canClose()
{
    return m_pqPanel->canClose();
}

void ScatWindow::closeUnasked()
{
    m_bAsked = true;
    close();
}

void ScatWindow::closeEvent(QCloseEvent* pEvent)
{
    if (!m_bAsked && !canClose()) {
        pEvent->ignore();
        return;
    }
    writeSettings();
    QMainWindow::closeEvent(pEvent);
}

void ScatWindow::readSettings()
{
    restoreGeometry(QSettings().value(geometryKey()).toByteArray());
    m_pqPanel->readSettings();
}

void ScatWindow::writeSettings() const
{
    QSettings().setValue(geometryKey(), saveGeometry());
    m_pqPanel->writeSettings();
}

} // namespace gkHost

// The controls of the dipmeter window and how they are laid out and connected.

#include "ChartDisplayPage.h"
#include "ChartPanelControls.h"
#include "DepthTrack.h"
#include "DisplayUnitManager.h"
#include "MatrixData.h"
#include "QDecoratedToolBox.h"
#include "QDepthTrackArea.h"
#include "QDepthTrackPlot.h"
#include "QScatDepthPlotWidget.h"
#include "ScatCreationGroup.h"
#include "ScatDirectionFinder.h"
#include "ScatDirectionGroup.h"
#include "ScatHelpSplitter.h"
#include "ScatLineList.h"
#include "ScatLinePage.h"
#include "ScatScenarioGroup.h"
#include "ScatScenarios.h"
#include "ScatTrackPage.h"
#include "ScatWheelGuard.h"

#include <QAction>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTimer>
#include <QUndoGroup>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iAreaMinimumWidth = 360;
constexpr int g_iAreaMinimumHeight = 160;
constexpr int g_iAreaWidth = 1000;
constexpr int g_iSideBarWidth = 360;
constexpr int g_iGroupMargin = 6;
constexpr int g_iNoticeMilliseconds = 6000;

/// The page of all groups has room for the list of lines at the usual heights of windows.
void tighten(QLayout& layout)
{
    const QMargins margins = layout.contentsMargins();
    layout.setContentsMargins(margins.left(), std::min(margins.top(), g_iGroupMargin), margins.right(),
                              std::min(margins.bottom(), g_iGroupMargin));
    layout.setSpacing(g_iGroupMargin / 2);
}

/// A text that stands out below the tracks while it is wanted.
QLabel* newHint(const char* pObjectName)
{
    auto* pqLabel = new QLabel;
    pqLabel->setTextFormat(Qt::PlainText);
    pqLabel->setObjectName(QLatin1String(pObjectName));
    pqLabel->setAutoFillBackground(true);
    pqLabel->setBackgroundRole(QPalette::ToolTipBase);
    pqLabel->setForegroundRole(QPalette::ToolTipText);
    pqLabel->hide();
    return pqLabel;
}

} // namespace

QScatDepthPlotWidget::QScatDepthPlotWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_viActiveTracks{DipTrack, AzimuthTrack, TransverseDipTrack, LongitudinalDipTrack}
    , m_dialogs(ScatDialogs::standard())
    , m_pqArea(new QDepthTrackArea(nullptr, QDepthTrackArea::Lines::PerTrack))
{
    m_pqArea->setMinimumSize(g_iAreaMinimumWidth, g_iAreaMinimumHeight);
    m_pqArea->setKeepsSelection(true);
    m_pqArea->setTracks(std::vector<DepthTrack>(NumberOfTracks));
    m_pScenarios = std::make_unique<ScatScenarios>(
        ScatScenarios::Models{m_pqArea->model(DipTrack), m_pqArea->model(AzimuthTrack),
                              m_pqArea->model(TransverseDipTrack), m_pqArea->model(LongitudinalDipTrack)});
    createActions();
    createControls();
    connectControls();
    connectArea();
    connectScenarios();
    enableTandLeditBoxes();
    setDataCreationType();
    setActiveTracks(m_viActiveTracks);
    applySettings();
    showScenarios();
    initializeDataSet();
    setFocusProxy(plot(DipTrack)); // keys act on the tracks at first
}

QScatDepthPlotWidget::~QScatDepthPlotWidget() = default;

void QScatDepthPlotWidget::createActions()
{
    m_pqUndoAction = undoGroup()->createUndoAction(this);
    m_pqRedoAction = undoGroup()->createRedoAction(this);
    m_pqUndoAction->setIconText(tr("Undo"));
    m_pqRedoAction->setIconText(tr("Redo"));
    m_pqUndoAction->setShortcut(Qt::CTRL | Qt::Key_Z);
    m_pqRedoAction->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    // Within the panel only: other panels of the window have their own histories, and so may the window.
    for (QAction* pqAction : {m_pqUndoAction, m_pqRedoAction})
        pqAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addActions({m_pqUndoAction, m_pqRedoAction});
}

// ---- layout ---------------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::createControls()
{
    m_pqTabs = new QTabWidget;
    m_pqTabs->addTab(createInterpretationPage(), tr("Interpretation"));
    m_pqTabs->addTab(createDisplayPage(), tr("Display"));
    layOutPanel(this, {createTracks()}, m_pqTabs, {g_iAreaWidth, g_iSideBarWidth});
    updateCursorPosLabel({g_dMissingValue, g_dMissingValue}, nullptr);
}

/// The tracks above a line that tells where the cursor is and what the mouse is for.
QWidget* QScatDepthPlotWidget::createTracks()
{
    m_pqCursorPosLabel = new QLabel;
    m_pqCursorPosLabel->setTextFormat(Qt::PlainText);
    m_pqCursorPosLabel->setObjectName(QStringLiteral("m_pqCursorPosLabel"));
    m_pqCursorPosLabel->setAccessibleName(tr("Position of the cursor"));
    m_pqCursorPosLabel->setMinimumWidth(1);
    m_pqOrientationLabel = newHint("m_pqOrientationLabel");
    m_pqOrientationLabel->setText(
        tr("Select the records that give the picked lines their orientation. Escape ends this."));
    m_pqNoticeLabel = newHint("m_pqNoticeLabel");
    m_pqNoticeTimer = new QTimer(this);
    m_pqNoticeTimer->setSingleShot(true);
    m_pqNoticeTimer->setInterval(g_iNoticeMilliseconds);
    connect(m_pqNoticeTimer, &QTimer::timeout, m_pqNoticeLabel, &QWidget::hide);
    auto* pqTracks = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqTracks);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    auto* pqLine = new QHBoxLayout;
    pqLine->addWidget(m_pqCursorPosLabel, 1);
    pqLine->addWidget(m_pqNoticeLabel);
    pqLine->addWidget(m_pqOrientationLabel);
    pqLayout->addWidget(m_pqArea, 1);
    pqLayout->addLayout(pqLine);
    return pqTracks;
}

QWidget* QScatDepthPlotWidget::createInterpretationPage()
{
    m_pqScenarioGroup = new ScatScenarioGroup(m_pqUndoAction, m_pqRedoAction);
    m_pqDirectionGroup = new ScatDirectionGroup;
    m_pqDirectionFinder = new ScatDirectionFinder;
    m_pqDirectionGroup->addHelp(m_pqDirectionFinder);
    m_pqCreationGroup = new ScatCreationGroup;
    auto* pqControls = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqControls);
    pqLayout->setContentsMargins(4, 4, 4, 4);
    pqLayout->addWidget(m_pqScenarioGroup);
    pqLayout->addWidget(m_pqCreationGroup);
    auto* pqHelp = new ScatHelpSplitter(m_pqDirectionGroup, m_pqDirectionFinder, createLineGroup());
    m_pqDirectionGroup->addButton(pqHelp->foldButton());
    pqLayout->addWidget(pqHelp, 1);
    pqLayout->addWidget(createMarkerGroup());
    for (QGroupBox* pqGroup : pqControls->findChildren<QGroupBox*>())
        tighten(*pqGroup->layout());
    keepFromWheel(*pqControls);
    QWidget* pqPage = newControlScrollArea(pqControls);
    pqPage->setObjectName(QStringLiteral("interpretationPage"));
    return pqPage;
}

QWidget* QScatDepthPlotWidget::createLineGroup()
{
    m_pqLineList = new ScatLineList(m_pScenarios.get());
    connect(m_pqLineList, &ScatLineList::depthActivated, this, &QScatDepthPlotWidget::centreOnDepth);
    auto* pqGroup = new QGroupBox(tr("Lines"));
    auto* pqLayout = new QVBoxLayout(pqGroup);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_pqLineList);
    return pqGroup;
}

QWidget* QScatDepthPlotWidget::createMarkerGroup()
{
    const QString sToolTip = tr("The interpreted planes will be send back as markers on the well");
    m_pqCreateMarkersButton = newButton(tr("Create/Update"), sToolTip, "m_pqCreateMarkersBtn");
    m_pqDeleteMarkersButton =
        newButton(tr("Delete"), tr("Take the markers of interpreted planes off the well"), "m_pqDeleteMarkersBtn");
    m_pqDeleteMarkersButton->setAccessibleName(tr("Delete Well Markers"));
    auto* pqGroup = new QGroupBox(tr("Well Markers"));
    pqGroup->setToolTip(sToolTip);
    auto* pqLayout = new QHBoxLayout(pqGroup);
    pqLayout->addWidget(m_pqCreateMarkersButton);
    pqLayout->addWidget(m_pqDeleteMarkersButton);
    return pqGroup;
}

QWidget* QScatDepthPlotWidget::createDisplayPage()
{
    m_pqTrackPage = new ScatTrackPage;
    m_pqLinePage = new ScatLinePage;
    m_pqDisplayPage = new ChartDisplayPage(
        ChartDisplayPage::Actions{[this](bool) { updateDiagramSettings(); }, [this](bool) { blackWhiteSwitch(); },
                                  [this](double dPointSize) { fontSizeChanged(dPointSize); },
                                  [this](double dZoom) { slotZoomFactorChanged(dZoom); }});
    auto* pqAnnotation = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqAnnotation);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    auto* pqReset = newButton(tr("Reset"), tr("Grid, background, font and zoom as at first"), "m_pqResetAnnotationBtn");
    connect(pqReset, &QPushButton::clicked, this, &QScatDepthPlotWidget::slotResetAnnotationSettings);
    pqLayout->addWidget(m_pqDisplayPage, 1);
    pqLayout->addWidget(pqReset);
    auto* pqToolBox = new QDecoratedToolBox;
    pqToolBox->addItem(m_pqTrackPage, tr("Tracks"));
    pqToolBox->addItem(m_pqLinePage, tr("Lines"));
    pqToolBox->addItem(pqAnnotation, tr("Annotation/Display Settings"));
    keepFromWheel(*pqToolBox);
    QWidget* pqPage = newSideBar({}, pqToolBox, tallestPage(*pqToolBox));
    pqPage->setObjectName(QStringLiteral("displayPage"));
    return pqPage;
}

// ---- connections ----------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::connectControls()
{
    using Panel = QScatDepthPlotWidget;
    connect(m_pqScenarioGroup, &ScatScenarioGroup::newAsked, this, &Panel::slotNewScenario);
    connect(m_pqScenarioGroup, &ScatScenarioGroup::importAsked, this, &Panel::slotOpenScenario);
    connect(m_pqScenarioGroup, &ScatScenarioGroup::saveAsked, this, &Panel::slotSaveScenario);
    connect(m_pqScenarioGroup, &ScatScenarioGroup::closeAsked, this, &Panel::slotCloseScenario);
    connect(m_pqScenarioGroup, &ScatScenarioGroup::scenarioChosen, this, &Panel::slotSelectScenario);
    connect(m_pqDirectionGroup, &ScatDirectionGroup::keepSwitched, this, &Panel::enableTandLeditBoxes);
    connect(m_pqDirectionGroup, &ScatDirectionGroup::transverseEdited, this, &Panel::slotRotateInTDirection);
    connect(m_pqDirectionGroup, &ScatDirectionGroup::longitudinalEdited, this, &Panel::slotRotateInLDirection);
    connect(m_pqDirectionFinder, &ScatDirectionFinder::directionsSuggested, this, &Panel::setDirections);
    connect(m_pqDirectionFinder, &ScatDirectionFinder::dataPointsSelection, this,
            &Panel::slotUpdateSelectionFromFinder);
    connect(m_pqCreationGroup, &ScatCreationGroup::typeChosen, this, &Panel::setDataCreationType);
    connect(m_pqCreateMarkersButton, &QPushButton::clicked, this, &Panel::createWellMarkers);
    connect(m_pqDeleteMarkersButton, &QPushButton::clicked, this, &Panel::deleteWellMarkers);
    connect(m_pqTrackPage, &ScatTrackPage::edited, this, &Panel::updateDiagramSettings);
    connect(m_pqTrackPage, &ScatTrackPage::dataChosen, this, &Panel::updateDisplayDataType);
    connect(m_pqTrackPage, &ScatTrackPage::lineColorPicked, this, &Panel::changeLineColor);
    connect(m_pqTrackPage, &ScatTrackPage::pointColorPicked, this, &Panel::changePointColor);
    connect(m_pqTrackPage, &ScatTrackPage::boundariesEdited, this, [this] { slotUpdateChartBoundaries(); });
    connect(m_pqTrackPage, &ScatTrackPage::boundariesReset, this,
            [this](bool bAutomatic) { slotUpdateChartBoundaries(bAutomatic); });
    connect(m_pqLinePage, &ScatLinePage::edited, this, &Panel::updateDiagramSettings);
    connect(m_pqLinePage, &ScatLinePage::transparencyEdited, this, &Panel::slotDomainTransparency);
    connect(m_pqArea, &QDepthTrackArea::zoomChanged, m_pqDisplayPage, &ChartDisplayPage::slotCanvasZoomed);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, [this] {
        m_pqArea->refresh(numberOfRecords()); // the depth axis too
        slotUpdateDiagrams();
    });
}

void QScatDepthPlotWidget::connectArea()
{
    using Panel = QScatDepthPlotWidget;
    connect(m_pqArea, &QDepthTrackArea::trackClicked, this, &Panel::activateTrack);
    connect(m_pqArea, &QDepthTrackArea::copyAsked, this, &Panel::copyToClipboard);
    connect(m_pqArea, &QDepthTrackArea::metafileCopyAsked, this, &Panel::copyEWMFToClipboard);
    connect(m_pqArea, &QDepthTrackArea::selectionMade, this, [this](bool* pbSelection, int iLength, int iTrack) {
        using Slot = void (Panel::*)(bool*, int);
        constexpr std::array<Slot, NumberOfTracks> aSlots = {
            &Panel::slotUpdateSelectionFromDipPlot, &Panel::slotUpdateSelectionFromAzimuthPlot,
            &Panel::slotUpdateSelectionFromTransverseDipPlot, &Panel::slotUpdateSelectionFromLongitudinalDipPlot};
        if (iTrack >= 0 && iTrack < NumberOfTracks)
            (this->*aSlots[static_cast<std::size_t>(iTrack)])(pbSelection, iLength);
    });
    connect(m_pqArea, &QDepthTrackArea::nothingSelected, this, &Panel::selectingOn);
    connect(plot(DipTrack), &QCrossPlot::cursorPos, this, &Panel::updateCursorPosLabelDip);
    connect(plot(AzimuthTrack), &QCrossPlot::cursorPos, this, &Panel::updateCursorPosLabelAzimuth);
    connect(plot(TransverseDipTrack), &QCrossPlot::cursorPos, this, &Panel::updateCursorPosLabelTransverseDip);
    connect(plot(LongitudinalDipTrack), &QCrossPlot::cursorPos, this, &Panel::updateCursorPosLabelLongitudinalDip);
    for (int iTrack = 0; iTrack < NumberOfTracks; ++iTrack)
        connectTrack(iTrack);
    // Magnifying moves the depths under a cursor that stands still.
    connect(m_pqArea, &QDepthTrackArea::zoomChanged, this, &Panel::updateCursorPosFromDipPlot);
    connect(m_pqArea, &QDepthTrackArea::zoomChanged, this, &Panel::updateCursorPosFromAzimuthPlot);
    connect(m_pqArea, &QDepthTrackArea::zoomChanged, this, &Panel::updateCursorPosFromTransverseDipPlot);
    connect(m_pqArea, &QDepthTrackArea::zoomChanged, this, &Panel::updateCursorPosFromLongitudinalDipPlot);
}

void QScatDepthPlotWidget::connectTrack(int iTrack)
{
    using Panel = QScatDepthPlotWidget;
    QDepthTrackPlot* pqPlot = plot(iTrack);
    pqPlot->setStructuralTopsMovable(true);
    pqPlot->setZeroLine(iTrack == TransverseDipTrack || iTrack == LongitudinalDipTrack);
    pqPlot->setLineOrientationPosition(
        [this, iTrack](const QPointF& oDipAndAzimuth) { return positionOf(iTrack, oDipAndAzimuth); });
    connect(pqPlot, &QCrossPlot::sendInsertScatUpdate, this, &Panel::slotInsertScatUpdate);
    connect(pqPlot, &QCrossPlot::sendScatPickPos, this, &Panel::slotPickPosUpdate);
    connect(pqPlot, &QCrossPlot::sendMoveSelectedUpdate, this, &Panel::slotMoveSelectedUpdate);
    connect(pqPlot, &QCrossPlot::sendMoveSelectedUpdateStop, this, &Panel::slotMoveSelectedUpdateStop);
    connect(pqPlot, &QCrossPlot::sendMoveSelectedCancel, this, &Panel::slotMoveSelectedCancel);
    connect(pqPlot, qOverload<QColor>(&QCrossPlot::sendScatUpdate), this,
            qOverload<QColor>(&Panel::slotSendScatUpdate));
    connect(pqPlot, qOverload<QString>(&QCrossPlot::sendScatUpdate), this,
            qOverload<const QString&>(&Panel::slotSendScatUpdate));
    connect(pqPlot, &QCrossPlot::sendDeleteSelectedUpdate, this, &Panel::slotDeleteSelected);
    connect(pqPlot, &QCrossPlot::sendModifySelectedOrientation, this,
            [this, pqPlot] { slotModifySelectedOrientation(pqPlot); });
    connect(pqPlot, &QCrossPlot::crossPlotLeaveEvent, this, &Panel::slotCrossPlotLeaveEvent);
    auto* pqClear = new QAction(tr("Clear Selection"), pqPlot);
    connect(pqClear, &QAction::triggered, this, &Panel::clearSelection);
    pqPlot->addAction(pqClear);
}

void QScatDepthPlotWidget::connectScenarios()
{
    using Panel = QScatDepthPlotWidget;
    const ScatScenarios* pScenarios = m_pScenarios.get();
    connect(pScenarios, &ScatScenarios::linesChanged, this, &Panel::showLines);
    connect(pScenarios, &ScatScenarios::pickChanged, this, &Panel::showLines);
    connect(pScenarios, &ScatScenarios::modifiedChanged, this, &Panel::showScenarios);
    connect(pScenarios, &ScatScenarios::scenariosChanged, this, [this] {
        applyLineLooks();
        showScenarios();
    });
    connect(pScenarios, &ScatScenarios::activeChanged, this, [this] {
        applyLineLooks();
        showScenarios();
    });
}

} // namespace gkBase

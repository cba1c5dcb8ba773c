#include "ScatDirectionFinder.h"

#include "ChartFrame.h"
#include "ElidedLabel.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "OrientationText.h"
#include "PolarChartFrame.h"
#include "QCartesianAxisWidget.h"
#include "QHistogramPlotWidget.h"
#include "QRelationshipItemModel.h"
#include "ScatAzimuthFrame.h"
#include "ScatDipAzimuthPlot.h"
#include "ScatFoldCurve.h"
#include "ScatTangentPlot.h"

#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>

#include <array>

namespace gkBase {

namespace {

constexpr double g_dSteepest = 85.0;    ///< of the planes that shape the line, as directionsByTangentLine() has it
constexpr int g_iPointSize = 1;         // they lie close together
const QColor g_oFoldColor(0, 120, 215); ///< of the line and the curve, seen on black, white and over the points
constexpr QSize g_oSizeHint(340, 350);
constexpr int g_iSpacing = 4;
constexpr int g_iNoteHeight = 400; ///< of the widget, below which the diagrams need the room of the note

AxisTicks dipTicks()
{
    AxisTicks ticks;
    for (int iDip = 0; iDip <= 90; iDip += 10) {
        if (iDip % 30 == 0) {
            ticks.m_vMajor << iDip;
            ticks.m_lLabels << QString::number(iDip);
        } else {
            ticks.m_vMinor << iDip;
        }
    }
    return ticks;
}

} // namespace

ScatDirectionFinder::ScatDirectionFinder(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pModel(new QRelationshipItemModel(this))
{
    m_pModel->setPointPixelSize(g_iPointSize);
    createDiagrams();
    createSuggestions();
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->setSpacing(g_iSpacing);
    pqLayout->addWidget(m_pqTabs, 1);
    pqLayout->addWidget(m_pqFitLabel);
    pqLayout->addWidget(m_pqLineBtn);
    pqLayout->addWidget(m_pqFirstGuessBtn);
    pqLayout->addWidget(m_pqNoteLabel);
    connectAll();
    showFit();
}

ScatDirectionFinder::~ScatDirectionFinder() = default;

// ---- set-up ---------------------------------------------------------------------------------------------------------

void ScatDirectionFinder::createDiagrams()
{
    m_pqTangent = new ScatTangentPlot;
    m_pqTangent->setModel(m_pModel);
    m_pqTangent->setFoldAxisMovable(false);
    m_pqTangent->setLineColor(g_oFoldColor);
    StereoNetSettings settings;
    settings.m_iProjectionTarget = 1;
    settings.m_bCoarseNet = true;
    m_pqTangent->setSettings(settings);
    m_pqTangent->setAccessibleName(tr("Tangent diagram"));
    m_pqTangentFrame = new PolarChartFrame(m_pqTangent);

    m_pqDipAzimuth = new ScatDipAzimuthPlot;
    m_pqDipAzimuth->setModel(m_pModel);
    m_pqDipAzimuth->setLineColor(g_oFoldColor);
    m_pqDipAzimuth->setPointFillColor(settings.m_oPointColor);
    m_pqDipAzimuth->setAccessibleName(tr("Dip against dip azimuth"));
    m_pqDipAzimuthFrame = new ChartFrame(m_pqDipAzimuth);
    QCartesianAxisWidget* pqDips = m_pqDipAzimuthFrame->leftAxis();
    pqDips->setTitle(tr("Dip"));
    pqDips->setFixedTicks(dipTicks());
    pqDips->setRange(0.0, 90.0);
    showAzimuthTicks(*m_pqDipAzimuthFrame->bottomAxis());
    pqDips->setUnitManager(m_pqDipAzimuthFrame->bottomAxis()->unitManager());

    m_pqAzimuthFrame = new ScatAzimuthFrame;
    m_pqAzimuthFrame->plot()->setAccessibleName(tr("Histogram of dip azimuths"));

    m_pqTabs = new QTabWidget;
    m_pqTabs->setDocumentMode(true);
    m_pqTabs->addTab(m_pqTangentFrame, tr("Tangent"));
    m_pqTabs->addTab(m_pqDipAzimuthFrame, tr("Dip-Azimuth"));
    m_pqTabs->addTab(m_pqAzimuthFrame, tr("Azimuths"));
    m_pqTabs->setTabToolTip(0, tr("Tangent diagram of the planes: those of a cylindrical fold lie on a line"));
    m_pqTabs->setTabToolTip(1, tr("Dip against dip azimuth, with the curve of the fold that fits"));
    m_pqTabs->setTabToolTip(2, tr("Histogram of the dip azimuths"));
    m_pqTabs->setAccessibleName(tr("Diagrams for finding the T and L directions"));
    setBlackBackground(false);
}

void ScatDirectionFinder::createSuggestions()
{
    m_pqFitLabel = new ElidedLabel;
    m_pqFitLabel->setTextFormat(Qt::PlainText);
    m_pqFitLabel->setAccessibleName(tr("Fold axis that fits"));
    m_pqLineBtn = new QPushButton;
    m_pqLineBtn->setObjectName(QStringLiteral("m_pqLineBtn"));
    m_pqFirstGuessBtn = new QPushButton;
    m_pqFirstGuessBtn->setObjectName(QStringLiteral("m_pqFirstGuessBtn"));
    m_pqNoteLabel = new ElidedLabel(tr("First guess: biased when the fold plunges"));
    m_pqNoteLabel->setTextFormat(Qt::PlainText);
    m_pqNoteLabel->setToolTip(
        tr("T of the largest root-mean-square apparent dip also follows the dip along the axis of a plunging fold"));
}

void ScatDirectionFinder::connectAll()
{
    for (QChartDrawingArea* pqCanvas : std::array<QChartDrawingArea*, 2>{m_pqTangent, m_pqDipAzimuth}) {
        connect(pqCanvas, &QChartDrawingArea::dataPointsSelection, this, &ScatDirectionFinder::slotCanvasSelection);
    }
    connect(m_pqTangent, &QChartDrawingArea::cursorPos, this, [this](const QPointF& oPlane) {
        m_pqTangentFrame->setCursorText(planeText({oPlane.x(), oPlane.y()}, OrientationConvention::DipAzimuth));
    });
    connect(m_pqDipAzimuth, &QChartDrawingArea::cursorPos, this, [this](const QPointF& oPosition) {
        m_pqDipAzimuthFrame->setCursorText(
            planeText({oPosition.y(), oPosition.x()}, OrientationConvention::DipAzimuth));
    });
    connect(m_pqTabs, &QTabWidget::currentChanged, this, &ScatDirectionFinder::countAzimuthsIfSeen);
    connect(m_pqLineBtn, &QPushButton::clicked, this,
            [this] { emit directionsSuggested(m_lineSuggestion.m_dTransverse, m_lineSuggestion.m_dLongitudinal); });
    connect(m_pqFirstGuessBtn, &QPushButton::clicked, this,
            [this] { emit directionsSuggested(m_firstGuess.m_dTransverse, m_firstGuess.m_dLongitudinal); });
}

// ---- data -----------------------------------------------------------------------------------------------------------

void ScatDirectionFinder::setData(int iRecords, MatrixData* poDip, MatrixData* poAzimuth,
                                  const std::vector<int>& viTableRows)
{
    watchTree(poDip);
    m_oDip = MatrixDataPointer(poDip);
    m_oAzimuth = MatrixDataPointer(poAzimuth);
    if (!poDip || !poAzimuth) {
        clear();
        return;
    }
    const int iBefore = m_pModel->numberOfPoints();
    m_pModel->takeNewDataSet(iRecords, QRelationshipItemModel::OrientationDisplay, poDip, poAzimuth, nullptr, nullptr,
                             false, viTableRows);
    if (iBefore != 0 && iBefore != m_pModel->numberOfPoints()) {
        m_viSelected.clear(); // of another well
    }
    m_pModel->setSelectedRecords(m_viSelected);
    modelChanged();
}

void ScatDirectionFinder::watchTree(MatrixData* poNode)
{
    if (m_pqNotifier) {
        m_pqNotifier->disconnect(this);
    }
    m_pqNotifier = poNode ? poNode->notifier() : nullptr;
    if (m_pqNotifier) {
        connect(m_pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                &ScatDirectionFinder::slotNodeAboutToBeRemoved);
        connect(m_pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this, &ScatDirectionFinder::clear);
    }
}

void ScatDirectionFinder::clear()
{
    m_oDip = {};
    m_oAzimuth = {};
    m_pModel->clear();
    modelChanged();
}

void ScatDirectionFinder::refresh()
{
    if (!m_oDip || !m_oAzimuth) {
        clear();
        return;
    }
    m_pModel->refresh();
    modelChanged();
}

void ScatDirectionFinder::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    if (MatrixDataNotifier::contains(poBranch, m_oDip.get()) ||
        MatrixDataNotifier::contains(poBranch, m_oAzimuth.get())) {
        clear();
    }
}

void ScatDirectionFinder::setSelectedRecords(const std::vector<int>& viRecords)
{
    m_viSelected = viRecords;
    if (m_pModel->setSelectedRecords(viRecords)) {
        modelChanged();
    }
}

/// An outline around nothing, and a click beside all records, bring the selection back that all other charts show.
void ScatDirectionFinder::slotCanvasSelection()
{
    if (m_pModel->numberOfSelectedPoints() == 0) {
        m_pModel->setSelectedRecords(m_viSelected);
        modelChanged();
        return;
    }
    m_viSelected = m_pModel->selectedRecords();
    modelChanged();
    emit dataPointsSelection(m_pModel->selection(), m_pModel->numberOfPoints());
}

// ---- what is shown --------------------------------------------------------------------------------------------------

void ScatDirectionFinder::setDirections(double dT, double dL)
{
    m_pqTangent->setDirections(dT, dL);
    m_pqDipAzimuth->setDirections(dT, dL);
    m_pqAzimuthFrame->plot()->setTandLdirection(dT, dL);
}

void ScatDirectionFinder::setBlackBackground(bool bBlack)
{
    for (CanvasFrame* pqFrame : std::array<CanvasFrame*, 3>{m_pqTangentFrame, m_pqDipAzimuthFrame, m_pqAzimuthFrame}) {
        pqFrame->setBlackBackground(bBlack);
    }
}

void ScatDirectionFinder::setFontSize(double dPointSize)
{
    for (CanvasFrame* pqFrame : std::array<CanvasFrame*, 3>{m_pqTangentFrame, m_pqDipAzimuthFrame, m_pqAzimuthFrame}) {
        pqFrame->setFontSize(dPointSize);
    }
}

void ScatDirectionFinder::showDiagrams(bool bShow)
{
    m_pqTabs->setVisible(bShow);
    showNoteIfRoom();
    // At once, for who asks for the heights now.
    for (QWidget* pqWidget = this; pqWidget; pqWidget = pqWidget->parentWidget()) {
        if (pqWidget->layout())
            pqWidget->layout()->invalidate();
    }
    updateGeometry();
}

/// The tool tip of the button says it, too.
void ScatDirectionFinder::showNoteIfRoom()
{
    m_pqNoteLabel->setVisible(areDiagramsShown() && height() >= g_iNoteHeight);
}

void ScatDirectionFinder::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    showNoteIfRoom();
}

bool ScatDirectionFinder::areDiagramsShown() const
{
    return !m_pqTabs->isHidden();
}

int ScatDirectionFinder::diagramsHeight() const
{
    const int iNote = m_pqNoteLabel->isHidden() ? 0 : m_pqNoteLabel->minimumSizeHint().height() + g_iSpacing;
    return m_pqTabs->minimumSizeHint().height() + g_iSpacing + iNote;
}

int ScatDirectionFinder::suggestionsHeight() const
{
    return minimumSizeHint().height() - (areDiagramsShown() ? diagramsHeight() : 0);
}

QSize ScatDirectionFinder::sizeHint() const
{
    return areDiagramsShown() ? g_oSizeHint : minimumSizeHint();
}

void ScatDirectionFinder::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    modelChanged();
}

void ScatDirectionFinder::modelChanged()
{
    if (!isVisible() || m_iShownRevision == m_pModel->revision()) {
        return;
    }
    m_iShownRevision = m_pModel->revision();
    if (m_iRimPointsRevision != m_pModel->pointsRevision()) {
        m_iRimPointsRevision = m_pModel->pointsRevision();
        StereoNetSettings settings = m_pqTangent->settings();
        settings.m_dMaximumAngle = tangentRimAngle(m_pModel->x());
        m_pqTangent->setSettings(settings);
    }
    updateResults();
    showFit();
    m_pqTangent->scheduleRedraw();
    m_pqDipAzimuth->scheduleRedraw();
    countAzimuthsIfSeen();
}

void ScatDirectionFinder::updateResults()
{
    const std::span<const double> vdDips = m_pModel->x();
    const std::span<const double> vdAzimuths = m_pModel->y();
    const std::span<const unsigned char> vbTaken = m_pModel->takenMask();
    m_fit = tangentFit(vdDips, vdAzimuths, g_dSteepest, vbTaken);
    m_lineSuggestion = directionsOfFit(m_fit, vdDips, vdAzimuths, vbTaken);
    m_firstGuess = directionsByRootMeanSquare(vdDips, vdAzimuths, vbTaken);
}

void ScatDirectionFinder::countAzimuthsIfSeen()
{
    if (m_pqAzimuthFrame->isVisible() && m_iCountedRevision != m_pModel->revision()) {
        m_iCountedRevision = m_pModel->revision();
        m_pqAzimuthFrame->countAzimuths(*m_pModel);
    }
}

// ---- texts ----------------------------------------------------------------------------------------------------------

void ScatDirectionFinder::showFit()
{
    const bool bFound = !isMissing(m_fit.m_oFoldAxis.m_dPlunge);
    m_pqTangent->setShowFoldAxis(bFound);
    m_pqTangent->setFoldAxis(m_fit.m_oFoldAxis.m_dPlunge, m_fit.m_oFoldAxis.m_dAzimuth);
    m_pqDipAzimuth->setFoldAxis(m_fit.m_oFoldAxis);
    m_pqDipAzimuth->setMessage(m_pModel->numberOfValidPoints() == 0 ? tr("No planes") : QString());
    const QString sPlanes = tr("%1 planes, %2 too steep").arg(m_fit.m_iCount).arg(m_fit.m_iTooSteep);
    m_pqFitLabel->setText(
        bFound ? tr("Axis %1, dev. %2, %3")
                     .arg(lineText(m_fit.m_oFoldAxis), QString::number(m_fit.m_dDeviation, 'f', 3), sPlanes)
               : tr("No fold axis, %1").arg(sPlanes));
    m_pqFitLabel->setToolTip(
        tr("Plunge/azimuth of the fold axis in degrees, and the root-mean-square distance of the planes from its line "
           "in tangents. %1 steeper than 85° or overturned and %2 without angles are left out.")
            .arg(m_fit.m_iTooSteep)
            .arg(m_fit.m_iMissing));
    showSuggestion(*m_pqLineBtn, tr("Line"), m_lineSuggestion,
                   tr("T across the axis of the line that fits the planes in the tangent diagram, L along it"));
    showSuggestion(*m_pqFirstGuessBtn, tr("First guess"), m_firstGuess,
                   tr("T as the direction of the largest root-mean-square apparent dip, L across it: a first guess, "
                      "biased when the fold plunges"));
}

QString ScatDirectionFinder::reason(const TransverseDirections& directions) const
{
    if (directions.m_iCount == 0) {
        return tr("no planes");
    }
    return directions.m_iCount < 2 ? tr("needs two planes") : tr("no direction stands out");
}

void ScatDirectionFinder::showSuggestion(QPushButton& button, const QString& sRule,
                                         const TransverseDirections& directions, const QString& sHelp)
{
    const bool bDefined = !isMissing(directions.m_dTransverse);
    const QString sWhat =
        bDefined ? tr("T %1, L %2").arg(azimuthText(directions.m_dTransverse), azimuthText(directions.m_dLongitudinal))
                 : reason(directions);
    button.setText(tr("%1: %2").arg(sRule, sWhat));
    button.setAccessibleName(button.text());
    button.setToolTip(sHelp);
    button.setEnabled(bDefined);
}

} // namespace gkBase

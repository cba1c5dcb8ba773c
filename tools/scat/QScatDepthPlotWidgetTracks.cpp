// The tracks of the dipmeter window: which are active and how they look.

#include "AngleUnits.h"
#include "Angles.h"
#include "ApparentDip.h"
#include "ChartDisplayPage.h"
#include "DepthTrack.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "QDepthTrackArea.h"
#include "QDepthTrackPlot.h"
#include "QScatDepthPlotWidget.h"
#include "ScatDirectionFinder.h"
#include "ScatLineList.h"
#include "ScatLinePage.h"
#include "ScatScenarios.h"
#include "ScatTrackPage.h"
#include "UnitManager.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

constexpr double g_dRightAngle = 90.0;
constexpr double g_dHalfCircle = 180.0;
constexpr double g_dFullCircle = 360.0;
constexpr int g_iPointSize = 2;
constexpr int g_iTadpoleSize = 3;
constexpr int g_iDecimals = 1;

bool isApparentDip(int iTrack)
{
    return iTrack == QScatDepthPlotWidget::TransverseDipTrack || iTrack == QScatDepthPlotWidget::LongitudinalDipTrack;
}

} // namespace

QDepthTrackPlot* QScatDepthPlotWidget::plot(int iTrack) const
{
    return m_pqArea->plot(iTrack);
}

MatrixData* QScatDepthPlotWidget::values(int iTrack) const
{
    switch (iTrack) {
    case DipTrack:
        return m_poDip.get();
    case AzimuthTrack:
        return m_poAzimuth.get();
    case TransverseDipTrack:
        return m_poTransverseDip.get();
    default:
        return m_poLongitudinalDip.get();
    }
}

ScatTrackLimits QScatDepthPlotWidget::limits(int iTrack) const
{
    ScatTrackLimits suitable{0.0, g_dRightAngle};
    if (iTrack == AzimuthTrack)
        suitable.m_dMaximum = m_bMercatorScaling ? g_dHalfCircle : g_dFullCircle;
    else if (isApparentDip(iTrack))
        suitable = m_apparentDipLimits;
    const ScatTrackSettings& settings = m_settings.m_aTracks[static_cast<std::size_t>(iTrack)];
    return chosenTrackLimits(suitable, settings.m_dMinimum, settings.m_dMaximum, isApparentDip(iTrack));
}

DepthTrack QScatDepthPlotWidget::depthTrack(int iTrack) const
{
    MatrixData* poValues = hasData() ? values(iTrack) : nullptr;
    if (!poValues)
        return {};
    const ScatTrackSettings& settings = m_settings.m_aTracks[static_cast<std::size_t>(iTrack)];
    DepthTrack track =
        settings.m_bTadpoles ? DepthTrack::tadpoles(poValues, m_poAzimuth.get()) : DepthTrack::curve(poValues);
    track.m_oStyle.m_bLine = settings.m_eData != ScatTrackSettings::Points;
    track.m_oStyle.m_bPoints = settings.m_eData != ScatTrackSettings::Line;
    track.m_oStyle.m_iPointSize = settings.m_bTadpoles ? g_iTadpoleSize : g_iPointSize;
    track.m_oStyle.m_oColor = settings.m_oLineColor;
    track.m_oStyle.m_oPointColor = settings.m_oPointColor;
    track.m_bDirections = iTrack == AzimuthTrack;
    track.m_oStyle.m_bAutomaticLimits = false;
    const auto [dMinimum, dMaximum] = limits(iTrack);
    const double dUnit = degreesPerUnit(*poValues);
    track.m_oStyle.m_dMinimum = dMinimum / dUnit;
    track.m_oStyle.m_dMaximum = dMaximum / dUnit;
    track.m_sTitle = poValues->name();
    if (iTrack == TransverseDipTrack)
        track.m_sNote = tr("T = %1°").arg(transverseDirection(), 0, 'f', g_iDecimals);
    else if (iTrack == LongitudinalDipTrack)
        track.m_sNote = tr("L = %1°").arg(longitudinalDirection(), 0, 'f', g_iDecimals);
    return track;
}

void QScatDepthPlotWidget::refillTrack(int iTrack)
{
    m_pqArea->refillTrack(iTrack, depthTrack(iTrack));
    if (isApparentDip(iTrack) && m_poDip)
        plot(iTrack)->setSteepLimit(g_dSteepestApparentDip / degreesPerUnit(*m_poDip.get()));
}

/// Where an orientation in degrees stands on a track.
double QScatDepthPlotWidget::positionOf(int iTrack, const QPointF& oDipAndAzimuth) const
{
    const MatrixData* poValues = values(iTrack);
    if (!poValues)
        return g_dEmptyCell;
    double dDegrees = oDipAndAzimuth.x();
    if (iTrack == AzimuthTrack)
        dDegrees = wrapAzimuth(oDipAndAzimuth.y());
    else if (isApparentDip(iTrack))
        dDegrees = apparentDip(oDipAndAzimuth.x(), oDipAndAzimuth.y(),
                               iTrack == TransverseDipTrack ? transverseDirection() : longitudinalDirection());
    return dDegrees / degreesPerUnit(*poValues);
}

// ---- active tracks --------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::setActiveTracks(const std::vector<int>& viTracks)
{
    std::vector<int> viActive;
    for (int iTrack = 0; iTrack < NumberOfTracks; ++iTrack) {
        if (std::find(viTracks.begin(), viTracks.end(), iTrack) != viTracks.end())
            viActive.push_back(iTrack);
    }
    if (viActive.empty())
        return;
    m_viActiveTracks = viActive;
    m_pqArea->setMarkedTracks(m_viActiveTracks);
    showTrackSettings();
}

std::vector<int> QScatDepthPlotWidget::activeTracks() const
{
    return m_viActiveTracks;
}

/// With Ctrl a track comes beside the others, or leaves them.
void QScatDepthPlotWidget::activateTrack(int iTrack)
{
    std::vector<int> viActive{iTrack};
    if (QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier)) {
        viActive = m_viActiveTracks;
        if (std::erase(viActive, iTrack) == 0)
            viActive.push_back(iTrack);
    }
    setActiveTracks(viActive);
}

void QScatDepthPlotWidget::editActiveTracks(const std::function<void(ScatTrackSettings&)>& fnEdit)
{
    for (const int iTrack : m_viActiveTracks)
        fnEdit(m_settings.m_aTracks[static_cast<std::size_t>(iTrack)]);
    applySettings();
}

// ---- looks ----------------------------------------------------------------------------------------------------------

/// The pages show the settings of the active tracks, and where these differ.
void QScatDepthPlotWidget::showTrackSettings()
{
    std::vector<ScatTrackSettings> vSettings;
    std::vector<ScatTrackPage::Shown> vShown;
    QStringList lNames;
    for (const int iTrack : m_viActiveTracks) {
        vSettings.push_back(m_settings.m_aTracks[static_cast<std::size_t>(iTrack)]);
        const auto [dMinimum, dMaximum] = limits(iTrack);
        vShown.push_back({vSettings.back(), dMinimum, dMaximum});
        const MatrixData* poValues = values(iTrack);
        lNames << (poValues ? poValues->name() : tr("Track %1").arg(iTrack + 1));
    }
    m_pqTrackPage->setSettings(vShown);
    m_pqLinePage->setSettings(vSettings);
    const ChartDisplaySettings& display = vSettings.front().m_oDisplay;
    const bool bSameGrid = std::all_of(vSettings.begin(), vSettings.end(), [&](const ScatTrackSettings& settings) {
        return settings.m_oDisplay.m_bGrid == display.m_bGrid;
    });
    const bool bShowing = std::exchange(m_bShowingSettings, true);
    m_pqDisplayPage->setSettings(display);
    m_pqDisplayPage->setGridMixed(!bSameGrid);
    m_bShowingSettings = bShowing;
    m_pqTrackPage->setActiveTracks(lNames.size() == NumberOfTracks ? QStringList() : lNames);
}

void QScatDepthPlotWidget::updateDiagramSettings()
{
    if (m_bShowingSettings || !m_pqDisplayPage)
        return;
    const ChartDisplaySettings display = m_pqDisplayPage->settings();
    const bool bGridSwitched = m_pqDisplayPage->isGridSwitched();
    for (ScatTrackSettings& settings : m_settings.m_aTracks) {
        settings.m_oDisplay.m_bBlackBackground = display.m_bBlackBackground;
        settings.m_oDisplay.m_dFontSize = display.m_dFontSize;
        settings.m_iVertexSampling = m_pqTrackPage->vertexSampling();
    }
    editActiveTracks([&](ScatTrackSettings& settings) {
        m_pqTrackPage->writeTo(settings);
        m_pqLinePage->writeTo(settings);
        if (bGridSwitched)
            settings.m_oDisplay.m_bGrid = display.m_bGrid;
    });
}

void QScatDepthPlotWidget::updateDisplayDataType(int iData)
{
    if (iData < ScatTrackSettings::Points || iData > ScatTrackSettings::PointsAndLine)
        return;
    editActiveTracks(
        [iData](ScatTrackSettings& settings) { settings.setData(static_cast<ScatTrackSettings::Data>(iData)); });
}

void QScatDepthPlotWidget::changeLineColor()
{
    const QColor oColor = m_pqTrackPage->lineColor();
    editActiveTracks([&oColor](ScatTrackSettings& settings) { settings.m_oLineColor = oColor; });
}

void QScatDepthPlotWidget::changePointColor()
{
    const QColor oColor = m_pqTrackPage->pointColor();
    editActiveTracks([&oColor](ScatTrackSettings& settings) { settings.m_oPointColor = oColor; });
}

/// Only lines are drawn again while the slider moves.
void QScatDepthPlotWidget::slotDomainTransparency(int iPercent)
{
    for (const int iTrack : m_viActiveTracks)
        m_settings.m_aTracks[static_cast<std::size_t>(iTrack)].m_iTransparency = std::clamp(iPercent, 0, 100);
    showTrackSettings();
    applyLineLooks();
}

void QScatDepthPlotWidget::applySettings()
{
    const ChartDisplaySettings& display = m_settings.m_aTracks.front().m_oDisplay;
    m_pqArea->setBlackBackground(display.m_bBlackBackground);
    m_pqArea->setFontSize(display.m_dFontSize);
    m_pqDirectionFinder->setFontSize(display.m_dFontSize);
    m_pqDirectionFinder->setBlackBackground(display.m_bBlackBackground);
    for (int iTrack = 0; iTrack < NumberOfTracks; ++iTrack)
        m_pqArea->setTrackGrid(iTrack, m_settings.m_aTracks[static_cast<std::size_t>(iTrack)].m_oDisplay.m_bGrid);
    applySampling();
    slotUpdateDiagrams();
    applyLineLooks();
}

void QScatDepthPlotWidget::applySampling()
{
    const int iStep = m_settings.m_aTracks.front().m_iVertexSampling;
    const int iAll = m_viTableRows.empty() ? numberOfRecords() : static_cast<int>(m_viTableRows.size());
    std::vector<int> viRecords;
    for (int i = 0; iStep > 1 && i < iAll; i += iStep)
        viRecords.push_back(m_viTableRows.empty() ? i : m_viTableRows[static_cast<std::size_t>(i)]);
    const std::vector<int>& viTakePart = iStep > 1 ? viRecords : m_viTableRows;
    m_pqArea->setTableRows(viTakePart);
    m_pqDirectionFinder->setData(numberOfRecords(), hasData() ? m_poDip.get() : nullptr, m_poAzimuth.get(), viTakePart);
}

void QScatDepthPlotWidget::applyLineLooks()
{
    for (int iScenario = 0; iScenario < m_pScenarios->count(); ++iScenario) {
        const std::vector<DepthLineField*> vpFields = m_pScenarios->fields(iScenario);
        for (std::size_t iTrack = 0; iTrack < vpFields.size(); ++iTrack)
            m_settings.m_aTracks[iTrack].applyTo(*vpFields[iTrack]);
    }
    deselectHiddenLines();
    showLines();
}

void QScatDepthPlotWidget::slotUpdateDiagrams()
{
    m_pqLineList->setDepthAttribute(m_poDepth.get());
    m_pqTrackPage->setDepthUnit(m_poDepth ? m_poDepth->unitManager() : nullptr);
    for (int iTrack = 0; iTrack < NumberOfTracks; ++iTrack)
        refillTrack(iTrack);
    showTrackSettings();
    showDepthRange();
    showLines();
}

void QScatDepthPlotWidget::showDepthRange()
{
    m_pqTrackPage->setDepthRange(m_poDepth ? m_pqArea->depthFrom() : g_dMissingValue,
                                 m_poDepth ? m_pqArea->depthTo() : g_dMissingValue);
}

void QScatDepthPlotWidget::slotUpdateChartBoundaries(bool bAutomatic)
{
    if (!bAutomatic) {
        slotUpdateChartBoundaries();
        return;
    }
    m_pqArea->showWholeRange();
    editActiveTracks([](ScatTrackSettings& settings) {
        settings.m_dMinimum = g_dMissingValue;
        settings.m_dMaximum = g_dMissingValue;
    });
}

void QScatDepthPlotWidget::slotUpdateChartBoundaries()
{
    if (m_pqTrackPage->depthFrom() != m_pqArea->depthFrom() || m_pqTrackPage->depthTo() != m_pqArea->depthTo())
        m_pqArea->setDepthRange(m_pqTrackPage->depthFrom(), m_pqTrackPage->depthTo());
    if (m_pqTrackPage->areLimitsReversed())
        showTrackSettings(); // ends that make no axis go back
    else
        editActiveTracks([this](ScatTrackSettings& settings) { m_pqTrackPage->writeTo(settings); });
}

void QScatDepthPlotWidget::blackWhiteSwitch()
{
    updateDiagramSettings();
}

void QScatDepthPlotWidget::fontSizeChanged(double dPointSize)
{
    if (m_bShowingSettings || !m_pqDisplayPage || !(dPointSize > 0.0))
        return;
    for (ScatTrackSettings& settings : m_settings.m_aTracks)
        settings.m_oDisplay.m_dFontSize = dPointSize;
    applySettings();
}

void QScatDepthPlotWidget::slotResetAnnotationSettings()
{
    for (ScatTrackSettings& settings : m_settings.m_aTracks) {
        settings.m_oDisplay = ChartDisplaySettings();
        settings.m_oDisplay.m_dFontSize = font().pointSizeF();
    }
    slotZoomFactorReset(false);
    applySettings();
}

// ---- depth ----------------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::slotZoomFactorReset(bool bOn)
{
    if (bOn)
        m_pqDisplayPage->applyZoom();
    else
        slotZoomFactorChanged(1.0);
}

void QScatDepthPlotWidget::slotZoomFactorChanged(double dZoom)
{
    if (dZoom > 0.0)
        m_pqArea->setZoom(dZoom);
}

void QScatDepthPlotWidget::slotVerticalSliderChanged(int iRow)
{
    m_pqArea->panToRow(iRow);
}

void QScatDepthPlotWidget::centreOnDepth(double dDepth)
{
    if (m_poDepth && !isMissing(dDepth))
        slotVerticalSliderChanged(m_pqArea->rowForCentre(dDepth));
}

} // namespace gkBase

#include "QDepthPlotWidget.h"

#include "AttributeChooser.h"
#include "ChartDisplayPage.h"
#include "ChartExporter.h"
#include "DepthDecimationPage.h"
#include "DepthIntervalPage.h"
#include "DepthTrackEditor.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MetafileClipboard.h"
#include "MissingValue.h"
#include "QDepthTrackArea.h"
#include "QRelationshipItemModel.h"
#include "QUnitLineEdit.h"
#include "UnitManager.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QPainter>
#include <QSettings>
#include <QSignalBlocker>

#include <algorithm>
#include <memory>
#include <utility>

namespace gkBase {

namespace {

/// More curves than this are hard to read side by side; the user adds them.
constexpr std::size_t g_iFirstTracks = 8;
constexpr QLatin1String g_tadpoles("Tadpoles"); ///< key of their looks
constexpr QLatin1String g_visibility("$V");

MatrixData* dataSetOf(MatrixData* poData)
{
    return poData && poData->isAttribute() ? poData->parentNode() : poData;
}

QString keyOf(const DepthTrack& track)
{
    return track.m_eKind == DepthTrack::Tadpoles ? QString(g_tadpoles) : track.name();
}

} // namespace

// ---- data -----------------------------------------------------------------------------------------------------------

void QDepthPlotWidget::setDataRoot(MatrixData* poRoot)
{
    if (!(m_poRoot == poRoot)) {
        if (m_poRoot)
            m_poRoot->notifier()->disconnect(this);
        m_poRoot = MatrixDataPointer(poRoot);
        m_pqArea->lines()->setDataRoot(poRoot);
        m_viSelectedRecords.clear();
        if (poRoot) {
            MatrixDataNotifier* pqNotifier = poRoot->notifier();
            connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this,
                    &QDepthPlotWidget::slotNodeAboutToBeRemoved);
            connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                    &QDepthPlotWidget::slotRootAboutToBeDestroyed);
        }
        setDataSet(nullptr);
    }
    updateDataSetSelectionBox();
}

void QDepthPlotWidget::setDataSet(MatrixData* poData)
{
    chooseDataSet(poData);
    updateDepthPlot();
}

void QDepthPlotWidget::chooseDataSet(MatrixData* poData)
{
    rememberLooks();
    MatrixData* poDataSet = dataSetOf(poData);
    m_poDataSet = MatrixDataPointer(poDataSet);
    m_poDepth = MatrixDataPointer(poDataSet ? poDataSet->depthAttribute() : nullptr);
    m_vTracks = defaultTracks();
    m_viSelectedRecords.clear();
    m_pqArea->lines()->deleteIntervalBoundaries();
    m_bRebuild = true;
    updateDataSetSelectionBox();
}

void QDepthPlotWidget::setDepthAttribute(MatrixData* poDepth)
{
    m_poDepth = MatrixDataPointer(isNumericAttribute(poDepth) ? poDepth : nullptr);
    m_pqArea->lines()->deleteIntervalBoundaries();
    m_bRebuild = true;
    updateDepthPlot();
}

void QDepthPlotWidget::setTracks(const std::vector<MatrixData*>& vpAttributes)
{
    rememberLooks();
    std::vector<DepthTrack> vTracks;
    for (MatrixData* poAttribute : vpAttributes) {
        if (isNumericAttribute(poAttribute) && poAttribute->recordCount() <= numberOfRecords())
            vTracks.push_back(curveWithLooks(poAttribute));
    }
    setDepthTracks(vTracks);
}

void QDepthPlotWidget::setTadpoles(MatrixData* poDip, MatrixData* poAzimuth)
{
    std::vector<DepthTrack> vTracks = m_vTracks;
    std::erase_if(vTracks, [](const DepthTrack& track) { return track.m_eKind == DepthTrack::Tadpoles; });
    if (isNumericAttribute(poDip) && isNumericAttribute(poAzimuth)) {
        DepthTrack track = DepthTrack::tadpoles(poDip, poAzimuth);
        const auto style = m_settings.m_styles.find(g_tadpoles);
        if (style != m_settings.m_styles.end())
            track.m_oStyle = style->second;
        vTracks.insert(vTracks.begin(), track);
    }
    setDepthTracks(vTracks);
}

void QDepthPlotWidget::setDepthTracks(const std::vector<DepthTrack>& vTracks)
{
    m_vTracks = vTracks;
    rememberTracks();
    m_bRebuild = true;
    updateDepthPlot();
}

int QDepthPlotWidget::numberOfRecords() const
{
    int iRecords = 0;
    if (const MatrixData* poDataSet = m_poDataSet.get()) {
        for (const MatrixData* poLeaf : poDataSet->leafs())
            iRecords = std::max(iRecords, poLeaf->recordCount());
    }
    return iRecords;
}

DepthTrack QDepthPlotWidget::curveWithLooks(MatrixData* poAttribute) const
{
    DepthTrack track = DepthTrack::curve(poAttribute);
    const auto style = m_settings.m_styles.find(poAttribute->name());
    if (style != m_settings.m_styles.end()) {
        track.m_oStyle = style->second;
    } else if (const MatrixData* poDataSet = m_poDataSet.get(); poDataSet && poDataSet->dipAttribute()) {
        // Planes were picked one by one; a line from one to the next says nothing.
        track.m_oStyle.m_bLine = false;
        track.m_oStyle.m_bPoints = true;
    }
    return track;
}

std::vector<DepthTrack> QDepthPlotWidget::defaultTracks() const
{
    std::vector<DepthTrack> vTracks;
    const MatrixData* poDataSet = m_poDataSet.get();
    if (!poDataSet)
        return vTracks;
    MatrixData* poDip = poDataSet->dipAttribute();
    MatrixData* poAzimuth = poDataSet->azimuthAttribute();
    const bool bTadpoles = poDip && poAzimuth;
    if (bTadpoles) {
        vTracks.push_back(DepthTrack::tadpoles(poDip, poAzimuth));
        const auto style = m_settings.m_styles.find(g_tadpoles);
        if (style != m_settings.m_styles.end())
            vTracks.back().m_oStyle = style->second;
    }
    std::vector<DepthTrack> vCurves;
    std::vector<DepthTrack> vRemembered(static_cast<std::size_t>(m_settings.m_lTracks.size()));
    for (MatrixData* poLeaf : poDataSet->leafs()) {
        const bool bTaken = m_poDepth == poLeaf || (bTadpoles && (poLeaf == poDip || poLeaf == poAzimuth));
        if (!isNumericAttribute(poLeaf) || bTaken || poLeaf->isVertex() || poLeaf->name() == g_visibility)
            continue;
        const qsizetype iRemembered = m_settings.m_lTracks.indexOf(poLeaf->name());
        if (iRemembered >= 0)
            vRemembered[static_cast<std::size_t>(iRemembered)] = curveWithLooks(poLeaf);
        if (vCurves.size() < g_iFirstTracks)
            vCurves.push_back(curveWithLooks(poLeaf));
    }
    const bool bAllThere = !vRemembered.empty() && std::all_of(vRemembered.begin(), vRemembered.end(),
                                                               [](const DepthTrack& t) { return bool(t.m_poValues); });
    const std::vector<DepthTrack>& vChosen = bAllThere ? vRemembered : vCurves;
    vTracks.insert(vTracks.end(), vChosen.begin(), vChosen.end());
    return vTracks;
}

void QDepthPlotWidget::rememberLooks()
{
    for (const DepthTrack& track : m_vTracks) {
        if (track.m_poValues)
            m_settings.m_styles[keyOf(track)] = track.m_oStyle;
    }
}

void QDepthPlotWidget::rememberTracks()
{
    m_settings.m_lTracks.clear();
    for (const DepthTrack& track : m_vTracks) {
        if (track.m_eKind == DepthTrack::Curve && track.m_poValues)
            m_settings.m_lTracks << track.name();
    }
}

bool QDepthPlotWidget::setSelectedRows(const std::vector<int>& viRecords)
{
    if (viRecords == m_viSelectedRecords)
        return false;
    m_viSelectedRecords = viRecords;
    if (!m_bRebuild)
        m_pqArea->setSelectedRecords(viRecords);
    showDecimation();
    return true;
}

void QDepthPlotWidget::updateDepthPlot()
{
    if (m_bRebuild) {
        m_bRebuild = false;
        m_pqArea->setTracks({});
        m_pqArea->setDepth(m_poDepth.get(), numberOfRecords());
        m_pqArea->setTracks(m_vTracks);
        const MatrixData* poDepth = m_poDepth.get();
        const boost::shared_ptr<UnitManager> poUnit = poDepth ? poDepth->unitManager() : nullptr;
        m_pqIntervalPage->setUnitManager(poUnit);
        m_pqIntervalPage->setSize(proposedIntervalSize());
        m_pqDepthFromEdit->unitManager(poUnit);
        m_pqDepthToEdit->unitManager(poUnit);
        m_pqTrackEditor->setTracks(m_vTracks);
        m_pqArea->setCurrentTrack(m_pqTrackEditor->currentTrack());
    } else {
        m_pqArea->refresh(numberOfRecords());
        m_pqTrackEditor->showCurrentTrack();
    }
    m_pqArea->setSelectedRecords(m_viSelectedRecords);
    m_pqArea->setTitle(tr("Depth Plot"), m_poDataSet ? m_poDataSet->name() : QString());
    showDepthRange();
    showMarkers();
    showMessage();
    intervalsChanged();
}

void QDepthPlotWidget::showMessage()
{
    double dMin = 0.0;
    double dMax = 0.0;
    m_pqArea->dataRange(dMin, dMax);
    QString sMessage;
    if (!m_poDataSet)
        sMessage = tr("Select a data set.");
    else if (!m_poDepth)
        sMessage = tr("This data set has no depth. Choose one of its attributes as the depth.");
    else if (isMissing(dMin))
        sMessage = tr("The depth has no values.");
    else if (m_vTracks.empty())
        sMessage = tr("Add attributes on the page \"Tracks\".");
    m_pqArea->setMessage(sMessage);
}

// ---- choosers -------------------------------------------------------------------------------------------------------

void QDepthPlotWidget::updateDataSetSelectionBox()
{
    fillDataSetBox();
    fillAttributeBoxes(nullptr);
}

void QDepthPlotWidget::fillDataSetBox()
{
    QList<QString> lNames;
    QList<int> liIds;
    QList<QColor> lColors;
    if (m_poRoot)
        m_poRoot->getDataSetSelectionBoxItems(lNames, liIds, lColors, MatrixData::NumericPair, false);
    const QSignalBlocker blocker(m_pqDepthPlotDataSetComboBox);
    m_pqDepthPlotDataSetComboBox->clear();
    for (qsizetype i = 0; i < liIds.size(); ++i)
        m_pqDepthPlotDataSetComboBox->addItem(lNames.value(i), liIds[i]);
    m_pqDepthPlotDataSetComboBox->setCurrentIndex(
        m_poDataSet ? m_pqDepthPlotDataSetComboBox->findData(m_poDataSet->globalID()) : -1);
}

void QDepthPlotWidget::fillAttributeBoxes(const MatrixData* poLeaving)
{
    const std::vector<AttributeEntry> vEntries = attributeEntries(m_poRoot.get(), poLeaving);
    const MatrixData* poDataSet = m_poDataSet.get();
    const int iRecords = numberOfRecords();
    std::vector<AttributeEntry> vOwn;
    std::vector<DepthTrackEditor::Offer> vOffers;
    std::vector<DepthTrackEditor::Offer> vForeign;
    for (const AttributeEntry& entry : vEntries) {
        if (!poDataSet || !isNumericAttribute(entry.m_poNode))
            continue;
        if (entry.m_poNode->parentNode() == poDataSet) {
            vOwn.push_back({entry.m_poNode, entry.m_poNode->name(), iRecords});
            vOffers.push_back({entry.m_poNode->name(), MatrixDataPointer(entry.m_poNode)});
        } else if (entry.m_iRecords == iRecords) {
            vForeign.push_back({entry.m_sName, MatrixDataPointer(entry.m_poNode)});
        }
    }
    vOffers.insert(vOffers.end(), vForeign.begin(), vForeign.end());
    m_pqDepthAttributeChooser->setEntries(vOwn, {});
    m_pqDepthAttributeChooser->choose(m_poDepth.get());
    const bool bLeaves = poLeaving && MatrixDataNotifier::contains(poLeaving, poDataSet);
    MatrixData* poDip = poDataSet && !bLeaves ? poDataSet->dipAttribute() : nullptr;
    MatrixData* poAzimuth = poDataSet && !bLeaves ? poDataSet->azimuthAttribute() : nullptr;
    if (MatrixDataNotifier::contains(poLeaving, poDip) || MatrixDataNotifier::contains(poLeaving, poAzimuth))
        poDip = nullptr;
    m_pqTrackEditor->setOffers(std::move(vOffers), poDip, poAzimuth);
}

void QDepthPlotWidget::slotDataSetActivated(int iEntry)
{
    const int iGlobalID = m_pqDepthPlotDataSetComboBox->itemData(iEntry).toInt();
    chooseDataSet(m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr);
    emit signalUpdateChartData();
    // An owner fills the panel on the signal, with the rows that it knows; once is enough.
    if (m_bRebuild)
        updateDepthPlot();
}

void QDepthPlotWidget::slotDepthChosen(int iGlobalID)
{
    setDepthAttribute(m_poRoot ? m_poRoot->nodeFromID(iGlobalID) : nullptr);
    emit signalUpdateChartData();
}

void QDepthPlotWidget::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    const bool bDataSet = MatrixDataNotifier::contains(poBranch, m_poDataSet.get());
    const bool bDepth = MatrixDataNotifier::contains(poBranch, m_poDepth.get());
    bool bTracks = false;
    for (DepthTrack& track : m_vTracks) {
        if (!track.uses(poBranch))
            continue;
        bTracks = true;
        const bool bQualityOnly = !MatrixDataNotifier::contains(poBranch, track.m_poValues.get()) &&
                                  !MatrixDataNotifier::contains(poBranch, track.m_poAzimuth.get());
        if (bQualityOnly)
            track.m_poQuality = MatrixDataPointer();
        else
            track = DepthTrack(); // an empty track stays, so that the others keep their places
    }
    if (bDataSet) {
        m_poDataSet = MatrixDataPointer();
        m_vTracks.clear();
        m_viSelectedRecords.clear();
        fillDataSetBox();
    }
    if (bDepth || bDataSet)
        m_poDepth = MatrixDataPointer();
    if (bDepth || bDataSet || bTracks) {
        m_bRebuild = true;
        updateDepthPlot();
    }
    // The choosers must not offer what goes; they are filled again when the owner asks.
    const QSignalBlocker blocker(m_pqDepthPlotDataSetComboBox);
    const int iEntry = m_pqDepthPlotDataSetComboBox->findData(poBranch->globalID());
    if (iEntry >= 0)
        m_pqDepthPlotDataSetComboBox->removeItem(iEntry);
    fillAttributeBoxes(poBranch);
}

void QDepthPlotWidget::slotRootAboutToBeDestroyed()
{
    m_poRoot = MatrixDataPointer();
    m_pqArea->lines()->setDataRoot(nullptr);
    setDataSet(nullptr);
}

void QDepthPlotWidget::slotDisplayUnitChanged(const QString&)
{
    if (m_bRebuild)
        return;
    m_pqArea->refresh(numberOfRecords());
    m_pqTrackEditor->showCurrentTrack();
    showDepthRange();
}

// ---- tracks and depth range -----------------------------------------------------------------------------------------

void QDepthPlotWidget::slotTracksEdited(const std::vector<DepthTrack>& vTracks)
{
    m_vTracks = vTracks;
    bool bLooksChanged = false;
    for (DepthTrack& track : m_vTracks) {
        // A new curve gets the looks that its attribute had before.
        const auto style = m_settings.m_styles.find(keyOf(track));
        if (style != m_settings.m_styles.end() && track.m_oStyle == DepthTrackStyle() &&
            style->second != track.m_oStyle) {
            track.m_oStyle = style->second;
            bLooksChanged = true;
        }
    }
    if (bLooksChanged)
        m_pqTrackEditor->setTracks(m_vTracks);
    rememberLooks();
    rememberTracks();
    m_pqArea->setTracks(m_vTracks);
    m_pqArea->setCurrentTrack(m_pqTrackEditor->currentTrack());
    showMessage();
    showDecimation();
}

void QDepthPlotWidget::slotTrackEdited(int iTrack)
{
    const DepthTrack track = m_pqTrackEditor->tracks()[static_cast<std::size_t>(iTrack)];
    m_vTracks[static_cast<std::size_t>(iTrack)] = track;
    m_settings.m_styles[keyOf(track)] = track.m_oStyle;
    m_pqArea->setTrack(iTrack, track);
}

void QDepthPlotWidget::showDepthRange()
{
    const bool bDepth = m_poDepth.get() != nullptr;
    m_pqDepthFromEdit->setModelValue(bDepth ? m_pqArea->depthFrom() : g_dMissingValue, false);
    m_pqDepthToEdit->setModelValue(bDepth ? m_pqArea->depthTo() : g_dMissingValue, false);
    m_pqDepthFromEdit->setEnabled(bDepth);
    m_pqDepthToEdit->setEnabled(bDepth);
}

void QDepthPlotWidget::slotDepthRangeEdited()
{
    m_pqArea->setDepthRange(m_pqDepthFromEdit->modelValue(), m_pqDepthToEdit->modelValue());
    showDepthRange(); // bounds that make no range go back
}

// ---- selection, settings, pictures ----------------------------------------------------------------------------------

void QDepthPlotWidget::slotSelectionMade(bool* pbSelection, int iLength)
{
    m_viSelectedRecords = m_pqArea->selectedRecords();
    if (m_pqDecimationPage->selectedOnly())
        showDecimation();
    emit dataPointsSelection(pbSelection, iLength);
}

void QDepthPlotWidget::setBlackBackground(bool bBlack)
{
    m_pqDisplayPage->setBlackBackground(bBlack);
}

void QDepthPlotWidget::readSettings(const QString& sGroup)
{
    QSettings settings;
    m_settings = DepthPlotSettings::load(settings, sGroup);
    m_pqDisplayPage->setSettings(m_settings.m_oDisplay);
    const DepthMarkerSwitches switches = m_settings.m_oMarkers;
    {
        const QSignalBlocker blockers[] = {QSignalBlocker(m_pqShowTops), QSignalBlocker(m_pqShowFaults),
                                           QSignalBlocker(m_pqShowScat), QSignalBlocker(m_pqShowDecimated)};
        m_pqShowTops->setChecked(switches.m_bTops);
        m_pqShowFaults->setChecked(switches.m_bFaults);
        m_pqShowScat->setChecked(switches.m_bScat);
        m_pqShowDecimated->setChecked(switches.m_bDecimated);
    }
    m_pqMarkerLabels->setChecked(m_settings.m_bMarkerLabels);
    m_pqDecimationPage->setBinAverage(m_settings.m_bBinAverage);
    m_pqDecimationPage->setReplaces(m_settings.m_bReplace);
    for (DepthTrack& track : m_vTracks) {
        const auto style = m_settings.m_styles.find(keyOf(track));
        if (style != m_settings.m_styles.end())
            track.m_oStyle = style->second;
    }
    m_bRebuild = true;
    updateDepthPlot();
}

void QDepthPlotWidget::writeSettings(const QString& sGroup) const
{
    DepthPlotSettings current = m_settings;
    current.m_oDisplay = m_pqDisplayPage->settings();
    current.m_bMarkerLabels = m_pqMarkerLabels->isChecked();
    current.m_bBinAverage = m_pqDecimationPage->binAverage();
    current.m_bReplace = m_pqDecimationPage->replaces();
    for (const DepthTrack& track : m_vTracks) {
        if (track.m_poValues)
            current.m_styles[keyOf(track)] = track.m_oStyle;
    }
    QSettings settings;
    current.save(settings, sGroup);
}

void QDepthPlotWidget::copyToClipboard()
{
    QApplication::clipboard()->setPixmap(m_pqArea->grabChart());
}

void QDepthPlotWidget::copyEWMFToClipboard()
{
    copyMetafileToClipboard(ChartExporter::metafile(m_pqArea->size(), picture()), this);
}

void QDepthPlotWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    m_pqArea->renderTo(painter, oTarget);
}

ChartPicture QDepthPlotWidget::picture()
{
    return {m_pqArea->backgroundColor(), m_pqArea->title(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QDepthPlotWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

} // namespace gkBase

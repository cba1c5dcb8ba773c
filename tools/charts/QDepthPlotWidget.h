#pragma once

#include "ChartExporter.h"
#include "DepthMarkers.h"
#include "DepthPlotSettings.h"
#include "DepthTrack.h"
#include "MatrixDataPointer.h"
#include "gkBaseToolsExport.h"

#include <QSize>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <vector>

class QCheckBox;
class QComboBox;
class QPainter;
class QRectF;

namespace gkBase {

class AttributeChooser;
class ChartDisplayPage;
class DepthDecimationPage;
class DepthIntervalPage;
class DepthTrackEditor;
class MatrixData;
class QDepthTrackArea;
class QRelationshipItemModel;
class QUnitLineEdit;

/// The depth plot panel: the curves and tadpoles of a well side by side over one depth axis, with the controls of
/// tracks, interval filter, decimation, markers and looks.
///
/// The owner gives the root and the data set; the user may choose another data set, another depth and other tracks. An
/// attribute that is removed from the tree leaves an empty track. Changes of values do not redraw by themselves: the
/// owner calls updateDepthPlot() when the panel is visible.
class GKBASETOOLS_EXPORT QDepthPlotWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QDepthPlotWidget(QWidget* pqParent = nullptr);
    ~QDepthPlotWidget() override;

    // ---- data ----------------------------------------------------------------------------------------------------
    /// Not owned; null empties choosers and tracks. Fills the choosers.
    void setDataRoot(MatrixData* poRoot);
    /// Shows a data set (an attribute: the one that it belongs to) over its depth attribute: the tracks of the last
    /// session when it has them all, otherwise tadpoles when it has dip and azimuth, and its first numeric attributes.
    /// Not owned; null empties the plot.
    void setDataSet(MatrixData* poData);
    /// As setDataSet(), but nothing is read before the next updateDepthPlot(): for a panel that is not seen.
    void chooseDataSet(MatrixData* poData);
    MatrixData* currentSelectedDataSet() const { return m_poDataSet.get(); }
    /// Any numeric attribute of the data set may be its depth; null leaves a message instead of tracks.
    void setDepthAttribute(MatrixData* poDepth);
    MatrixData* depthAttribute() const { return m_poDepth.get(); }
    /// Replaces the tracks by curves of these attributes; others than numeric ones with as many records as the data
    /// set are left out. Looks that an attribute of that name had are kept.
    void setTracks(const std::vector<MatrixData*>& vpAttributes);
    /// Puts a tadpole track before all others, or replaces it; null takes it away.
    void setTadpoles(MatrixData* poDip, MatrixData* poAzimuth);
    /// All tracks with their looks.
    void setDepthTracks(const std::vector<DepthTrack>& vTracks);
    std::vector<DepthTrack> depthTracks() const { return m_vTracks; }
    /// Fills the choosers again; what is shown stays when it is still there.
    void updateDataSetSelectionBox();
    /// The records that are marked in all tracks. Tells whether the list differs from the last one.
    bool setSelectedRows(const std::vector<int>& viRecords);

    // ---- interval filter, decimation -----------------------------------------------------------------------------
    /// Boundaries every dSize (model units of the depth) over the depths that are shown.
    void generateIntervals(double dSize);
    void generateNumberOfIntervals(int n);
    void deleteIntervals();
    /// Decimates every track and asks the owner to write the result.
    void applyDecimation();

    // ---- markers: which kinds are shown --------------------------------------------------------------------------
    /// Structural planes of the dipmeter window.
    void setAllScatMarkersVisibility(bool bVisible);
    /// Tadpoles of "Decimated:dip" and "Decimated:azimuth".
    void setAllDecimatedDipAzimuthMarkersVisibility(bool bVisible);
    /// "Fault" (faults) or "Top" (tops and horizons); nothing for another type.
    void setAllTypeMarkersVisibility(const QString& sType, bool bVisible);
    void setAllTopMarkersVisibility(bool bVisible);
    DepthMarkerSwitches markerVisibility() const { return m_settings.m_oMarkers; }

    // ---- looks and files -----------------------------------------------------------------------------------------
    void setBlackBackground(bool bBlack);
    /// Settings of that group ("attribute_analyser/well_log_plot/").
    void readSettings(const QString& sGroup);
    void writeSettings(const QString& sGroup) const;
    QDepthTrackArea* trackArea() const { return m_pqArea; }

    /// Draws title, headers, depth axis and all tracks into the rectangle of any device; the panel need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the plot to a .png, .svg, .pdf or .emf file of that logical size. On failure the file is left alone and
    /// the reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// The tracks with headers and depth axis as a bitmap.
    void copyToClipboard();
    /// The same at zoom 1 as an enhanced metafile.
    void copyEWMFToClipboard();
    /// Reads attributes and markers again.
    void updateDepthPlot();

signals:
    /// A lasso selected records; one flag per record, copied at once by the receiver.
    void dataPointsSelection(bool* pbSelection, int iLength);
    /// The user has chosen another data set or depth.
    void signalUpdateChartData();
    /// A track was decimated; the receiver writes the results of the model (not owned) as attributes. poOriginal is
    /// the attribute that was decimated.
    void createDataDecimationAttribute(QRelationshipItemModel* pqItemModel, bool bBinAverage, bool bReplace,
                                       MatrixData* poOriginal);

private:
    void createControls();
    QWidget* createDataGroup();
    QWidget* createMarkerPage();
    void connectControls();
    void connectPages();

    void slotDataSetActivated(int iEntry);
    void slotDepthChosen(int iGlobalID);
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    void slotDisplayUnitChanged(const QString& sCategory);
    void slotTracksEdited(const std::vector<DepthTrack>& vTracks);
    void slotTrackEdited(int iTrack);
    void slotDepthRangeEdited();
    void slotBoundaryPressed(double dDepth, double dTolerance);
    void slotMarkersSwitched();
    void slotSelectionMade(bool* pbSelection, int iLength);

    int numberOfRecords() const;
    std::vector<DepthTrack> defaultTracks() const;
    DepthTrack curveWithLooks(MatrixData* poAttribute) const;
    void rememberLooks();
    void rememberTracks();
    void fillDataSetBox();
    /// The depth and what new tracks can show: numeric attributes of the data set, and those of others with as many
    /// records; none of a branch that is about to go (may be null).
    void fillAttributeBoxes(const MatrixData* poLeaving);
    void showDepthRange();
    void showMarkers();
    void showMessage();
    /// After a change of the boundaries.
    void intervalsChanged();
    /// The range that generated boundaries cover: what is shown of the records.
    bool intervalRange(double& dMin, double& dMax) const;
    /// A round size in display units; 99999.0 without depths.
    double proposedIntervalSize() const;
    /// Works out the bins of the first tracks, as far as they are not those of the last time.
    void decimate(int iTracks);
    void showDecimation();

    MatrixDataPointer m_poRoot;
    MatrixDataPointer m_poDataSet;
    MatrixDataPointer m_poDepth;
    std::vector<DepthTrack> m_vTracks;
    std::vector<int> m_viSelectedRecords;
    bool m_bRebuild = true;                        ///< the next update shows depth and tracks from the start
    std::uint64_t m_iMarkerKey = 0;                ///< of the markers that are shown
    std::vector<std::uint64_t> m_viDecimationKeys; ///< per track, of its last decimation
    DepthPlotSettings m_settings;

    QDepthTrackArea* m_pqArea;
    QComboBox* m_pqDepthPlotDataSetComboBox = nullptr;
    AttributeChooser* m_pqDepthAttributeChooser = nullptr;
    QUnitLineEdit* m_pqDepthFromEdit = nullptr;
    QUnitLineEdit* m_pqDepthToEdit = nullptr;
    DepthTrackEditor* m_pqTrackEditor = nullptr;
    DepthIntervalPage* m_pqIntervalPage = nullptr;
    DepthDecimationPage* m_pqDecimationPage = nullptr;
    QCheckBox* m_pqShowTops = nullptr;
    QCheckBox* m_pqShowFaults = nullptr;
    QCheckBox* m_pqShowScat = nullptr;
    QCheckBox* m_pqShowDecimated = nullptr;
    QCheckBox* m_pqMarkerLabels = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;
};

} // namespace gkBase

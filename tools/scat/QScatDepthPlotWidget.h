#pragma once

#include "ChartExporter.h"
#include "DepthLineField.h"
#include "MatrixDataPointer.h"
#include "ScatDialogs.h"
#include "ScatLineDefaults.h"
#include "ScatSettings.h"
#include "ScatTrackLimits.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QSize>
#include <QString>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QAction;
class QCloseEvent;
class QEvent;
class QKeyEvent;
class QLabel;
class QPainter;
class QPushButton;
class QRectF;
class QTabWidget;
class QTimer;
class QUndoGroup;

namespace gkBase {

class ChartDisplayPage;
class MatrixData;
class QCrossPlot;
class QDepthTrackArea;
class QDepthTrackPlot;
class ScatCreationGroup;
class ScatDirectionFinder;
class ScatDirectionGroup;
class ScatLineList;
class ScatLinePage;
class ScatScenarioGroup;
class ScatScenarios;
class ScatTrackPage;
struct DepthTrack;

/// The dipmeter window: dip, azimuth, transverse dip and longitudinal dip of a well side by side over one depth axis
/// (Bengtson 1981). Transverse and longitudinal dips are the apparent dips towards two directions, T across the fold
/// and L along its axis. On the tracks the user draws structural planes, horizons and faults, always on all four; sets
/// of such lines are scenarios.
///
/// Directions are azimuths in degrees, depths in the model unit of the depth. The data sets stay with the host; one
/// that is removed leaves the panel empty. Edits of depth, dip and azimuth are followed.
class GKBASETOOLS_EXPORT QScatDepthPlotWidget : public QWidget
{
    Q_OBJECT
public:
    /// The tracks from left to right.
    enum Track
    {
        DipTrack,
        AzimuthTrack,
        TransverseDipTrack,
        LongitudinalDipTrack,
        NumberOfTracks
    };

    explicit QScatDepthPlotWidget(QWidget* pqParent = nullptr);
    ~QScatDepthPlotWidget() override;

    // ---- data ----------------------------------------------------------------------------------------------------
    /// Not owned; another root, or null, empties the panel.
    void setDataRoot(MatrixData* poRoot);
    /// Shows depth, dip and azimuth of a data set (an attribute: of the one that it belongs to). Null, or one without
    /// them, leaves a message instead of tracks.
    void setDataSet(MatrixData* poDataSetOrAttribute);
    /// Shows these attributes of one data set; nothing for others than numeric ones. Not owned.
    void setAttributes(MatrixData* poDepth, MatrixData* poDip, MatrixData* poAzimuth);
    MatrixData* depthAttribute() const { return m_poDepth.get(); }
    MatrixData* dipAttribute() const { return m_poDip.get(); }
    MatrixData* azimuthAttribute() const { return m_poAzimuth.get(); }
    /// The apparent dips in the unit of the dip; null without data. Owned by the panel, replaced when the number of
    /// records changes.
    MatrixData* transverseDip() const { return m_poTransverseDip.get(); }
    MatrixData* longitudinalDip() const { return m_poLongitudinalDip.get(); }
    int numberOfRecords() const;
    /// The records that take part, of a filtered or thinned table; empty for all.
    void setTableRows(const std::vector<int>& viRecords);

    // ---- selection -----------------------------------------------------------------------------------------------
    /// Marks these records in all tracks; emits nothing.
    void setSelectedRecords(const std::vector<int>& viRecords);
    std::vector<int> selectedRecords() const;

    // ---- directions ----------------------------------------------------------------------------------------------
    /// What a host proposes for its present selection: taken unless the user keeps the directions; also taken then
    /// while both are 0.
    void updateTandLdirection(const double& dT, const double& dL);
    /// Whether updateTandLdirection() would take anything; a host need not compute what would not be taken.
    bool takesProposals() const;
    /// Takes the directions in any case. A missing one stays as it is.
    void setDirections(double dT, double dL);
    double transverseDirection() const;
    double longitudinalDirection() const;

    // ---- lines ---------------------------------------------------------------------------------------------------
    ScatScenarios* scenarios() const { return m_pScenarios.get(); }
    QUndoGroup* undoGroup() const;
    /// For the menu of a window; their keys work wherever the panel has the focus, and only there.
    QAction* undoAction() const { return m_pqUndoAction; }
    QAction* redoAction() const { return m_pqRedoAction; }
    /// The lines of the active scenario; null without one.
    const DepthLineField* structuralTops() const;
    /// Deletes the lines of the active scenario.
    void clearAllStructuralTops();
    /// Adds an empty scenario, which becomes the active one.
    void addStructuralTopsSenario(const QString& sName);
    void deselectAllStructuralTops();
    /// The mean orientation (dip, dip azimuth) of the selected records, which the picked lines take in the orientation
    /// mode; nothing otherwise.
    void updateMeanOrientation(const QPointF& oDipAndAzimuth);
    bool isOrientationMode() const { return m_bOrientationMode; }
    /// Adds the scenario of a file. On failure false with the reason in psError (may be null).
    bool importScenario(const QString& sPath, QString* psError);
    /// Asks what becomes of the changes of each scenario that has some. False when the user wants to stay.
    bool canClose();
    /// Replaces the dialogs. Functions that are not set keep those of the desktop.
    void setDialogs(ScatDialogs dialogs);

    // ---- looks and files -----------------------------------------------------------------------------------------
    /// The tracks on which settings act; all at first, never none.
    void setActiveTracks(const std::vector<int>& viTracks);
    std::vector<int> activeTracks() const;
    QDepthTrackArea* trackArea() const { return m_pqArea; }
    /// Brings a depth to the middle of the magnified tracks, as far as they go.
    void centreOnDepth(double dDepth);
    void setBlackBackground(bool bBlack);
    /// The azimuth track ends at 180 instead of 360.
    void setMercatorScaling(bool bOn);
    /// Takes a page out of the side bar: "interpretationPage" or "displayPage".
    void hideTab(const QString& sName);
    void readSettings();
    void writeSettings() const;

    /// Draws title, headers, depth axis and all tracks into the rectangle of any device; the panel need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the tracks to a .png, .svg, .pdf or .emf file of that logical size. On failure the file is left alone and
    /// the reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// The tracks with headers and depth axis as a bitmap.
    void copyToClipboard();
    /// The same at zoom 1 as an enhanced metafile.
    void copyEWMFToClipboard();
    /// Deselects all records, here and at the host.
    void clearSelection();

signals:
    /// A gesture selected records; one flag per record, copied at once by the receiver.
    void dataPointsSelection(bool* pbSelection, int iLength);
    /// The lines of the active scenario are to become markers of the well, in place of those made before.
    void createWellMarkers();
    void deleteWellMarkers();
    /// T or L is another one than before, whoever changed it.
    void directionsChanged(double dT, double dL);

protected:
    /// Within the panel the keys of undo and redo are the panel's, whatever they do in its window.
    bool event(QEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    /// Escape ends the orientation mode, or clears the selection, or without one deselects all lines. Delete deletes
    /// the picked lines that are seen.
    void keyPressEvent(QKeyEvent* pEvent) override;

private slots:
    void enableTandLeditBoxes();
    void slotRotateInTDirection(double dT);
    void slotRotateInLDirection(double dL);

    // Tracks.
    void slotZoomFactorReset(bool bOn);
    void slotZoomFactorChanged(double dZoom);
    void slotVerticalSliderChanged(int iRow);
    void updateDiagramSettings();
    void updateDisplayDataType(int iData);
    void changeLineColor();
    void changePointColor();
    void slotUpdateDiagrams();
    void slotUpdateChartData();
    void slotUpdateChartBoundaries(bool bAutomatic);
    void slotUpdateChartBoundaries();
    void blackWhiteSwitch();
    void fontSizeChanged(double dPointSize);
    void slotResetAnnotationSettings();
    void slotDomainTransparency(int iPercent);

    // Cursor.
    void updateCursorPosLabel(QPointF oPosition, gkBase::MatrixData* poValues);
    void updateCursorPosLabelDip(QPointF oPosition);
    void updateCursorPosLabelAzimuth(QPointF oPosition);
    void updateCursorPosLabelTransverseDip(QPointF oPosition);
    void updateCursorPosLabelLongitudinalDip(QPointF oPosition);
    void updateCursorPosFromDipPlot();
    void updateCursorPosFromAzimuthPlot();
    void updateCursorPosFromTransverseDipPlot();
    void updateCursorPosFromLongitudinalDipPlot();
    void slotCrossPlotLeaveEvent(QEvent* pEvent);

    // Selection.
    void slotUpdateSelection(bool* pbSelection, int iLength);
    void slotUpdateSelectionFromDipPlot(bool* pbSelection, int iLength);
    void slotUpdateSelectionFromAzimuthPlot(bool* pbSelection, int iLength);
    void slotUpdateSelectionFromTransverseDipPlot(bool* pbSelection, int iLength);
    void slotUpdateSelectionFromLongitudinalDipPlot(bool* pbSelection, int iLength);

    // Lines.
    void setDataCreationType();
    void slotInsertScatUpdate(QPointF oPosition);
    void slotSendScatUpdate(QColor oColor);
    void slotSendScatUpdate(const QString& sName);
    void slotDeleteSelected();
    void slotPickPosUpdate(const std::vector<int>& viLines);
    void slotMoveSelectedUpdate(QPointF oStep);
    void slotMoveSelectedUpdateStop();
    void slotMoveSelectedCancel();
    void slotModifySelectedOrientation();
    void slotModifySelectedOrientation(QCrossPlot* pqPlot);

    // Scenarios.
    void slotNewScenario();
    void slotSaveScenario();
    void slotOpenScenario();
    void slotCloseScenario();
    void slotSelectScenario(int iScenario);

private:
    void createActions();
    void createControls();
    QWidget* createTracks();
    QWidget* createInterpretationPage();
    QWidget* createLineGroup();
    QWidget* createMarkerGroup();
    QWidget* createDisplayPage();
    void connectControls();
    void connectArea();
    void connectTrack(int iTrack);
    void connectScenarios();

    // Data.
    void followRoot(MatrixData* poRoot);
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    void slotValuesChanged(gkBase::MatrixData* poNode);
    bool hasData() const;
    void initializeDataSet();
    /// Makes the data set of apparent dips when there is none or it has another number of records, and fills it.
    void rotateDipData(const QString& sName, std::unique_ptr<MatrixData>& poTarget, const double& dDirection);
    void rotateBoth();
    /// After a change of the apparent dips.
    void showApparentDips();
    void proposeDirections();
    void showMessage();

    // Tracks.
    MatrixData* values(int iTrack) const;
    DepthTrack depthTrack(int iTrack) const;
    /// Limits of a track in degrees: what its settings say, or those that suit it.
    ScatTrackLimits limits(int iTrack) const;
    void refillTrack(int iTrack);
    double positionOf(int iTrack, const QPointF& oDipAndAzimuth) const;
    void showTrackSettings();
    void showDepthRange();
    void applySettings();
    void applySampling();
    void applyLineLooks();
    void editActiveTracks(const std::function<void(ScatTrackSettings&)>& fnEdit);
    void activateTrack(int iTrack);
    void updateCursorPos(int iTrack);
    QDepthTrackPlot* plot(int iTrack) const;

    // Selection and lines.
    QAction* editAction(const QKeyEvent& event) const;
    void updateSelectionFrom(int iTrack, bool* pbSelection, int iLength);
    /// What a selecting gesture on a track does whether or not it selects a record.
    void selectingOn(int iTrack);
    void slotUpdateSelectionFromFinder(bool* pbSelection, int iLength);
    void deselectHiddenLines();
    /// On one of the tracks at least.
    bool isTypeSeen(DepthLineField::DataType eType) const;
    void showNotice(const QString& sText);
    void setOrientationMode(bool bOn);
    void setCreationTypeOfTracks(int iType);
    void showLines();
    void showScenarios();
    bool saveScenario(int iScenario);
    bool canClose(int iScenario);

    MatrixDataPointer m_poRoot;
    MatrixDataPointer m_poDepth;
    MatrixDataPointer m_poDip;
    MatrixDataPointer m_poAzimuth;
    std::unique_ptr<MatrixData> m_poTransverseDip;
    std::unique_ptr<MatrixData> m_poLongitudinalDip;
    std::vector<int> m_viTableRows;                  ///< empty: all
    ScatTrackLimits m_apparentDipLimits;             ///< of both tracks, after their steepest dip
    std::pair<double, double> m_announcedDirections; ///< by directionsChanged()
    bool m_bMercatorScaling = false;
    bool m_bShowingSettings = false; ///< controls follow the settings, not the user

    ScatSettings m_settings;
    std::vector<int> m_viActiveTracks;
    ScatLineDefaults m_lineDefaults;
    bool m_bOrientationMode = false;
    ScatDialogs m_dialogs;

    QDepthTrackArea* m_pqArea;
    std::unique_ptr<ScatScenarios> m_pScenarios;
    QAction* m_pqUndoAction = nullptr;
    QAction* m_pqRedoAction = nullptr;
    QTabWidget* m_pqTabs = nullptr;
    ScatScenarioGroup* m_pqScenarioGroup = nullptr;
    ScatDirectionGroup* m_pqDirectionGroup = nullptr;
    ScatDirectionFinder* m_pqDirectionFinder = nullptr;
    ScatCreationGroup* m_pqCreationGroup = nullptr;
    ScatLineList* m_pqLineList = nullptr;
    QPushButton* m_pqCreateMarkersButton = nullptr;
    QPushButton* m_pqDeleteMarkersButton = nullptr;
    ScatTrackPage* m_pqTrackPage = nullptr;
    ScatLinePage* m_pqLinePage = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;
    QLabel* m_pqCursorPosLabel = nullptr;
    QLabel* m_pqOrientationLabel = nullptr; ///< seen in the orientation mode
    QLabel* m_pqNoticeLabel = nullptr;      ///< seen for some seconds
    QTimer* m_pqNoticeTimer = nullptr;
};

} // namespace gkBase

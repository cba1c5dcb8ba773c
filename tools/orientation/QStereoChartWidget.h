#pragma once

#include "ChartExporter.h"
#include "MatrixDataPointer.h"
#include "OrientationStatistics.h"
#include "QRelationshipItemModel.h" // complete, so that the signals with models can be queued and recorded
#include "StereoChartChoice.h"
#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <vector>

class QComboBox;
class QDecoratedToolBox;
class QPainter;
class QRectF;
class QScrollArea;
class QSplitter;
class QTabWidget;
class QToolButton;

namespace gkBase {

class ChartDisplayPage;
class ClassLegends;
class ContourLegend;
class ElidedLabel;
class LegendSplitter;
class MatrixData;
class PolarChartFrame;
class QDataStatisticSummary;
class QStereoPlotWidget;
class StereoAnnotationPage;
class StereoBiasPage;
class StereoClusterPage;
class StereoContourPage;
class StereoDataGroup;
class StereoNetPage;
class StereoPointPage;
class StereoResultPage;
class StereoRotationPage;
class StereoStatisticsPage;
class StereoWoodcockPage;
struct ClusterShape;
enum class StereoRole;

/// The stereonet panel: orientations of a data set, of a second one and of lineations on one net, with legends,
/// density contours, statistics, rotations, clusters and bias weights, and the controls of all of them.
///
/// The owner gives the root, the data set and the selected records; the user may choose others and select points.
/// Nodes that are removed from the tree are dropped at once. Changes of values do not redraw by themselves: the owner
/// calls updateStereoChart() when the panel is visible. Statistics are those of the records that count: with
/// "Selected Records Only" the selected ones, all of them while none is selected in the table, and none after a press
/// on the net that cleared the selection. A page that is not in sight is filled when it comes into sight.
class GKBASETOOLS_EXPORT QStereoChartWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QStereoChartWidget(QWidget* pqParent = nullptr);
    ~QStereoChartWidget() override;

    // ---- source
    /// Not owned; null empties choosers and chart. Fills the choosers.
    void setDataRoot(MatrixData* poRoot);
    /// Shows dip and azimuth of a data set, of an attribute those of its data set. Null empties the chart.
    void setDataSet(MatrixData* poData);
    /// As setDataSet(), but nothing is read before the next updateStereoChart(): for a panel that is not seen.
    void chooseDataSet(MatrixData* poData);
    /// Not owned; null, or an attribute of texts, leaves an empty chart that says so. bLines: plunge and azimuth of
    /// lines.
    void setAttributes(MatrixData* poAngle, MatrixData* poAzimuth, bool bLines);
    /// Further data sets on the same net; null for none.
    void setSecondDataSet(MatrixData* poDataSet);
    void setLineationDataSet(MatrixData* poDataSet);
    MatrixData* nodeAngle() const { return layer(First).m_poAngle.get(); }
    MatrixData* nodeAzimuth() const { return layer(First).m_poAzimuth.get(); }
    /// Null for none; not owned.
    void setColorAttribute(MatrixData* poAttribute);
    void setSymbolAttribute(MatrixData* poAttribute);
    /// Fills the choosers again; what is shown stays when it is still there.
    void updateDataSetSelectionBox();

    // ---- selection
    /// Highlights exactly these records of the first data set, and of the others when they have as many records.
    /// Tells whether anything changed.
    bool setSelectedRows(const std::vector<int>& viRecords);
    int numberOfSelectedRows() const;

    // ---- looks
    void setBlackBackground(bool bBlack);
    void setShowLegends(bool bShow);
    StereoChartSettings settings() const;
    void setSettings(const StereoChartSettings& settings);
    /// Net, points, contours and results alone.
    void setSettings(const StereoNetSettings& net);
    /// From and to a group of the application's settings, with the places of the splitters and the names of what is
    /// chosen. What the root does not hold yet is chosen when updateDataSetSelectionBox() finds it, unless something
    /// else was chosen before.
    void readSettings(const QString& sGroup);
    void writeSettings(const QString& sGroup) const;

    QStereoPlotWidget* drawingArea() const { return m_pqPlot; }
    QRelationshipItemModel* relationshipItemModel() const { return layer(First).m_pModel; }
    QRelationshipItemModel* secondModel() const { return layer(Second).m_pModel; }
    QRelationshipItemModel* lineationModel() const { return layer(Lineations).m_pModel; }
    ClassLegends* legends() const { return m_pqLegends; }

    // ---- analysis
    /// What the pages show: of planes the statistics of their poles and those of their dip lines, of lines one; empty
    /// without records.
    std::vector<OrientationStatistics> statistics() const;
    /// k-means of the records under a wait cursor; the clusters colour the points. Emits createClusterAttribute().
    /// Tells whether there were records to cluster.
    bool applyClusters(int iClusters);

    // ---- pictures
    /// Draws the whole chart and the legends that are on into the rectangle of any device; the panel need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the chart to a .png, .svg, .pdf or .emf file of that logical size. On failure the file is left alone and
    /// the reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// Chart and legends as a bitmap.
    void copyToClipboard();
    /// The whole chart with its legends as an enhanced metafile.
    void copyEWMFToClipboard();
    /// Reads the values again where they changed.
    void updateStereoChart();

    /// Shows the line and the plane under the cursor: the plane whose pole plots at the position or, where lines are
    /// shown, the line; "---" for (99999.0, 99999.0).
    virtual void updateCursorPosLabel(QPointF oPosition);
    /// Computes the results of the records that count again, and whatever shows them.
    void updateObservationStatistics();
    /// The section of the records turned to their resultant mean, in a copy. Nothing where that is undefined.
    void calculateSuggestedSectionOrientation();
    /// Shows the shapes of all records that count and of the clusters in the Woodcock diagram and its table.
    void calculateWoodcockParameterForClusters();

    /// Turns the records of all data sets so that the mean of the first one comes to the centre of the net.
    void rotateDataToCenterPole();
    /// Turns the records of all data sets about the axis of the rotation page.
    void rotateDataAboutRotationAxis();
    void undoRotation();
    void undoAllRotations();
    /// Clusters as the cluster page says, named after data set and attribute.
    void slotApplyClusterGeneration();
    /// Hands the scan line of the bias page to the model and asks for the attribute "Bias Weights".
    void slotApplyCreateBiasWeightAttribute();

signals:
    /// The user has chosen another data set or attribute.
    void dataSetSelected();
    /// The user selected points: one flag per record; receivers copy it at once.
    void dataPointsSelection(bool* pbSelection, int iLength);
    /// The records of relationshipItemModel(), as they are turned now, are wanted as attributes.
    void createRotatedAttributes();
    /// Clusters were made: the receiver may keep them as an attribute of that name, and colour the points by it. They
    /// are read from the model at once.
    void createClusterAttribute(const QString& sName, gkBase::QRelationshipItemModel* pModel);
    /// The weights of the model's records are wanted as an attribute of that name.
    void createBiasWeightAttribute(const QString& sName, gkBase::QRelationshipItemModel* pModel);

protected:
    using CanvasFactory = std::function<QStereoPlotWidget*(QWidget* pqParent)>;
    /// For panels with a net of their own. The canvas becomes a child of the panel.
    QStereoChartWidget(const CanvasFactory& fnNewCanvas, QWidget* pqParent);

    /// A further page of the tab "Plot", in front of the others; the panel becomes its owner.
    void addPlotPage(QWidget* pqPage, const QString& sTitle);
    /// For diagrams with a projection of their own.
    void hideProjection();
    /// The pole of the best-fit girdle of the records that count; missing for lines and without records.
    LineOrientation foldAxis() const;
    /// The angle at the rim of a tangent diagram, in degrees; part of the settings.
    void setMaximumAngle(double dAngle);
    /// The settings changed by setSettings() or readSettings(): pages of subclasses show them. The base does nothing.
    virtual void settingsRestored(const StereoChartSettings& settings);
    /// The results were computed again. The base does nothing.
    virtual void resultsUpdated();

private:
    /// What stands on the net.
    enum LayerIndex
    {
        First,
        Second,
        Lineations
    };
    struct Layer
    {
        QRelationshipItemModel* m_pModel = nullptr;
        MatrixDataPointer m_poAngle;
        MatrixDataPointer m_poAzimuth;
    };
    static constexpr std::size_t s_iLayers = 3;

    Layer& layer(LayerIndex eLayer) { return m_aLayers[static_cast<std::size_t>(eLayer)]; }
    const Layer& layer(LayerIndex eLayer) const { return m_aLayers[static_cast<std::size_t>(eLayer)]; }

    // ---- controls
    void createChart(const CanvasFactory& fnNewCanvas);
    QWidget* createMouseBar();
    void createPages();
    QWidget* createPlotTab();
    QWidget* createAnalysisTab();
    void createTabs();
    void connectChart();
    void connectControls();
    void connectAnalysis();

    // ---- source
    void slotNodeChosen(StereoRole eRole, int iGlobalID);
    void slotRecordsChosen();
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    MatrixData* node(int iGlobalID) const;
    bool linesWanted() const;
    void chooseAttributes(MatrixData* poAngle, MatrixData* poAzimuth);
    void chooseFurtherDataSet(LayerIndex eLayer, MatrixData* poDataSet);
    void assignFurtherDataSet(LayerIndex eLayer, MatrixData* poDataSet);
    StereoChartChoice choice() const;
    void takeWanted();
    void takeWantedClasses();
    void setClassAttribute(bool bColor, MatrixData* poAttribute);
    void fillChoosers();
    void showChosen();
    QString problem() const;
    void showMessage(const QString& sMessage);
    void showWhatApplies();
    void readPoints();
    void readFurtherLayer(LayerIndex eLayer);
    void selectInFurtherLayers();

    // ---- what follows from the records
    void pagesAreStale();
    void fillVisiblePage();
    void fillStatisticsPage();
    void fillReportPage();
    QString statisticsTitle() const;
    QString noStatisticsReason() const;
    void updateChart();
    void showClasses();
    void scheduleContourLegend();
    void updateContourLegend();
    void showLegends();

    // ---- reactions
    void slotLooksChanged();
    void slotResultsChanged();
    void slotColorMapChanged();
    void slotSelectedOnlyToggled();
    void slotConventionChosen();
    void slotMouseModeChosen(bool bPick);
    void slotPointsSelected(bool* pbSelection, int iLength);
    void slotSelectionCleared();
    void slotLegendSelection();
    void slotClusterClicked(int iCluster, bool bAdd);
    void slotShapeChosen(int iShape);
    void selectByControls(std::span<const unsigned char> vbMask, bool bAdd);
    void slotScanLineChanged();
    OrientationConvention convention() const;

    // ---- analysis
    void rotateFurtherLayers(const Rotation& oRotation, const QString& sText);
    void rotationsChanged();
    QString clusterName() const;
    std::vector<ClusterShape> clusterShapes() const;
    void colorByClusters(const QString& sName);
    MatrixData* attributeOfClusters(const QString& sName) const;
    void applyScanLine();
    QSize pictureSize();

    std::array<Layer, s_iLayers> m_aLayers;
    StereoChartChoice m_oWanted;     ///< from settings, while there is nothing of these names
    StereoChartSettings m_oSettings; ///< as applied last; pages that a subclass adds have no say in it
    QStereoPlotWidget* m_pqPlot = nullptr;
    MatrixData* m_poRoot = nullptr;           ///< not owned; dropped when the notifier announces its end
    std::unique_ptr<MatrixData> m_poClusters; ///< colours the points while no attribute of the tree holds the clusters
    std::vector<int> m_viSelectedRecords;
    std::vector<Rotation> m_vRotations; ///< of all layers, the first one first
    QStringList m_lRotations;           ///< the same in words
    bool m_bReadNeeded = false;         ///< attributes were chosen, but not read
    bool m_bClearedByGesture = false;   ///< the gesture on the net that is going on cleared the selection
    bool m_bShowLegends = true;
    bool m_bContourLegendPending = false;
    int m_iHighlightedCluster = -1; ///< in the Woodcock diagram; −1 for none
    bool m_bStatisticsStale = true;
    bool m_bWoodcockStale = true;
    bool m_bReportStale = true;

    QSplitter* m_pqSplitter = nullptr;
    LegendSplitter* m_pqLegendSplitter = nullptr;
    PolarChartFrame* m_pqFrame = nullptr;
    ElidedLabel* m_pqMessageLabel = nullptr;
    ClassLegends* m_pqLegends = nullptr;
    ContourLegend* m_pqContourLegend = nullptr;
    QScrollArea* m_pqContourScrollArea = nullptr;
    QToolButton* m_pqSelectBtn = nullptr;
    QToolButton* m_pqPickBtn = nullptr;
    QComboBox* m_pqConventionComboBox = nullptr;
    QTabWidget* m_pqTabs = nullptr;
    QDecoratedToolBox* m_pqPlotToolBox = nullptr;
    StereoDataGroup* m_pqDataGroup = nullptr;
    StereoNetPage* m_pqNetPage = nullptr;
    StereoPointPage* m_pqPointPage = nullptr;
    StereoContourPage* m_pqContourPage = nullptr;
    StereoResultPage* m_pqResultPage = nullptr;
    StereoAnnotationPage* m_pqAnnotationPage = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;
    StereoRotationPage* m_pqRotationPage = nullptr;
    StereoClusterPage* m_pqClusterPage = nullptr;
    StereoBiasPage* m_pqBiasPage = nullptr;
    StereoStatisticsPage* m_pqStatisticsPage = nullptr;
    StereoWoodcockPage* m_pqWoodcockPage = nullptr;
    QDataStatisticSummary* m_pqReport = nullptr;
};

} // namespace gkBase

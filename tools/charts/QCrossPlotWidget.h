#pragma once

#include "ChartExporter.h"
#include "CrossPlotAxesPage.h"
#include "CrossPlotSettings.h"
#include "MatrixDataPointer.h"
#include "QRelationshipItemModel.h" // complete, so that the signal of clusters can be queued and recorded
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class QCheckBox;
class QPainter;
class QRectF;
class QSplitter;

namespace gkBase {

class ChartDisplayPage;
class ChartFrame;
class CrossPlotAttributeGroup;
class CrossPlotClusterPage;
class ClassLegends;
class CrossPlotPointPage;
class MatrixData;
class QCrossPlot;
enum class CrossPlotRole;

/// The cross plot panel: points of two attributes with axes, legends, regression line and clusters, and the controls
/// of all of them.
///
/// The owner gives the root, the attributes and the selected records; the user may choose other attributes and select
/// points. An attribute that is removed from the tree leaves an empty chart with a message. Changes of values do not
/// redraw by themselves: the owner calls updateCrossPlot() when the panel is visible.
class GKBASETOOLS_EXPORT QCrossPlotWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QCrossPlotWidget(QWidget* pqParent = nullptr);
    ~QCrossPlotWidget() override;

    // ---- source
    /// Not owned; null empties choosers and chart. Fills the choosers.
    void setDataRoot(MatrixData* poRoot);
    /// Shows the first two number attributes of a data set, its depth only when there are no others; of an
    /// attribute those of its data set, a number attribute itself as x. Null empties the chart.
    void setDataSet(MatrixData* poData);
    /// As setDataSet(), but nothing is read before the next updateCrossPlot(): for a panel that is not seen.
    void chooseDataSet(MatrixData* poData);
    /// Not owned. Null, or an attribute of texts, leaves an empty chart that says so.
    void setAttributes(MatrixData* poX, MatrixData* poY);
    MatrixData* nodeX() const { return m_poX.get(); }
    MatrixData* nodeY() const { return m_poY.get(); }
    /// Null for none; not owned.
    void setColorAttribute(MatrixData* poAttribute);
    void setSymbolAttribute(MatrixData* poAttribute);
    void setThirdAttribute(MatrixData* poAttribute);
    void setTadpoleAttribute(MatrixData* poAzimuth);
    /// By MatrixData::globalID(); one that does not exist, or has other records than the points, switches the attribute
    /// off.
    void setCurrentColorItem(int iGlobalID);
    void setCurrentSymbolItem(int iGlobalID);
    /// Fills the choosers again; what is shown stays when it is still there.
    void updateDataSetSelectionBox();

    // ---- selection
    /// Highlights exactly these records; all points stay in sight. Tells whether anything changed.
    bool setSelectedRows(const std::vector<int>& viRecords);
    int numberOfSelectedRows() const;

    // ---- looks
    void setBlackBackground(bool bBlack);
    void setShowRegressionLine(bool bShow);
    CrossPlotSettings settings() const;
    void setSettings(const CrossPlotSettings& settings);
    /// From and to a group of the application's settings.
    void readSettings(const QString& sGroup);
    void writeSettings(const QString& sGroup) const;
    /// Ends of the axes in model units; 99999.0 where the data decide, which all do once other attributes are shown.
    CrossPlotLimits limits() const { return m_oLimits; }
    void setLimits(const CrossPlotLimits& limits);

    // ---- clusters
    /// k-means of the points under a wait cursor; the clusters colour the points. Emits createClusterAttribute(). Tells
    /// whether there were points to cluster.
    bool applyClusters(int iClusters, const QString& sName);

    QCrossPlot* drawingArea() const { return m_pqPlot; }
    QRelationshipItemModel* relationshipItemModel() const { return m_pModel; }
    ClassLegends* legends() const { return m_pqLegends; }

    // ---- pictures
    /// Draws title, axes, the whole chart and the legends that are on into the rectangle of any device; the panel need
    /// not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the chart to a .png, .svg or .pdf file of that logical size. On failure the file is left alone and the
    /// reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// Chart, axes and legends as a bitmap.
    void copyToClipboard();
    /// The whole chart with axes and legends as an enhanced metafile.
    void copyEWMFToClipboard();
    /// Whole legends as bitmaps, also where they are scrolled. Nothing without the legend's attribute.
    void copyColorLegend();
    void copySymbolLegend();
    /// Reads the values again where they changed.
    void updateCrossPlot();
    /// x along the vertical axis and y along the horizontal one.
    void swapAxes();

signals:
    /// The user selected points: one flag per record; receivers copy it at once.
    void dataPointsSelection(bool* pbSelection, int iLength);
    /// The user has chosen another attribute.
    void signalUpdateChartData();
    /// Clusters were made: the receiver may keep them as an attribute of that name, and colour the points by it. They
    /// are read from the model at once.
    void createClusterAttribute(const QString& sName, gkBase::QRelationshipItemModel* pModel);

private:
    void createChart();
    void createControls();
    QWidget* createStatisticsPage();
    void connectControls();
    void connectChart();

    // ---- source
    void slotAttributeChosen(CrossPlotRole eRole, int iGlobalID);
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    void slotDisplayUnitChanged(const QString& sCategory);
    MatrixData* node(int iGlobalID) const;
    /// The attribute when it can colour the points or give their symbols; null otherwise.
    MatrixData* classNode(int iGlobalID) const;
    MatrixData* attribute(CrossPlotRole eRole) const;
    /// Colour, symbol, tadpole or third. Classes are made, but nothing is shown yet.
    void setAttribute(CrossPlotRole eRole, MatrixData* poNode);
    void setOptionalAttribute(CrossPlotRole eRole, MatrixData* poNode);
    void chooseAttributes(MatrixData* poX, MatrixData* poY);
    void fillChoosers();
    void showChosen();
    int numberOfRecords() const;
    QString problem() const;

    // ---- what follows from the points
    void readPoints();
    void showAxes();
    void showLimits();
    CrossPlotLimits automaticLimits() const;
    void showClasses();
    void colorByClusters(const QString& sName);
    MatrixData* attributeMadeSince(int iGlobalID) const;

    // ---- controls
    void slotLooksChanged();
    void slotColorMapChanged();
    void slotStatisticsChanged();
    void slotLegendSelection();
    void slotPointsSelected(bool* pbSelection, int iLength);
    void slotApplyClusters();
    void updateCursorPosLabel(QPointF oPosition);

    QRelationshipItemModel* m_pModel;
    QCrossPlot* m_pqPlot = nullptr;
    MatrixData* m_poRoot = nullptr; ///< not owned; dropped when the notifier announces its end
    MatrixDataPointer m_poX;
    MatrixDataPointer m_poY;
    std::unique_ptr<MatrixData> m_poClusters; ///< colours the points while no attribute of the tree holds the clusters
    std::vector<int> m_viSelectedRecords;
    CrossPlotLimits m_oLimits;
    bool m_bReadNeeded = false; ///< attributes were chosen, but not read

    QSplitter* m_pqSplitter = nullptr;
    ChartFrame* m_pqFrame = nullptr;
    ClassLegends* m_pqLegends = nullptr;
    CrossPlotAttributeGroup* m_pqAttributeGroup = nullptr;
    CrossPlotPointPage* m_pqPointPage = nullptr;
    CrossPlotClusterPage* m_pqClusterPage = nullptr;
    CrossPlotAxesPage* m_pqAxesPage = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;
    QCheckBox* m_pqRegressionCheckBox = nullptr;
    QCheckBox* m_pqRegressionOfSelectionCheckBox = nullptr;
    QCheckBox* m_pq90PercentCheckBox = nullptr;
};

} // namespace gkBase

#pragma once

#include "ChartExporter.h"
#include "CircularStatistics.h"
#include "MatrixDataPointer.h"
#include "RoseChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QSize>
#include <QString>
#include <QWidget>

#include <optional>
#include <vector>

class QPainter;
class QPointF;
class QRectF;
class QSplitter;

namespace gkBase {

class ChartDisplayPage;
class ClassLegends;
class LegendSplitter;
class MatrixData;
class PolarChartFrame;
class QRelationshipItemModel;
class QRosePlotWidget;
class RoseColorPage;
class RoseDirectionGroup;
class RoseDisplayPage;
class RoseResultGroup;

/// The rose panel: the directions of one attribute counted in sectors, with mean direction, colour classes and legend,
/// and the controls of all of them.
///
/// The owner gives the root, the attribute and the selected records; the user may choose another attribute of
/// directions of any data set. An attribute that is removed from the tree leaves an empty chart with a message. Changes
/// of values do not redraw by themselves: the owner calls updateRoseChartData() when the panel is visible.
class GKBASETOOLS_EXPORT QRoseChartWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QRoseChartWidget(QWidget* pqParent = nullptr);
    ~QRoseChartWidget() override;

    // ---- source
    /// Not owned; null empties choosers and chart. Fills the choosers.
    void setDataRoot(MatrixData* poRoot);
    /// Shows an attribute of numbers, taken as azimuths in degrees, or the azimuth of a data set (else its first
    /// attribute of directions). Not owned; null empties the chart.
    void setDataSet(MatrixData* poData);
    /// As setDataSet(), but nothing is read before the next updateRoseChartData(): for a panel that is not seen.
    void chooseDataSet(MatrixData* poData);
    /// The attribute that is shown, null when there is none.
    MatrixData* currentSelectedDataSet() const { return m_poDirection.get(); }
    QString currentSelectedDataSetName() const;
    /// The attribute whose classes cut the petals into bands; null for none. One that has not as many records as the
    /// directions is none.
    void setColorAttribute(MatrixData* poAttribute);
    MatrixData* currentColorSelectedDataSet() const;
    QString currentColorSelectedDataSetName() const;
    /// Fill the choosers again; what is shown stays when it is still there. What the settings name is chosen once it is
    /// there, and read at the next updateRoseChartData().
    void updateDataSetSelectionBox();
    void updateColorAttributeDataSetSelectionBox();
    /// The records that are counted; an empty list means all. Counts again when the list differs and tells whether it
    /// did.
    bool setSelectedRows(const std::vector<int>& viRecords);

    // ---- looks
    void setSectorSize(int iDegrees); ///< 1 … 360; others go to the nearest bound
    void setBidirectional(bool bOn);
    void setEqualAreaScaling(bool bOn); ///< else linear
    void setBlackBackground(bool bBlack);
    /// The same the other way round.
    void setLightMode(bool bLight) { setBlackBackground(!bLight); }
    /// Stands above the legend instead of the name of the colour attribute; empty: the name.
    void setLegendTitle(const QString& sTitle);
    /// Shows or hides the controls beside the chart.
    void showToolBox(bool bShow);
    RoseChartSettings settings() const;
    /// The chosen attributes are taken over when the root has them, now or at the next setDataRoot().
    void setSettings(const RoseChartSettings& settings);
    /// From and to a group of the application's settings.
    void readSettings(const QString& sGroup);
    void writeSettings(const QString& sGroup) const;

    QRosePlotWidget* drawingArea() const { return m_pqPlot; }
    QRelationshipItemModel* relationshipItemModel() const { return m_pModel; }
    ClassLegends* legends() const { return m_pqLegends; }

    // ---- pictures
    /// Draws the whole chart and the legend into the rectangle of any device; the panel need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the chart to a .png, .svg, .pdf or .emf file of that logical size. On failure the file is left alone and
    /// the reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// Chart and legend as a bitmap.
    void copyToClipboard();
    /// The whole chart with the legend as an enhanced metafile.
    void copyEWMFToClipboard();
    /// Reads the values again where they changed, and counts them.
    void updateRoseChartData();

signals:
    /// The user has chosen another attribute of directions.
    void dataSetSelected();
    /// The user selected the records of a sector or a class: one flag per record; receivers copy it at once.
    void dataPointsSelection(bool* pbSelection, int iLength);

private slots:
    void initializeNewRoseChartData();
    /// Hands the settings of the looks to the canvas; counts nothing.
    void updateRoseChart();
    void updateRoseChartIntervals(int iDegrees);
    void updateRoseChartClassification();
    void updateColorLegend();
    /// The user has chosen another attribute for the classes.
    void slotResetDisplayColorAttribute();
    void resetDisplayColorAttribute();

private:
    void createChart();
    void createControls();
    void connectControls();

    void slotDirectionChosen(int iGlobalID);
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    void slotDisplayUnitChanged(const QString& sCategory);
    void slotDataTypeChanged();
    void slotPointsSelected(bool* pbSelection, int iLength);
    void slotLegendSelection();
    void slotCursorMoved();

    MatrixData* directionAttribute(MatrixData* poData) const;
    void fillChoosers(const MatrixData* poLeaving);
    bool takeWantedDirection();
    void takeWantedColor();
    int numberOfRecords() const;
    bool readData();
    QString problem() const;

    QRelationshipItemModel* m_pModel;
    QRosePlotWidget* m_pqPlot = nullptr;
    MatrixData* m_poRoot = nullptr; ///< not owned; dropped when the notifier announces its end
    MatrixDataPointer m_poDirection;
    std::vector<int> m_viSelectedRecords; ///< empty: all
    CircularMeans m_means;
    bool m_bCountNeeded = true;     ///< attribute, sectors or data type were changed since the last count
    quint64 m_iCountedRevision = 0; ///< of the model
    QString m_sLegendTitle;
    std::optional<int> m_oWantedEntry; ///< from settings, while there was no root to take it from
    std::optional<QString> m_oWantedColor;
    RelationshipClasses::ColorMap m_oWantedColorMap; ///< goes with it

    QSplitter* m_pqSidePanelSplitter = nullptr;
    LegendSplitter* m_pqLegendSplitter = nullptr;
    QWidget* m_pqSideBar = nullptr;
    PolarChartFrame* m_pqFrame = nullptr;
    ClassLegends* m_pqLegends = nullptr;
    RoseDirectionGroup* m_pqDirectionGroup = nullptr;
    RoseResultGroup* m_pqResultGroup = nullptr;
    RoseColorPage* m_pqColorPage = nullptr;
    RoseDisplayPage* m_pqDisplaySettingsPage = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;
};

} // namespace gkBase

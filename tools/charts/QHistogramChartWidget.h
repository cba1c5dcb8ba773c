#pragma once

#include "ChartExporter.h"
#include "MissingValue.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QSize>
#include <QString>
#include <QWidget>

#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBoxWithSlider;
class QLabel;
class QPainter;
class QRectF;

namespace gkBase {

class ChartDisplayPage;
class ChartFrame;
class ChartFrameStack;
class MatrixData;
class QHistogramItemModel;
class ProbabilityPlotFrame;
class QHistogramPlotWidget;
class QProbabilityPlot;

/// The histogram panel: chart with axes, statistics and the controls of both, for one numeric attribute at a time.
///
/// The owner gives the root, the attribute and the selected records; the user may choose another attribute of any
/// data set. An attribute that is removed from the tree leaves an empty chart. Changes of values do not redraw by
/// themselves: the owner calls updateHistogram() when the panel is visible.
class GKBASETOOLS_EXPORT QHistogramChartWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QHistogramChartWidget(QWidget* pqParent = nullptr);
    ~QHistogramChartWidget() override;

    /// Not owned; null empties chooser and chart. Fills the chooser.
    void setDataRoot(MatrixData* poRoot);
    /// Shows an attribute (a data set: its first numeric attribute) with an interval size that suits it. Not owned;
    /// null empties the chart.
    void setDataSet(MatrixData* poData);
    /// As setDataSet(), but nothing is counted before the next updateHistogram(): for a panel that is not seen.
    void chooseDataSet(MatrixData* poData);
    /// Selects the chooser's entry with that MatrixData::globalID() and shows it; one that is not offered empties the
    /// chart.
    void setCurrentDataSet(int iGlobalID);
    /// The attribute that is shown, null when there is none.
    MatrixData* currentSelectedDataSet() const { return m_poData; }
    /// Fills the chooser again with the numeric attributes of all data sets; the shown one stays when it is still
    /// there.
    void updateDataSetSelectionBox();
    /// The records that are counted; an empty list means all. Rebuilds when the list differs and tells whether it did.
    bool setSelectedRows(const std::vector<int>& viRecords);
    /// The chart type behind those of MatrixData::HistogramType: sorted values against normal probability.
    static constexpr int s_iNormalProbability = 3;
    /// A MatrixData::HistogramType or s_iNormalProbability; rebuilds. One that does not exist is ignored.
    void setHistogramType(int iType);
    /// Width of the intervals in model units; anything not above 0 chooses one. Rebuilds.
    void setIntervalSize(double dIntervalSize);
    /// White texts on black, or black texts on white.
    void setBlackBackground(bool bBlack);

    /// Chart, axes and scroll bars respond or are grayed out.
    void setChartFrameEnabled(bool bEnabled);
    /// The x axis ends at 360 (azimuth), or at 180 when Mercator scaling is on as well. Showing another attribute
    /// switches azimuth scaling on for the azimuth of a data set and off for anything else.
    void setAzimuthScaling(bool bOn);
    void setMercatorScaling(bool bOn);
    /// The T and L directions of a dipmeter analysis (degrees, 99999.0: none), which are marked while azimuth scaling
    /// is on.
    void setTandLdirection(const double& dT, const double& dL);

    QHistogramPlotWidget* drawingArea() const { return m_pqPlot; }
    QProbabilityPlot* probabilityPlot() const { return m_pqProbabilityPlot; }
    QHistogramItemModel* histogramItemModel() const { return m_pModel; }

    /// Draws title, axes and the whole chart into the rectangle of any device; the panel need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the chart to a .png, .svg, .pdf or .emf file of that logical size. On failure the file is left alone and
    /// the reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// The chart with its axes as a bitmap.
    void copyToClipboard();
    /// The whole chart with title and axes as an enhanced metafile, which office programs can enlarge and edit.
    void copyEWMFToClipboard();
    /// Counts again: type, interval size and attribute as the controls say.
    void updateHistogram();

signals:
    /// The user has chosen another attribute.
    void dataSetSelected();

private slots:
    void updateHistogramIntervals(double dIntervalSize);
    void updateCursorPosLabel(QPointF oPosition);
    void updateDiagramSettings();

private:
    void createChart();
    void createControls();
    QWidget* createSelectionGroup();
    QWidget* createStatisticsGroup();
    QCheckBox* createPercentileBox(int iPercent);
    void nameControls();
    void connectControls();

    void slotDataSetActivated(int iEntry);
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    void slotDisplayUnitChanged(const QString& sCategory);

    MatrixData* numericAttribute(MatrixData* poData) const;
    void showChooserEntry();
    void updateHistogramWithDefaultIntervals();
    void initialiseIntervalControl();
    void initializeNewHistogramChart();
    void updateProbabilityPlot();
    bool showsProbability() const;
    void updateDataBoundaries();
    void markDirections();
    void showStatistics();
    /// A difference in display units with its unit, 3 decimals; "---" when missing.
    QString shownDifference(double dDifference) const;

    QHistogramItemModel* m_pModel;
    QHistogramPlotWidget* m_pqPlot = nullptr;
    MatrixData* m_poRoot = nullptr;       ///< not owned; dropped when the notifier announces its end
    MatrixData* m_poData = nullptr;       ///< not owned; dropped likewise
    std::vector<int> m_viSelectedRecords; ///< empty: all
    bool m_bInitialising = true;          ///< no rebuild while the panel is set up
    bool m_bDefaultIntervals = false;     ///< the next rebuild chooses the interval size
    bool m_bAzimuthScaling = false;
    bool m_bMercatorScaling = false;
    double m_dT = g_dMissingValue;
    double m_dL = g_dMissingValue;

    ChartFrameStack* m_pqFrames = nullptr;
    ChartFrame* m_pqFrame = nullptr; ///< of the histogram
    QProbabilityPlot* m_pqProbabilityPlot = nullptr;
    ProbabilityPlotFrame* m_pqProbabilityFrame = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;

    QComboBox* m_pqHistogramDataSetComboBox = nullptr;
    QComboBox* m_pqHistogramTypeComboBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqIntervalSizeSpinBox = nullptr;
    QLabel* m_pqNumberOfPointsLabel = nullptr;
    QLabel* m_pqStandardDeviationLabel = nullptr;
    QLabel* m_pqP10Label = nullptr;
    QLabel* m_pqP50Label = nullptr;
    QLabel* m_pqP90Label = nullptr;
    QCheckBox* m_pqP10CheckBox = nullptr;
    QCheckBox* m_pqP50CheckBox = nullptr;
    QCheckBox* m_pqP90CheckBox = nullptr;
};

} // namespace gkBase

#pragma once

#include "BarDiagramClasses.h"
#include "ChartExporter.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBoxWithSlider;
class QLabel;
class QPainter;
class QRectF;

namespace gkBase {

class AttributeChooser;
class BarChartFrame;
class ChartDisplayPage;
class MatrixData;
class QBarDiagramWidget;

/// The bar chart panel: how many records of an attribute belong to each of its classes. Classes are the distinct texts,
/// whole numbers, flags or colours, or intervals of measured numbers.
///
/// The owner gives the root, the attribute and the selected records; the user may choose another attribute of any
/// data set. An attribute that is removed from the tree leaves an empty chart. Changes of values do not redraw by
/// themselves: the owner calls updateBarChart() when the panel is visible.
///
/// A click on a bar selects its records, a click with Ctrl adds or takes away, a click beside the bars selects none.
/// While the records that the owner hands back are the ones selected here, the chart keeps all its bars and shows the
/// selected ones in full colour; any other selection restricts what is counted.
class GKBASETOOLS_EXPORT QTRNBarChartWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QTRNBarChartWidget(QWidget* pqParent = nullptr);
    ~QTRNBarChartWidget() override;

    /// Not owned; null empties chooser and chart. Fills the chooser.
    void setDataRoot(MatrixData* poRoot);
    /// Shows an attribute (a data set: its first attribute with classes, else its first) with classes that suit it.
    /// Not owned; null empties the chart.
    void setDataSet(MatrixData* poData);
    /// As setDataSet(), but nothing is counted before the next updateBarChart(): for a panel that is not seen.
    void chooseDataSet(MatrixData* poData);
    /// The attribute that is shown, null when there is none.
    MatrixData* currentSelectedDataSet() const { return m_poData; }
    /// Fills the chooser again with the attributes of all data sets; the shown one stays when it is still there.
    void updateDataSetSelectionBox();
    /// The records that are counted; an empty list means all. Rebuilds when the list differs and tells whether it did.
    bool setSelectedRows(const std::vector<int>& viRecords);
    /// Per cent of the bars, or counts.
    void setPercent(bool bPercent);
    void setOrder(BarDiagramClasses::Order eOrder);
    /// A bar for the records without a value.
    void setShowMissing(bool bShow);
    /// Width of the classes in model units; anything not above 0 makes a class of each distinct value. Rebuilds.
    void setIntervalSize(double dIntervalSize);
    /// White texts on black, or black texts on white.
    void setBlackBackground(bool bBlack);

    /// Chart, axes and scroll bars respond or are grayed out.
    void setChartFrameEnabled(bool bEnabled);
    QBarDiagramWidget* drawingArea() const { return m_pqPlot; }
    const BarDiagramClasses& classes() const { return *m_pClasses; }

    /// Draws title, axes and all bars into the rectangle of any device; the panel need not be shown.
    void renderTo(QPainter& painter, const QRectF& oTarget);
    /// What exportChart() and printing draw.
    ChartPicture picture();
    /// Writes the chart to a .png, .svg or .pdf file of that logical size. On failure the file is left alone and the
    /// reason is in psError (may be null).
    bool exportChart(const QString& sPath, const QSize& oSize, QString* psError);

public slots:
    /// The chart with its axes as a bitmap.
    void copyToClipboard();
    /// The whole chart with its axes as an enhanced metafile.
    void copyEWMFToClipboard();
    /// Counts again: attribute, classes and order as the controls say.
    void updateBarChart();

signals:
    /// The user has chosen another attribute.
    void dataSetSelected();
    /// One flag per record of the data set that the user has selected; receivers copy it at once.
    void dataPointsSelection(bool* pbSelection, int iLength);

private slots:
    void updateCursorPosLabel(QPointF oPosition);
    void slotBarClicked(int iBar, bool bAdd);
    void slotIntervalChanged();
    void updateDiagramSettings();
    void arrangeBars();

private:
    void createChart();
    void createControls();
    QWidget* createSelectionGroup();
    QWidget* createStatisticsGroup();
    QWidget* createDisplayPage();
    void connectControls();

    void offerAttributes(const MatrixData* poLeaving);
    void slotAttributeChosen(int iGlobalID);
    void slotNodeAboutToBeRemoved(gkBase::MatrixData* poBranch);
    void slotRootAboutToBeDestroyed();
    void slotDisplayUnitChanged(const QString& sCategory);

    void initialiseIntervalControl();
    void showTitles();
    void showStatistics();
    void updateHeightRange();
    void selectClasses(const std::vector<int>& viIds);
    /// Records of the data set that the attribute belongs to.
    int recordCount() const;

    std::shared_ptr<BarDiagramClasses> m_pClasses; ///< shown by canvas and axis
    MatrixData* m_poRoot = nullptr;                ///< not owned; dropped when the notifier announces its end
    MatrixData* m_poData = nullptr;                ///< not owned; dropped likewise
    std::vector<int> m_viSelectedRecords;          ///< that are counted; empty: all
    std::vector<int> m_viClickedIds;               ///< classes whose bars were selected here
    std::vector<int> m_viClickedRecords;           ///< their records
    double m_dInterval = 0.0;                      ///< model units; 0: distinct values
    bool m_bDefaultInterval = false;               ///< the next rebuild chooses the interval

    QBarDiagramWidget* m_pqPlot = nullptr;
    BarChartFrame* m_pqFrame = nullptr;
    ChartDisplayPage* m_pqDisplayPage = nullptr;

    AttributeChooser* m_pqBarChartDataSetComboBox = nullptr;
    QComboBox* m_pqBarChartTypeComboBox = nullptr;
    QComboBox* m_pqOrderComboBox = nullptr;
    QCheckBox* m_pqIntervalCheckBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqIntervalSizeSpinBox = nullptr;
    QLabel* m_pqNumberOfRecordsLabel = nullptr;
    QLabel* m_pqNumberOfClassesLabel = nullptr;
    QLabel* m_pqMissingLabel = nullptr;
    QCheckBox* m_pqShowMissing = nullptr;
    QCheckBox* m_pqShowValues = nullptr;
    QCheckBox* m_pqColorByClass = nullptr;
};

} // namespace gkBase

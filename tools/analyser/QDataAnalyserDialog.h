#pragma once

#include "MatrixData.h"
#include "MatrixDataPointer.h"
#include "gkBaseToolsExport.h"

#include <QAction>
#include <QList>
#include <QMenu>
#include <QMetaObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QPrinter;
class QSplitter;

namespace gkBase {

class AnalyserChartPages;
class AnalyserTablePage;
class DepthLineField;
class QAttributeTreeView;
class QCrossPlotWidget;
class QDepthPlotWidget;
class QHistogramChartWidget;
class QModifyCellsDialog;
class QRelationshipItemModel;
class QRoseChartWidget;
class QSelectCellsDialog;
class QStereoChartWidget;
class QTRNBarChartWidget;
class QTangentChartWidget;
class QTreeItemModel;
class QVertexItemModel;
class QVertexMinMaxModelTableView;
class QVertexModelTableView;
class TabWidgetWithFloatingTabs;
class UnitRegistry;
enum class MarkerKind;

/// The attribute analyser: the tree of data sets beside pages with the attribute table and the charts.
///
/// The rows selected in the table are the one selection. A chart that selects hands its records over; where a thinned
/// table has no rows for some of them, the charts keep them all until something else is selected. A chart that shows is
/// refilled from the table's rows, at once when it is visible (as a page or torn off), otherwise when it is next shown,
/// and once for any number of changes.
///
/// A host constructs the dialog, calls initialize(), gives it the root and the unit registry (both owned by the host)
/// and listens to dataModified(). It may destroy the root at any time: the dialog is then empty.
class GKBASETOOLS_EXPORT QDataAnalyserDialog : public QWidget
{
    Q_OBJECT
public:
    /// Asks for the file of "Save As"; an empty answer means that the user cancelled.
    using FileChooser = std::function<QString(QWidget* pqParent, const QString& sStartPath)>;

    explicit QDataAnalyserDialog(QWidget* pqParent = nullptr);
    ~QDataAnalyserDialog() override;

    /// Builds the widgets; call it once. sName goes to the chart panels as the name of their data. pqMenu (not owned)
    /// is the context menu of the tables; null builds the default one. eOrientation lays out tree and pages.
    /// bOrientationCharts asks for rose, stereonet and tangent diagram, bDepthPlot for the depth plot. bFlag is for
    /// hosts of older versions and changes nothing. iTableOption 1 lets pasting and Enter append rows to the table, 0
    /// does not.
    void initialize(const QString& sName, QMenu* pqMenu, Qt::Orientation eOrientation, bool bFlag,
                    bool bOrientationCharts, bool bDepthPlot, int iTableOption);

    MatrixData* dataRoot() const { return m_poDataRoot; }
    /// Not owned; null empties the dialog.
    void changeDataRoot(MatrixData* poRoot);
    UnitRegistry* registry() const { return m_poRegistry; }
    /// Not owned. Also given to the root.
    void setRegistry(UnitRegistry* poRegistry);

    /// Defaults of "Save As".
    void setFileName(const QString& sFileName) { m_sFileName = sFileName; }
    QString fileName() const { return m_sFileName; }
    void setAbsolutPath(const QString& sPath) { m_sAbsolutePath = sPath; }
    QString absolutePath() const { return m_sAbsolutePath; }
    /// Replaces the file dialog of "Save As". An empty function goes back to it.
    void setFileChooser(FileChooser fnChooser);

    QAttributeTreeView* treeView() const { return m_pqTreeView; }
    QTreeItemModel* treeItemModel() const { return m_pTreeModel; }
    QVertexModelTableView* vertexTable() const;
    QVertexItemModel* vertexItemModel() const;
    QVertexMinMaxModelTableView* minMaxVertexTable() const;
    QTRNBarChartWidget* barChart() const { return m_pqBarChart; }
    QHistogramChartWidget* histogramChart() const { return m_pqHistogramChart; }
    QCrossPlotWidget* crossPlot() const { return m_pqCrossPlot; }
    /// Null when the dialog was initialized without a depth plot.
    QDepthPlotWidget* depthPlot() const { return m_pqDepthPlot; }
    /// Null when the dialog was initialized without orientation charts.
    QRoseChartWidget* roseChart() const { return m_pqRoseChart; }
    QStereoChartWidget* stereoChart() const { return m_pqStereoChart; }
    QTangentChartWidget* tangentChart() const { return m_pqTangentChart; }
    /// The records that charts show as selected, rising: those of the table's rows, whatever rows it leaves out, or of
    /// the last gesture in a chart.
    std::vector<int> selectedRecords() const;
    /// The data set of the table's current column, or of its first one; without columns the first that has attributes.
    /// Null without data.
    MatrixData* currentDataSet() const;
    /// Whether one of the table's columns has the records of a data set: it is one of its attributes, or one of a data
    /// set of as many records and the same well (see wellOf()).
    bool showsRecordsOf(MatrixData& dataSet) const;
    /// Whether the selected records are meant as those of a data set: they were selected in a chart that shows it, or
    /// in the table while it was the current one, or one with the same records was, as above.
    bool selectsRecordsOf(MatrixData& dataSet) const;
    /// Selects records of a data set (null: nobody knows of which), as setNewRowSelectionFromGraphicalSelection() does.
    void selectRecordsOf(MatrixData* poDataSet, bool* pvFlags, int iCount);
    /// Marks T and L (degrees) in the histogram while it shows this azimuth; null ends what the same source said
    /// before. Of several sources the last one counts.
    void setTandLdirection(const QObject* pSource, const MatrixData* poAzimuth, double dT, double dL);
    /// Object name of the page that the user works on; the torn-off one with the focus, or the current tab.
    QString activePageName() const;
    /// True when that page shows a chart.
    bool hasActiveChart() const;
    /// Writes that chart to a .png, .svg, .pdf or .emf file of that logical size, with the present data. On failure, or
    /// without a chart, false with the reason in psError (may be null).
    bool exportActiveChart(const QString& sPath, const QSize& oSize, QString* psError);
    /// Prints that chart on one page. False without a chart, or when the printer does not take it.
    bool printActiveChart(QPrinter& printer);
    TabWidgetWithFloatingTabs* tabWidget() const { return m_pqTabWidget; }
    /// The context menu of the tables with the actions below, or the host's.
    QMenu* menu() const { return m_pqMenu; }
    /// Null when the host gave a menu of its own.
    QAction* copyAction() const { return m_pqCopyAction; }
    QAction* pasteAction() const { return m_pqPasteAction; }
    QAction* selectCellsAction() const { return m_pqSelectCellsAction; }
    QAction* modifyCellsAction() const { return m_pqModifyCellsAction; }
    QAction* selectInverseAction() const { return m_pqSelectInverseAction; }
    QAction* saveAsAction() const { return m_pqSaveAsAction; }

    /// Fills the attribute choosers of the charts that offer the collection. bSelectedOnly is for choosers that offer
    /// checked attributes only.
    void updateChartDataSetSelectionBox(MatrixData::AttributeCollection eCollection, bool bSelectedOnly);
    /// Adds measured depths to data sets with vertices, as MatrixData::createMeasuredDepth() does, and shows them.
    void createMeasuredDepth();
    void clearAllSelections();
    /// By the page's object name ("TABLE", "HISTOGRAM", …); an unknown name does nothing.
    void hideTab(const QString& sName);
    void showTab(const QString& sName);
    /// Whether the data have an attribute "$V", without which setMarkerVisibility() does nothing.
    bool hasMarkerVisibility() const;
    /// Switches markers of the depth plot by the attributes "$V": all of them through its default value, or, with a
    /// default that hides, the rows of the chosen kinds (see MarkerVisibility.h). One undo step. With chosen
    /// kinds the boxes of the depth plot, which no undo changes, are checked for kinds that are to be seen, and
    /// unchecked only where markers of the kind stand in data sets without "$V".
    void setMarkerVisibility(bool bAll, bool bScat, bool bDecimated, bool bTops, bool bFaults, bool bVisible);
    /// Makes the markers of the well of a depth those lines, or takes them away, as the functions in WellMarkers.h do,
    /// tells the host and returns whether there was something to do. Whether the depth plot shows them is a matter of
    /// their visibility.
    bool createWellMarkers(const DepthLineField& lines, const MatrixData& depth);
    bool deleteWellMarkers(const MatrixData& depth);
    /// Writes "$V", when the data have it, in the rows whose "Type" is a structural plane; the box of the depth plot as
    /// above.
    void setAllScatMarkersVisibility(bool bVisible);
    /// … in the rows with a "Decimated:dip" or "Decimated:azimuth".
    void setAllDecimatedDipAzimuthMarkersVisibility(bool bVisible);
    /// … in the rows with that "Type".
    void setAllTypeMarkersVisibility(const QString& sType, bool bVisible);
    /// … in the rows that name a "Horizon".
    void setAllTopMarkersVisibility(bool bVisible);
    /// The symbol and colour attribute of the cross plot, by MatrixData::globalID(); an unknown one, or one of other
    /// records than the points', switches it off.
    void setCurrentSymbolItem(int iGlobalID);
    void setCurrentColorItem(int iGlobalID);
    /// Hides the summary table.
    void setLightMode();
    /// Hides the summary table, the tree and the tab bar: only the page that is shown remains.
    void setUltraLightMode();
    void saveSettings();
    void readSettings();
    /// Also hides the dialogs that select and modify cells.
    void hide();

public slots:
    void copyToClipboard();
    void showSelectValueCellsDlg();
    void showModifyCellsDlg();
    /// Asks before a window (null: the dialog's own) which markers to show or hide, and returns; the answer is applied
    /// when it comes. Nothing without "$V".
    void showMarkerVisibilityDlg(QWidget* pqParent = nullptr);
    void selectInverse();
    /// Reads the whole tree again after outside changes.
    void updateAllViews();
    void updateCellView();
    void slotTabWidgetChanged();
    void resetChartsUpdateNeeded();
    void checkResetChartsUpdateNeeded();
    /// One flag per record of the current data set, or of the table's first one of that length; copied at once.
    void setNewRowSelectionFromGraphicalSelection(bool* pvFlags, int iCount);
    void slotSaveAs();
    /// Shows stereonet and tangent diagram when the data have dips and azimuths, the rose when they have directions,
    /// and hides them otherwise. Nothing without these pages.
    void hideShowOrientationWindows();
    void updateBarChart();
    void updateHistogramData();
    void updateRelationshipData();
    void updateDepthPlotData();
    void updateRoseChartData();
    void updateStereoChartData();
    void updateTangentChartData();

signals:
    void dataModified(bool bModified);
    void signalEnablePasteAction();
    /// Other records are selected than when the signal was last sent. Sent from the event loop, once for any number of
    /// changes before.
    void selectionChanged();
    /// "Save As" wrote the file, or could not.
    void csvWritten(const QString& sPath, bool bOk);

private slots:
    void updateChartDataSetSelectionBoxes();
    void enablePasteAction();
    void pasteFromClipboard();
    void accept_ClearSelection();
    void accept_SelectValueCellsDlg();
    void setCurrentHistogramDataSet();
    void updateTableViews();
    /// The charts take in other rows when they are next seen, without reading values again.
    void markSelectionChanged();
    void slotDataModified(bool bOk);
    void createClusterAttribute(const QString& sName, gkBase::QRelationshipItemModel* pModel);
    void createDataDecimationAttribute(gkBase::QRelationshipItemModel* pModel, bool bBinAverage, bool bReplace,
                                       gkBase::MatrixData* poOriginal);
    /// From the records of the stereonet, as they are turned now.
    void createRotatedAttributes();
    void createBiasWeightAttribute(const QString& sName, gkBase::QRelationshipItemModel* pModel);

private:
    QMenu* createDefaultPopupMenu();
    void createTableWidget(int iTableOption);
    void createTreeWidget();
    void createBarChart(const QString& sName);
    void createHistogramChart(const QString& sName);
    void createRelationshipChart(const QString& sName);
    void createRoseChart(const QString& sName);
    void createStereoChart(const QString& sName);
    void createTangentChart(const QString& sName);
    /// What the stereonet and its descendant, the tangent diagram, ask for.
    void connectOrientationChart(const QStereoChartWidget* pqPanel);
    /// Fills one of them from the table's selection.
    void updateOrientationChart(int iChart, QStereoChartWidget* pqPanel);
    void createRotatedAttributesOf(QStereoChartWidget* pqPanel);
    void createDepthPlot(const QString& sName);
    /// Adds the page of a chart panel; fnRefill fills it from the table's selection.
    template <typename Panel>
    void addChartPage(int iChart, Panel* pqPanel, const QString& sObjectName, const QString& sText,
                      const QString& sIcon, std::function<void()> fnRefill, const QString& sSettingsGroup);
    void addPage(QWidget* pqPage, const QString& sObjectName, const QString& sText, const QString& sIcon);
    QWidget* pageNamed(const QString& sName) const;
    void setTabShown(const QString& sName, bool bShown);
    /// The torn-off page that has the focus, otherwise the current tab's.
    QWidget* activePage() const;
    bool isTablePageActive() const;
    void connectRoot();
    void slotRootAboutToBeDestroyed();
    void resetSplitterRatios();
    void fillSelectCellsDialog();
    void fillModifyCellsDialog();
    /// The column that a condition is meant for: the current one, or the first.
    int selectCellsColumn() const;
    /// What the histogram shows first: a number attribute that is switched on, or any. Null without one.
    MatrixData* firstCountableAttribute() const;
    /// What the point charts show first: a data set with two number attributes, one of depths when there is any.
    MatrixData* firstDataSet(bool bWithDepth) const;
    /// What the orientation charts show first: a data set with dip and azimuth. Null without one.
    MatrixData* firstOrientations() const;
    /// What the rose shows first: the azimuth of these, or any direction.
    MatrixData* firstDirection() const;
    /// Shows attributes that a chart added and tells the host; returns bAdded.
    bool showDerived(bool bAdded);
    void switchInDepthPlot(MarkerKind eKind, const QString& sType, bool bVisible);
    void changeMarkers(MarkerKind eKind, const QString& sType, bool bVisible);

    void scheduleSelectionCheck();
    void announceSelection();
    /// The current data set if it has so many records, or the table's first one; null for none.
    MatrixData* dataSetOfLength(int iRecords) const;
    void showTandLdirection();

    /// A selection made in a chart that the table shows in part only.
    struct Gesture
    {
        std::vector<int> m_viRecords;
        std::vector<int> m_viInTable; ///< those that the table could select
    };

    /// What a dipmeter analysis found along an azimuth.
    struct Directions
    {
        const QObject* m_pSource; ///< not owned, compared only
        int m_iAzimuth;           ///< MatrixData::globalID()
        double m_dT;
        double m_dL;
    };

    MatrixData* m_poDataRoot = nullptr;   ///< not owned
    UnitRegistry* m_poRegistry = nullptr; ///< not owned
    QString m_sFileName;
    QString m_sAbsolutePath;
    FileChooser m_fnFileChooser;

    QSplitter* m_pqSplitter = nullptr;
    int m_iTreeSize = 220; ///< pixels, as the user left them
    QTreeItemModel* m_pTreeModel = nullptr;
    QAttributeTreeView* m_pqTreeView = nullptr;
    TabWidgetWithFloatingTabs* m_pqTabWidget = nullptr;
    AnalyserTablePage* m_pqTablePage = nullptr;
    QTRNBarChartWidget* m_pqBarChart = nullptr;
    QHistogramChartWidget* m_pqHistogramChart = nullptr;
    QCrossPlotWidget* m_pqCrossPlot = nullptr;
    QRoseChartWidget* m_pqRoseChart = nullptr;
    QStereoChartWidget* m_pqStereoChart = nullptr;
    QTangentChartWidget* m_pqTangentChart = nullptr;
    QDepthPlotWidget* m_pqDepthPlot = nullptr;
    QPointer<QSelectCellsDialog> m_pqSelectCellsDialog;
    QPointer<QModifyCellsDialog> m_pqModifyCellsDialog;
    QPointer<QMenu> m_pqMenu;
    QPointer<QAction> m_pqCopyAction;
    QPointer<QAction> m_pqPasteAction;
    QPointer<QAction> m_pqSelectCellsAction;
    QPointer<QAction> m_pqModifyCellsAction;
    QPointer<QAction> m_pqSelectInverseAction;
    QPointer<QAction> m_pqSaveAsAction;

    AnalyserChartPages* m_pCharts = nullptr;
    bool m_bDecimating = false; ///< a click is decimating several tracks
    int m_iRowsInCharts = 0;    ///< selected rows when the charts were last marked
    std::optional<Gesture> m_oGesture;
    std::optional<MatrixDataPointer> m_oGestureData; ///< of which a chart selected records
    std::vector<int> m_viAnnounced;                  ///< what was selected at the last selectionChanged()
    std::vector<Directions> m_vDirections;
    bool m_bSelectionCheckPending = false;
    QList<QMetaObject::Connection> m_lRootConnections;
};

} // namespace gkBase

#pragma once

#include "ChartExporter.h"
#include "gkBaseToolsExport.h"

#include <QObject>
#include <QSize>
#include <QString>

#include <array>
#include <functional>
#include <vector>

class QWidget;

namespace gkBase {

class MatrixData;
class TabWidgetWithFloatingTabs;

/// The pages with charts of the analyser, and which of them have to be filled again. A page that is seen, as the
/// current tab or torn off, is filled once the event loop turns, however often it was marked; any other page when it
/// is next shown.
class GKBASETOOLS_EXPORT AnalyserChartPages : public QObject
{
    Q_OBJECT
public:
    /// The charts in the order of their update-needed flags.
    enum Chart
    {
        CrossPlot,
        BarChart,
        Histogram,
        RosePlot,
        StereoPlot,
        TangentPlot,
        DepthPlot,
        NumberOfCharts
    };

    /// What a chart has to take in before it is next seen.
    enum class Need
    {
        Nothing,
        Selection, ///< other rows are selected
        Values     ///< everything may differ
    };

    /// What the analyser asks of a chart. Functions may be empty.
    struct Page
    {
        Chart m_eChart = Histogram;
        QWidget* m_pqPage = nullptr; ///< not owned; lives as long as the tab widget
        std::function<void()> m_fnRefill;
        std::function<void()> m_fnSelect; ///< for a change of the selection alone; empty: as m_fnRefill
        std::function<void()> m_fnCopy;
        std::function<void(MatrixData* poRoot)> m_fnSetRoot;
        std::function<void()> m_fnUpdateChooser;
        std::function<ChartPicture()> m_fnPicture; ///< never empty
        std::function<void()> m_fnReadSettings;
        std::function<void()> m_fnSaveSettings;
    };

    /// Neither is owned.
    AnalyserChartPages(TabWidgetWithFloatingTabs* pqTabWidget, QObject* pqParent);

    void add(Page page);
    const std::vector<Page>& pages() const { return m_vPages; }
    /// Null for a page without a chart.
    const Page* find(const QWidget* pqPage) const;

    void markAll(Need eNeed = Need::Values);
    void mark(Chart eChart);
    /// The chart has just been filled.
    void unmark(Chart eChart) { m_eNeeds[eChart] = Need::Nothing; }
    /// Fills the marked pages that are seen, now.
    void refillVisible();
    /// The same when the event loop turns.
    void scheduleRefill();

    /// Whether a chart that shows nothing is to be given something, which it is until it has shown data of this root.
    /// What disappears later leaves an empty chart.
    bool isUnused(Chart eChart) const { return !m_vbShown[eChart]; }
    void noteShown(Chart eChart, bool bShows) { m_vbShown[eChart] = m_vbShown[eChart] || bShows; }
    /// All charts are unused again.
    void forgetShown() { m_vbShown.fill(false); }

    void setDataRoot(MatrixData* poRoot);
    void updateChoosers();
    void readSettings();
    void saveSettings();

protected:
    bool eventFilter(QObject* pqWatched, QEvent* pEvent) override;

private:
    bool isSeen(const QWidget* pqPage) const;

    TabWidgetWithFloatingTabs* m_pqTabWidget; ///< not owned
    std::vector<Page> m_vPages;
    std::array<Need, NumberOfCharts> m_eNeeds{};
    std::array<bool, NumberOfCharts> m_vbShown{};
    bool m_bRefillPending = false;
};

} // namespace gkBase

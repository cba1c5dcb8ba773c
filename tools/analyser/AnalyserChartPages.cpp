#include "AnalyserChartPages.h"

#include "TabWidgetWithFloatingTabs.h"

#include <QEvent>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace gkBase {

AnalyserChartPages::AnalyserChartPages(TabWidgetWithFloatingTabs* pqTabWidget, QObject* pqParent)
    : QObject(pqParent)
    , m_pqTabWidget(pqTabWidget)
{
    m_eNeeds.fill(Need::Values);
}

void AnalyserChartPages::add(Page page)
{
    page.m_pqPage->installEventFilter(this);
    m_vPages.push_back(std::move(page));
}

const AnalyserChartPages::Page* AnalyserChartPages::find(const QWidget* pqPage) const
{
    const auto it =
        std::find_if(m_vPages.begin(), m_vPages.end(), [pqPage](const Page& page) { return page.m_pqPage == pqPage; });
    return it == m_vPages.end() ? nullptr : &*it;
}

void AnalyserChartPages::markAll(Need eNeed)
{
    for (Need& eOfChart : m_eNeeds)
        eOfChart = std::max(eOfChart, eNeed);
    scheduleRefill();
}

void AnalyserChartPages::mark(Chart eChart)
{
    m_eNeeds[eChart] = Need::Values;
    scheduleRefill();
}

void AnalyserChartPages::scheduleRefill()
{
    if (m_bRefillPending)
        return;
    m_bRefillPending = true;
    QTimer::singleShot(0, this, &AnalyserChartPages::refillVisible);
}

void AnalyserChartPages::refillVisible()
{
    m_bRefillPending = false;
    for (const Page& page : m_vPages) {
        if (m_eNeeds[page.m_eChart] == Need::Nothing || !isSeen(page.m_pqPage))
            continue;
        const Need eNeed = std::exchange(m_eNeeds[page.m_eChart], Need::Nothing);
        if (eNeed == Need::Selection && page.m_fnSelect)
            page.m_fnSelect();
        else
            page.m_fnRefill();
    }
}

bool AnalyserChartPages::isSeen(const QWidget* pqPage) const
{
    return m_pqTabWidget->currentWidget() == pqPage || (m_pqTabWidget->isFloating(pqPage) && pqPage->isVisible());
}

void AnalyserChartPages::setDataRoot(MatrixData* poRoot)
{
    forgetShown();
    for (const Page& page : m_vPages)
        if (page.m_fnSetRoot)
            page.m_fnSetRoot(poRoot);
}

void AnalyserChartPages::updateChoosers()
{
    for (const Page& page : m_vPages)
        if (page.m_fnUpdateChooser)
            page.m_fnUpdateChooser();
}

void AnalyserChartPages::readSettings()
{
    for (const Page& page : m_vPages)
        if (page.m_fnReadSettings)
            page.m_fnReadSettings();
}

void AnalyserChartPages::saveSettings()
{
    for (const Page& page : m_vPages)
        if (page.m_fnSaveSettings)
            page.m_fnSaveSettings();
}

bool AnalyserChartPages::eventFilter(QObject* pqWatched, QEvent* pEvent)
{
    // A torn-off page that was hidden may have missed changes; nobody else tells that it is seen again.
    if (pEvent->type() == QEvent::Show)
        scheduleRefill();
    return QObject::eventFilter(pqWatched, pEvent);
}

} // namespace gkBase

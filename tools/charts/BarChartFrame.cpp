#include "BarChartFrame.h"

#include "QBarClassAxisWidget.h"
#include "QBarDiagramWidget.h"

#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Scroll bar steps of one bar.
constexpr double g_dBarSteps = 10.0;
/// Names that read upwards take this part of the frame's height at most.
constexpr double g_dMostNameShare = 0.35;

double mostNameDepth(int iHeight)
{
    return std::floor(g_dMostNameShare * iHeight);
}

} // namespace

BarChartFrame::BarChartFrame(QBarDiagramWidget* pqCanvas, QWidget* pqParent)
    : ChartFrame(pqCanvas, pqParent)
    , m_pqBars(pqCanvas)
    , m_pqClassAxis(new QBarClassAxisWidget)
{
    setBottomWidget(m_pqClassAxis);
    disconnect(bottomAxis(), nullptr, m_pqBars, nullptr);
    m_pqBars->verticalGridLinesChanged({});                        // names need no lines
    verticalScrollBar()->setValue(verticalScrollBar()->maximum()); // bars stand on the bottom, zoomed or not
    horizontalScrollBar()->setAccessibleName(tr("First bar that is seen"));
    connect(m_pqBars, &QBarDiagramWidget::windowChanged, this, [this](const BarWindow& window) {
        m_pqClassAxis->setWindow(window);
        syncAxes();
    });
    BarChartFrame::setBlackBackground(false);
}

void BarChartFrame::setClasses(const std::shared_ptr<const BarDiagramClasses>& pClasses)
{
    m_pClasses = pClasses;
    m_pqBars->setClasses(pClasses);
    m_pqClassAxis->setClasses(pClasses);
    syncAxes();
}

void BarChartFrame::classesChanged()
{
    m_pqBars->classesChanged();
    m_pqClassAxis->classesChanged();
    syncAxes();
}

void BarChartFrame::setClassTitle(const QString& sTitle)
{
    m_pqClassAxis->setTitle(sTitle);
}

void BarChartFrame::setBlackBackground(bool bBlack)
{
    ChartFrame::setBlackBackground(bBlack);
    m_pqClassAxis->setAxisColor(canvas()->labelColor());
}

void BarChartFrame::setFontSize(double dPointSize)
{
    ChartFrame::setFontSize(dPointSize);
    m_pqClassAxis->setFont(canvas()->font());
}

void BarChartFrame::syncAxes()
{
    ChartFrame::syncAxes();
    const BarWindow window = m_pqBars->window();
    const double dHidden = std::max(0.0, allBars().m_dCount - window.m_dCount);
    QScrollBar* pqBar = horizontalScrollBar();
    const QSignalBlocker blocker(pqBar);
    pqBar->setVisible(dHidden > 1e-9);
    pqBar->setRange(0, static_cast<int>(std::ceil(dHidden * g_dBarSteps)));
    pqBar->setPageStep(std::max(1, static_cast<int>(window.m_dCount * g_dBarSteps)));
    pqBar->setSingleStep(static_cast<int>(g_dBarSteps));
    pqBar->setValue(static_cast<int>(std::lround(window.m_dFirst * g_dBarSteps)));
}

void BarChartFrame::scrollHorizontally(int iPosition)
{
    m_pqBars->setFirstBar(iPosition / g_dBarSteps);
}

void BarChartFrame::resizeEvent(QResizeEvent* pEvent)
{
    ChartFrame::resizeEvent(pEvent);
    m_pqClassAxis->setMostDepth(mostNameDepth(height()));
}

// ---- pictures -------------------------------------------------------------------------------------------------------

BarWindow BarChartFrame::allBars() const
{
    return {0.0, m_pClasses ? std::max(1.0, static_cast<double>(m_pClasses->barCount())) : 1.0};
}

int BarChartFrame::bottomThickness(const QRect& oPage, int iChartWidth) const
{
    return m_pqClassAxis->thickness(allBars(), iChartWidth, mostNameDepth(oPage.height()));
}

void BarChartFrame::renderChart(QPainter& painter, const QRect& oPage, const QRect& oChart,
                                const QList<int>& viHorizontal) const
{
    m_pqBars->renderAllBars(painter, oChart, viHorizontal);
    m_pqClassAxis->drawAxis(painter, oChart, allBars(), mostNameDepth(oPage.height()));
}

} // namespace gkBase

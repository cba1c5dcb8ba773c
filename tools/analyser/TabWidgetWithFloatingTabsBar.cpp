#include "TabWidgetWithFloatingTabsBar.h"

#include <QMouseEvent>

namespace gkBase {

TabWidgetWithFloatingTabsBar::TabWidgetWithFloatingTabsBar(QWidget* pqParent)
    : QTabBar(pqParent)
{
}

void TabWidgetWithFloatingTabsBar::mousePressEvent(QMouseEvent* pEvent)
{
    m_bDragReported = false;
    m_bPressed = pEvent->button() == Qt::LeftButton;
    m_oPressPos = pEvent->position().toPoint();
    QTabBar::mousePressEvent(pEvent);

    // Some styles switch tabs on the release, whose usual handling never runs here.
    const int iTab = tabAt(m_oPressPos);
    if (m_bPressed && iTab >= 0 && isTabEnabled(iTab))
        setCurrentIndex(iTab);
}

void TabWidgetWithFloatingTabsBar::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (m_bDragReported || !m_bPressed)
        return;
    const QPoint pos = pEvent->position().toPoint();
    const int iTab = tabAt(pos);
    if (iTab < 0 || (pos - m_oPressPos).manhattanLength() <= g_iDragThreshold)
        return;
    m_bDragReported = true;
    emit signalMouseMoveOnTab(iTab);
}

void TabWidgetWithFloatingTabsBar::mouseReleaseEvent(QMouseEvent* /*pEvent*/)
{
    m_bDragReported = false;
    m_bPressed = false;
}

void TabWidgetWithFloatingTabsBar::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    emit signalMouseMoveOnTab(currentIndex());
    QTabBar::mouseDoubleClickEvent(pEvent);
    // The base takes it for a press, too; pulling on with the button held must not tear off a second tab.
    m_bPressed = false;
}

} // namespace gkBase

#pragma once

#include "gkBaseToolsExport.h"

#include <QPoint>
#include <QTabBar>

namespace gkBase {

/// The tab bar of TabWidgetWithFloatingTabs: reports when the user pulls at a tab. A press switches to the tab at once,
/// in every style; tabs are not moved inside the bar.
class GKBASETOOLS_EXPORT TabWidgetWithFloatingTabsBar : public QTabBar
{
    Q_OBJECT
public:
    /// Pixels (Manhattan length) that the pointer may move from the press without tearing a tab off.
    static constexpr int g_iDragThreshold = 5;

    explicit TabWidgetWithFloatingTabsBar(QWidget* pqParent = nullptr);

signals:
    /// A tab was pulled beyond the threshold, or the bar was double-clicked (then i is the current tab). At most once
    /// from press to release.
    void signalMouseMoveOnTab(int i);

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;

private:
    QPoint m_oPressPos;
    bool m_bPressed = false; ///< the left button is held since a press on the bar
    bool m_bDragReported = false;
};

} // namespace gkBase

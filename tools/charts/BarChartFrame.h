#pragma once

#include "ChartFrame.h"
#include "gkBaseToolsExport.h"

#include <memory>

namespace gkBase {

class BarDiagramClasses;
struct BarWindow;
class QBarClassAxisWidget;
class QBarDiagramWidget;

/// The frame of a bar chart: below the canvas stand the names of the classes, and the horizontal scroll bar moves
/// through the bars that do not fit, zoomed or not.
class GKBASETOOLS_EXPORT BarChartFrame : public ChartFrame
{
    Q_OBJECT
public:
    /// The frame becomes the canvas's parent.
    explicit BarChartFrame(QBarDiagramWidget* pqCanvas, QWidget* pqParent = nullptr);

    /// Shown by canvas and axis. classesChanged() tells that their bars are others.
    void setClasses(const std::shared_ptr<const BarDiagramClasses>& pClasses);
    void classesChanged();
    /// Title of the axis of names.
    void setClassTitle(const QString& sTitle);

    void setBlackBackground(bool bBlack) override;
    void setFontSize(double dPointSize) override;

protected:
    void syncAxes() override;
    void scrollHorizontally(int iPosition) override;
    int bottomThickness(const QRect& oPage, int iChartWidth) const override;
    void renderChart(QPainter& painter, const QRect& oPage, const QRect& oChart,
                     const QList<int>& viHorizontal) const override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    BarWindow allBars() const;

    QBarDiagramWidget* m_pqBars;
    QBarClassAxisWidget* m_pqClassAxis;
    std::shared_ptr<const BarDiagramClasses> m_pClasses;
};

} // namespace gkBase

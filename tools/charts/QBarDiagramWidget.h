#pragma once

#include "BarDiagramGeometry.h"
#include "QHistogramPlotWidget.h"
#include "gkBaseToolsExport.h"

#include <memory>
#include <unordered_set>
#include <vector>

namespace gkBase {

/// The canvas of the bar chart: one bar for each class. Along the bars it shows a window of them, so that any number
/// of classes keeps bars of a width that can be read; the zoom magnifies both the height and the bars. The x data unit
/// is one bar, bar i from i to i + 1; the y data unit is a record or a per cent.
class GKBASETOOLS_EXPORT QBarDiagramWidget : public QHistogramPlotWidget
{
    Q_OBJECT
public:
    explicit QBarDiagramWidget(QWidget* pqParent = nullptr, const QString& sName = QString());

    /// Null empties the chart. classesChanged() tells that their bars are others.
    void setClasses(std::shared_ptr<const BarDiagramClasses> pClasses);
    void classesChanged();
    /// Heights are counts, or per cent of all bars.
    void setPercent(bool bPercent);
    bool isPercent() const { return m_bPercent; }
    /// Upper end of the y range.
    void setTop(double dTop);
    /// Each bar in the colour of its class, or all in that of the attribute.
    void setColorByClass(bool bByClass);
    void setAttributeColor(const QColor& oColor);
    /// Counts or per cents above the bars that are wide enough.
    void setShowValues(bool bShow);
    /// Classes to set off from the others, by their ids; none: all alike.
    void setSelectedIds(const std::vector<int>& viIds);

    /// The bars that are seen.
    BarWindow window() const { return m_oWindow; }
    /// Scrolls; kept inside what there is.
    void setFirstBar(double dFirst);
    /// Height of a bar in y data units; 0 out of range.
    double barHeight(int iBar) const;
    /// What a bar stands for: "name: count (share %)"; empty out of range.
    QString barText(int iBar) const;
    /// The class in whose place a chart pixel lies, whatever the height of its bar; −1 where there is none.
    int intervalAt(const QPointF& oPixel) const override;

    /// Draws all bars at another size with the horizontal grid lines that belong to it.
    void renderAllBars(QPainter& painter, const QRect& oTarget, const QList<int>& viHorizontal);

    void layoutChart() override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

public slots:
    void zoom(double dZoom) override;

signals:
    /// Another part of the bars is seen.
    void windowChanged(const gkBase::BarWindow& window);
    /// A click; −1 beside all bars. bAdd: with the key that adds to a selection.
    void barClicked(int iBar, bool bAdd);

protected:
    void drawHistogram(QPainter* pPainter) override;
    void drawStatisticMeasures(QPainter* pPainter) override;
    QString intervalToolTip(int iInterval) const override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

private:
    int barCount() const { return m_pClasses ? m_pClasses->barCount() : 0; }
    void updateHeights();
    void updateWindow();
    QColor fillColor(int iBar) const;
    QString valueText(int iBar) const;

    std::shared_ptr<const BarDiagramClasses> m_pClasses;
    std::vector<double> m_vdHeights;
    std::vector<HistogramBar> m_vBars;
    std::unordered_set<int> m_selectedIds;
    BarWindow m_oWindow;
    double m_dTop = 1.0;
    double m_dFirst = 0.0; ///< as asked for
    QColor m_oAttributeColor = Qt::darkBlue;
    bool m_bPercent = false;
    bool m_bColorByClass = true;
    bool m_bShowValues = true;
};

} // namespace gkBase

#pragma once

#include "NormalProbability.h"
#include "ProbabilityPlotGeometry.h"
#include "QHistogramPlotWidget.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QStringList>

#include <functional>
#include <vector>

namespace gkBase {

/// The canvas of the normal probability plot: sorted values to the right, their normal probability upwards at the
/// spacing of normal quantiles, so that a normal distribution is a straight line; and the line fitted to them. The x
/// data unit is a model unit, the y data unit a standard normal quantile.
class GKBASETOOLS_EXPORT QProbabilityPlot : public QHistogramPlotWidget
{
    Q_OBJECT
public:
    /// A value in model units as it is shown, with its unit.
    using ValueText = std::function<QString(double)>;

    explicit QProbabilityPlot(QWidget* pqParent = nullptr, const QString& sName = QString());

    /// Rising, none missing. Fits the line; setBoundaries() follows from the owner.
    void setValues(std::vector<double> vdSorted);
    const std::vector<double>& values() const { return m_vdSorted; }
    NormalFit fit() const { return m_oFit; }
    void setSymbolColor(const QColor& oColor);
    /// How values stand in the tool tip; none writes plain numbers.
    void setValueText(const ValueText& fnValueText) { m_fnValueText = fnValueText; }
    /// Lines of a box in the corner of the chart that the points leave free.
    void setResultLines(const QStringList& lLines);
    QStringList resultLines() const { return m_lResultLines; }

    /// Index into points() of the point at a chart pixel, −1 where there is none.
    int intervalAt(const QPointF& oPixel) const override;
    /// The points that are drawn, laid out for the present size.
    const std::vector<ProbabilityPoint>& points() const { return m_vPoints; }

    void layoutChart() override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

protected:
    void drawHistogram(QPainter* pPainter) override;
    void drawStatisticMeasures(QPainter* pPainter) override;
    QString intervalToolTip(int iInterval) const override;

private:
    QRectF freeCorner(const QSizeF& oBox, const QRect& oVisibleArea) const;

    std::vector<double> m_vdSorted;
    NormalFit m_oFit;
    std::vector<ProbabilityPoint> m_vPoints;
    QLineF m_oLine;
    QColor m_oSymbolColor = Qt::darkBlue;
    ValueText m_fnValueText;
    QStringList m_lResultLines;
};

} // namespace gkBase

#include "ProbabilityPlotFrame.h"

#include "ColumnNumbers.h"
#include "MatrixData.h"
#include "QProbabilityPlot.h"
#include "UnitManager.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iDecimals = 3;

std::vector<double> sortedValues(const MatrixData& attribute, const std::vector<int>& viRecords)
{
    std::vector<double> vdValues;
    if (attribute.columnCount() < 1)
        return vdValues;
    const ColumnNumbers numbers(attribute.column(0));
    const RecordValues values = numbers.values(viRecords);
    vdValues.reserve(values.size());
    values.forEach([&vdValues](double dValue) { vdValues.push_back(dValue); });
    std::sort(vdValues.begin(), vdValues.end());
    return vdValues;
}

} // namespace

ProbabilityPlotFrame::ProbabilityPlotFrame(QProbabilityPlot* pqCanvas, QWidget* pqParent)
    : ChartFrame(pqCanvas, pqParent)
    , m_pqPlot(pqCanvas)
{
    leftAxis()->setTitle(tr("Probability [%]"));
    m_pqPlot->setValueText([this](double dValue) { return valueText(dValue); });
    connect(m_pqPlot, &QChartDrawingArea::cursorPos, this, &ProbabilityPlotFrame::updateCursorText);
    showAttribute(nullptr, {});
    updateCursorText({g_dMissingValue, g_dMissingValue});
}

void ProbabilityPlotFrame::showAttribute(const MatrixData* poAttribute, const std::vector<int>& viRecords)
{
    m_poUnit = poAttribute ? poAttribute->unitManager() : boost::shared_ptr<UnitManager>();
    m_pqPlot->setValues(poAttribute ? sortedValues(*poAttribute, viRecords) : std::vector<double>());
    if (poAttribute)
        m_pqPlot->setSymbolColor(poAttribute->color());
    const QString sName = poAttribute ? poAttribute->name() : QString();
    const MatrixData* poDataSet = poAttribute ? poAttribute->owner() : nullptr;
    bottomAxis()->setTitle(sName);
    bottomAxis()->setUnitManager(m_poUnit);
    setTitle(poDataSet ? poDataSet->name() : sName);
    updateRanges();
    showResults();
}

void ProbabilityPlotFrame::updateRanges()
{
    const std::vector<double>& vdSorted = m_pqPlot->values();
    const double dRange = quantileRange(vdSorted.size());
    double dMin = vdSorted.empty() ? 0.0 : vdSorted.front();
    double dMax = vdSorted.empty() ? 1.0 : vdSorted.back();
    bottomAxis()->fitNiceRange(dMin, dMax);
    m_pqPlot->setBoundaries({dMin, -dRange}, {dMax, dRange});
    // The canvas widens ranges that cannot be drawn; the axes show what it shows.
    const HistogramBoundaries shown = m_pqPlot->boundaries();
    bottomAxis()->setRange(shown.m_oLowerLeft.x(), shown.m_oUpperRight.x());
    leftAxis()->setFixedTicks(probabilityTicks(dRange));
    leftAxis()->setRange(shown.m_oLowerLeft.y(), shown.m_oUpperRight.y());
}

void ProbabilityPlotFrame::showResults()
{
    const NormalFit fit = m_pqPlot->fit();
    if (fit.m_iCount == 0) {
        m_pqPlot->setResultLines({});
        return;
    }
    QStringList lLines{tr("Number of Points: %1").arg(fit.m_iCount), tr("Mean: %1").arg(valueText(fit.m_dMean))};
    if (!isMissing(fit.m_dStandardDeviation))
        lLines << tr("Stand. Deviation: %1").arg(differenceText(fit.m_dStandardDeviation))
               << tr("Correlation: %1").arg(QString::number(fit.m_dCorrelation, 'f', 4));
    m_pqPlot->setResultLines(lLines);
}

QString ProbabilityPlotFrame::valueText(double dValue) const
{
    if (!m_poUnit)
        return QString::number(dValue, 'f', g_iDecimals);
    const QString sNumber = QString::number(m_poUnit->convertModelToDisplay(dValue), 'f', g_iDecimals);
    return (sNumber + QLatin1Char(' ') + m_poUnit->getDisplayUnitTag()).trimmed();
}

QString ProbabilityPlotFrame::differenceText(double dDifference) const
{
    if (!m_poUnit)
        return QString::number(dDifference, 'f', g_iDecimals);
    const double dScale = m_poUnit->convertModelToDisplay(1.0) - m_poUnit->convertModelToDisplay(0.0);
    const QString sNumber = QString::number(dDifference * std::abs(dScale), 'f', g_iDecimals);
    return (sNumber + QLatin1Char(' ') + m_poUnit->getDisplayUnitTag()).trimmed();
}

void ProbabilityPlotFrame::updateCursorText(const QPointF& oPosition)
{
    if (!m_poUnit || isMissing(oPosition.x())) {
        setCursorText(QStringLiteral("---"));
        return;
    }
    const QString sPercent = QString::number(100.0 * normalProbability(oPosition.y()), 'f', 2);
    setCursorText(tr("%1, %2 %").arg(valueText(oPosition.x()), sPercent));
}

} // namespace gkBase

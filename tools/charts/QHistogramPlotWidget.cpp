#include "QHistogramPlotWidget.h"

#include "DirectionMarks.h"
#include "QCartesianAxisWidget.h"
#include "QHistogramItemModel.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

/// A line of one pixel with one pixel of halo on each side.
constexpr double g_dHaloWidth = 3.0;
constexpr double g_dLabelGap = 4.0;
constexpr double g_dLabelPadding = 3.0;
constexpr double g_dLabelTop = 4.0;

} // namespace

QHistogramPlotWidget::QHistogramPlotWidget(QWidget* pqParent, const QString& sName)
    : QChartDrawingArea(pqParent, sName)
{
    setMouseTracking(true);
}

void QHistogramPlotWidget::setHistogramItemModel(QHistogramItemModel* pModel)
{
    m_pModel = pModel;
    scheduleRedraw();
}

QHistogramItemModel* QHistogramPlotWidget::histogramItemModel() const
{
    return m_pModel;
}

void QHistogramPlotWidget::setAxes(QCartesianAxisWidget* pqLeft, QCartesianAxisWidget* pqBottom)
{
    m_pqLeftAxis = pqLeft;
    m_pqBottomAxis = pqBottom;
}

void QHistogramPlotWidget::setBoundaries(QPointF oLowerLeft, QPointF oUpperRight)
{
    m_oBoundaries = guardedBoundaries({oLowerLeft, oUpperRight});
    scheduleRedraw();
}

void QHistogramPlotWidget::setStatisticPoints(double dP10, double dP50, double dP90, const QColor& oColor)
{
    m_oPercentiles = {dP10, dP50, dP90};
    m_oPercentileColor = oColor;
    scheduleRedraw();
}

void QHistogramPlotWidget::setShowP10(bool bShow)
{
    m_bShowP10 = bShow;
    scheduleRedraw();
}

void QHistogramPlotWidget::setShowP50(bool bShow)
{
    m_bShowP50 = bShow;
    scheduleRedraw();
}

void QHistogramPlotWidget::setShowP90(bool bShow)
{
    m_bShowP90 = bShow;
    scheduleRedraw();
}

void QHistogramPlotWidget::setTandLdirection(const double& dT, const double& dL)
{
    m_dT = dT;
    m_dL = dL;
    scheduleRedraw();
}

void QHistogramPlotWidget::verticalGridLinesChanged(const QList<int>& viPositions)
{
    m_viVerticalGridLines = viPositions;
    scheduleRedraw();
}

void QHistogramPlotWidget::horizontalGridLinesChanged(const QList<int>& viPositions)
{
    m_viHorizontalGridLines = viPositions;
    scheduleRedraw();
}

QPointF QHistogramPlotWidget::transformInPixelPoint(const QPointF& oPoint)
{
    return map().toPixel(oPoint);
}

QPointF QHistogramPlotWidget::transformInDataPoint(const QPointF& oPixel) const
{
    return map().toData(oPixel);
}

// ---- drawing -------------------------------------------------------------------------------------------------------

void QHistogramPlotWidget::layoutChart()
{
    const HistogramMap oMap = map();
    m_oPlotRect = QRectF(QPointF(0, 0), QSizeF(chartSize() - QSize(1, 1)));
    m_vBars = m_pModel ? histogramBars(m_pModel->intervals(), oMap) : std::vector<HistogramBar>();
    m_vLines = percentileLines(m_oPercentiles, m_bShowP10, m_bShowP50, m_bShowP90, oMap);
    m_vDirections = gkBase::directionMarks(m_dT, m_dL, oMap);
}

void QHistogramPlotWidget::drawChart(QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    drawAxes(&painter);
    drawHistogram(&painter);
    drawStatisticMeasures(&painter);
    drawTandLdirection(&painter);
    painter.restore();
}

void QHistogramPlotWidget::drawAxis(QPainter& painter, QRect oVisibleArea)
{
    if (m_pqLeftAxis)
        m_pqLeftAxis->drawAxis(painter, oVisibleArea);
    if (m_pqBottomAxis)
        m_pqBottomAxis->drawAxis(painter, oVisibleArea);
}

void QHistogramPlotWidget::drawAxes(QPainter* pPainter)
{
    if (gridIsOn()) {
        pPainter->setPen(QPen(m_oGridColor, 1.0, Qt::DotLine));
        for (const int iX : m_viVerticalGridLines)
            pPainter->drawLine(QPointF(iX, m_oPlotRect.top()), QPointF(iX, m_oPlotRect.bottom()));
        for (const int iY : m_viHorizontalGridLines)
            pPainter->drawLine(QPointF(m_oPlotRect.left(), iY), QPointF(m_oPlotRect.right(), iY));
    }
    pPainter->setPen(QPen(m_oGridColor, 1.0));
    pPainter->setBrush(Qt::NoBrush);
    pPainter->drawRect(m_oPlotRect);
}

void QHistogramPlotWidget::drawHistogram(QPainter* pPainter)
{
    if (!m_pModel || !m_pModel->frequencyData())
        return;
    pPainter->setPen(QPen(m_oLabelColor, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    pPainter->setBrush(m_pModel->frequencyData()->color());
    const QRectF oClip = pPainter->hasClipping() ? pPainter->clipBoundingRect() : m_oPlotRect;
    for (const HistogramBar& bar : m_vBars) {
        if (bar.m_oRect.right() < oClip.left() - 1.0)
            continue;
        if (bar.m_oRect.left() > oClip.right() + 1.0)
            break; // bars run from left to right
        if (bar.m_oRect.width() > 0.0)
            pPainter->drawRect(bar.m_oRect);
        else
            pPainter->drawLine(bar.m_oRect.topLeft(), bar.m_oRect.bottomLeft());
    }
}

void QHistogramPlotWidget::drawStatisticMeasures(QPainter* pPainter)
{
    for (const HistogramLine& line : m_vLines) {
        const QLineF oLine(line.m_dX, m_oPlotRect.bottom(), line.m_dX, m_oPlotRect.top());
        // The line has the background's colour; its halo sets it off from the background, itself from the bars.
        pPainter->setPen(QPen(m_oLabelColor, g_dHaloWidth, Qt::SolidLine, Qt::FlatCap));
        pPainter->drawLine(oLine);
        pPainter->setPen(QPen(m_oPercentileColor, 1.0, Qt::SolidLine, Qt::FlatCap));
        pPainter->drawLine(oLine);
    }
}

void QHistogramPlotWidget::drawTandLdirection(QPainter* pPainter)
{
    std::vector<DirectionLine> vLines;
    for (const HistogramDirection& mark : m_vDirections)
        vLines.push_back({QLineF(mark.m_dX, m_oPlotRect.bottom(), mark.m_dX, m_oPlotRect.top()), mark.m_bTransverse});
    drawDirectionLines(*pPainter, vLines, m_oLabelColor, m_oBackgroundColor);
}

void QHistogramPlotWidget::drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea)
{
    if (!m_pModel || m_pModel->intervals().empty())
        drawNoValues(painter, oVisibleArea);
    else
        drawLineLabels(painter, oVisibleArea);
}

void QHistogramPlotWidget::drawNoValues(QPainter& painter, const QRect& oVisibleArea)
{
    painter.setPen(m_oLabelColor);
    painter.drawText(QRect(QPoint(0, 0), oVisibleArea.size()), Qt::AlignCenter | Qt::TextWordWrap, tr("No values"));
}

std::vector<QHistogramPlotWidget::LineLabel> QHistogramPlotWidget::lineLabels() const
{
    std::vector<LineLabel> vLabels;
    for (const HistogramLine& line : m_vLines)
        vLabels.push_back({line.m_dX, QStringLiteral("P%1").arg(line.m_iPercent), false});
    for (const HistogramDirection& mark : m_vDirections)
        vLabels.push_back({mark.m_dX, directionName(mark.m_bTransverse), true});
    std::stable_sort(vLabels.begin(), vLabels.end(),
                     [](const LineLabel& first, const LineLabel& second) { return first.m_dX < second.m_dX; });
    return vLabels;
}

void QHistogramPlotWidget::drawLineLabels(QPainter& painter, const QRect& oVisibleArea) const
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    std::vector<LineLabel> vLabels = lineLabels();
    std::erase_if(vLabels, [&oVisibleArea](const LineLabel& label) {
        return label.m_dX < oVisibleArea.left() || label.m_dX >= oVisibleArea.left() + oVisibleArea.width();
    });
    QList<double> vdCentres;
    QList<double> vdWidths;
    for (const LineLabel& label : vLabels) {
        vdWidths << metrics.horizontalAdvance(label.m_sText) + 2.0 * g_dLabelPadding;
        const double dHalf = vdWidths.last() / 2.0;
        const double dX = label.m_dX - oVisibleArea.left();
        vdCentres << std::max(dHalf, std::min(dX, oVisibleArea.width() - 1.0 - dHalf));
    }
    const QList<int> viRows = labelRows(vdCentres, vdWidths, g_dLabelGap);
    const double dHeight = metrics.height() + 2.0;
    for (qsizetype i = 0; i < viRows.size(); ++i) {
        const LineLabel& label = vLabels[static_cast<std::size_t>(i)];
        const QRectF oBox(std::floor(vdCentres[i] - vdWidths[i] / 2.0),
                          std::floor(g_dLabelTop + viRows[i] * (dHeight + g_dLabelGap)), std::ceil(vdWidths[i]),
                          std::ceil(dHeight));
        if (label.m_bDirection) {
            drawDirectionLabel(painter, oBox, label.m_sText, m_oLabelColor, m_oBackgroundColor);
            continue;
        }
        painter.setPen(QPen(m_oLabelColor, 1.0));
        painter.setBrush(m_oBackgroundColor);
        painter.drawRect(oBox);
        painter.drawText(oBox, Qt::AlignCenter, label.m_sText);
    }
}

void QHistogramPlotWidget::renderWithGrid(QPainter& painter, const QRect& oTarget, const QList<int>& viVertical,
                                          const QList<int>& viHorizontal)
{
    const QList<int> viOwnVertical = std::exchange(m_viVerticalGridLines, viVertical);
    const QList<int> viOwnHorizontal = std::exchange(m_viHorizontalGridLines, viHorizontal);
    renderTo(painter, oTarget);
    m_viVerticalGridLines = viOwnVertical;
    m_viHorizontalGridLines = viOwnHorizontal;
}

// ---- mouse ---------------------------------------------------------------------------------------------------------

QString QHistogramPlotWidget::intervalToolTip(int iInterval) const
{
    if (!m_pModel || iInterval < 0 || iInterval >= static_cast<int>(m_pModel->intervals().size()))
        return {};
    const HistogramInterval& interval = m_pModel->intervals()[static_cast<std::size_t>(iInterval)];
    const boost::shared_ptr<UnitManager> poUnit =
        m_pqBottomAxis ? m_pqBottomAxis->unitManager() : boost::shared_ptr<UnitManager>();
    const auto shown = [&poUnit](double dValue) {
        return QString::number(poUnit ? poUnit->convertModelToDisplay(dValue) : dValue, 'g', 6);
    };
    const QString sUnit = poUnit ? poUnit->getDisplayUnitTag() : QString();
    const double dShare = m_pModel->intervalShare(iInterval);
    const QString sRange = tr("%1 to %2 %3").arg(shown(interval.m_dLeft), shown(interval.m_dRight), sUnit).trimmed();
    const QString sCount = tr("Count: %1 (%2 %)")
                               .arg(std::lround(dShare * m_pModel->numberOfPoints() / 100.0))
                               .arg(QString::number(dShare, 'f', 2));
    if (m_pModel->histogramType() != MatrixData::CumulativeRelativeFrequency)
        return sRange + QLatin1Char('\n') + sCount;
    return sRange + QLatin1Char('\n') + sCount + QLatin1Char('\n') +
           tr("Cumulative: %1 %").arg(QString::number(interval.m_dHeight, 'f', 2));
}

bool QHistogramPlotWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QChartDrawingArea::event(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const QString sText = intervalToolTip(intervalAt(pHelp->pos() + pixmapRect().topLeft()));
    // Unit tags come from files; the tip shows them as they are.
    QToolTip::showText(pHelp->globalPos(), sText.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")),
                       this);
    return true;
}

void QHistogramPlotWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    setMousePickingPos(pEvent->position());
    emit cursorPos(transformInDataPoint(pEvent->position() + pixmapRect().topLeft()));
}

void QHistogramPlotWidget::leaveEvent(QEvent* pEvent)
{
    setMousePickingPos(QPointF(g_dMissingValue, g_dMissingValue));
    emit cursorPos(mousePickingPos());
    QChartDrawingArea::leaveEvent(pEvent);
}

} // namespace gkBase

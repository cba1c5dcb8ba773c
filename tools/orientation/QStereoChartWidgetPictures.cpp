// What the stereonet panel shows under the cursor, copies and exports.

#include "ClassLegends.h"
#include "ContourLegend.h"
#include "DirectionCosines.h"
#include "MetafileClipboard.h"
#include "OrientationText.h"
#include "PolarChartFrame.h"
#include "QStereoChartWidget.h"
#include "QStereoPlotWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Legends take at most this share of a picture's width, or of its height below the chart.
constexpr double g_dLegendShare = 0.4;
constexpr double g_dMargin = 10.0;

/// Where chart and legends stand in a picture.
struct PictureLayout
{
    QRectF m_oChart;
    QRectF m_oClasses;
    QRectF m_oContours;
};

/// The legends are beside the chart, one above the other, or in upright pictures below it, side by side.
PictureLayout pictureLayout(const QRectF& oPicture, const QSizeF& oClasses, const QSizeF& oContours)
{
    PictureLayout layout{oPicture, {}, {}};
    if (oClasses.isEmpty() && oContours.isEmpty())
        return layout;
    if (oPicture.width() >= oPicture.height()) {
        const double dWidth = std::min(std::max(oClasses.width(), oContours.width()) + 2.0 * g_dMargin,
                                       oPicture.width() * g_dLegendShare);
        layout.m_oChart.setRight(oPicture.right() - dWidth);
        const QRectF oBeside = QRectF(layout.m_oChart.right(), oPicture.top(), dWidth, oPicture.height())
                                   .adjusted(g_dMargin, g_dMargin, -g_dMargin, -g_dMargin);
        // Each gets the share of the height that it would like to have.
        const double dShare = oClasses.height() / (oClasses.height() + oContours.height());
        const double dClasses = std::min(oClasses.height(), oBeside.height() * dShare);
        layout.m_oClasses = QRectF(oBeside.topLeft(), QSizeF(oBeside.width(), dClasses));
        layout.m_oContours = oBeside.adjusted(0.0, dClasses > 0.0 ? dClasses + g_dMargin : 0.0, 0.0, 0.0);
        return layout;
    }
    const double dHeight =
        std::min(std::max(oClasses.height(), oContours.height()) + 2.0 * g_dMargin, oPicture.height() * g_dLegendShare);
    layout.m_oChart.setBottom(oPicture.bottom() - dHeight);
    const QRectF oBelow = QRectF(oPicture.left(), layout.m_oChart.bottom(), oPicture.width(), dHeight)
                              .adjusted(g_dMargin, g_dMargin, -g_dMargin, -g_dMargin);
    const double dShare = oClasses.width() / (oClasses.width() + oContours.width());
    const double dClasses = std::min(oClasses.width(), oBelow.width() * dShare);
    layout.m_oClasses = QRectF(oBelow.topLeft(), QSizeF(dClasses, oBelow.height()));
    layout.m_oContours = oBelow.adjusted(dClasses > 0.0 ? dClasses + g_dMargin : 0.0, 0.0, 0.0, 0.0);
    return layout;
}

} // namespace

/// The canvas tells the plane whose pole lies under the cursor or, where it shows lines, the line there.
void QStereoChartWidget::updateCursorPosLabel(QPointF oPosition)
{
    if (isMissing(oPosition.x()) || isMissing(oPosition.y())) {
        m_pqFrame->setCursorText(tr("Line: %1   Plane: %1").arg(undefinedText()));
        return;
    }
    if (m_pqPlot->polesAreShown()) {
        const PlaneOrientation oPlane{oPosition.x(), oPosition.y()};
        m_pqFrame->setCursorText(tr("Line: %1   Plane with this pole: %2")
                                     .arg(lineText(poleOfPlane(oPlane)), planeText(oPlane, convention())));
        return;
    }
    m_pqFrame->setCursorText(
        tr("Line: %1   Plane with this dip line: %2")
            .arg(lineText({oPosition.x(), oPosition.y()}), planeText({oPosition.x(), oPosition.y()}, convention())));
}

void QStereoChartWidget::renderTo(QPainter& painter, const QRectF& oTarget)
{
    if (m_bReadNeeded)
        updateStereoChart();
    updateContourLegend();
    const PictureLayout layout =
        pictureLayout(oTarget, m_pqLegends->isEmpty() ? QSizeF() : m_pqLegends->pictureSize(),
                      m_pqContourLegend->isEmpty() ? QSizeF() : m_pqContourLegend->pictureSize());
    if (!m_pqLegends->isEmpty())
        m_pqLegends->paint(painter, layout.m_oClasses, m_pqPlot->labelColor());
    if (!m_pqContourLegend->isEmpty())
        m_pqContourLegend->paint(painter, layout.m_oContours, m_pqPlot->labelColor());
    m_pqFrame->renderTo(painter, layout.m_oChart);
}

ChartPicture QStereoChartWidget::picture()
{
    return {m_pqPlot->backgroundColor(), m_pqPlot->headerTitle(),
            [this](QPainter& painter, const QRectF& oRect) { renderTo(painter, oRect); }};
}

bool QStereoChartWidget::exportChart(const QString& sPath, const QSize& oSize, QString* psError)
{
    return ChartExporter::write(sPath, oSize, picture(), psError);
}

/// Room for the legends beside the chart.
QSize QStereoChartWidget::pictureSize()
{
    updateContourLegend();
    double dLegends = 0.0;
    if (!m_pqLegends->isEmpty())
        dLegends = m_pqLegends->pictureSize().width();
    if (!m_pqContourLegend->isEmpty())
        dLegends = std::max(dLegends, m_pqContourLegend->pictureSize().width());
    const QSize oChart = m_pqFrame->pictureSize();
    return dLegends > 0.0 ? oChart + QSize(static_cast<int>(std::ceil(dLegends + 2.0 * g_dMargin)), 0) : oChart;
}

void QStereoChartWidget::copyToClipboard()
{
    const QSize oSize = pictureSize();
    QPixmap oPicture(oSize * devicePixelRatioF());
    oPicture.setDevicePixelRatio(devicePixelRatioF());
    oPicture.fill(m_pqPlot->backgroundColor());
    QPainter painter(&oPicture);
    renderTo(painter, QRectF(QPointF(0.0, 0.0), oSize));
    painter.end();
    QApplication::clipboard()->setPixmap(oPicture);
}

void QStereoChartWidget::copyEWMFToClipboard()
{
    copyMetafileToClipboard(ChartExporter::metafile(pictureSize(), picture()), this);
}

} // namespace gkBase

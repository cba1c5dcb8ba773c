#pragma once

#include "NetProjection.h"
#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QRegion>
#include <QString>
#include <QStringList>

#include <vector>

class QFontMetricsF;
class QPainter;

namespace gkBase {

/// Base of the circular charts: one circle fitted to the chart, with ticks and labels around it, a north arrow, a
/// title and a box that counts the points. Directions are azimuths in degrees, clockwise from north, which is up.
///
/// Subclasses override layoutChart() and call this one first, and drawChart(), in which they draw the data and then
/// call drawFrame() (drawChart() here does no more than that and the grid). Title, box and north arrow stick to the
/// visible part (drawVisibleFrame()), and are part of exported pictures. As every canvas it keeps nothing between two
/// drawings: pans do not add up.
///
/// Labels never overlap and never reach into the circle: where there is no room for one every 10 degrees there is one
/// every 30 or 90, and where the margin is too narrow for the font they are written smaller.
class GKBASETOOLS_EXPORT QPolarPlotWidget : public QChartDrawingArea
{
    Q_OBJECT
public:
    QPolarPlotWidget(QWidget* pqParent, const QString& sName);

    /// These only store their flag; the caller redraws.
    void setAnnotationLabelAsAngle(bool bOn) { m_bLabelAsAngle = bOn; }           ///< degrees, every 10
    void setAnnotationLabelAsDirectionOn(bool bOn) { m_bLabelAsDirection = bOn; } ///< words at the quarters
    void setEqualAreaScaling(bool bOn) { m_bEqualAreaScaling = bOn; }
    void showCircleFrame(bool bOn) { m_bShowCircleFrame = bOn; }
    bool annotationLabelAsAngle() const { return m_bLabelAsAngle; }
    bool annotationLabelAsDirection() const { return m_bLabelAsDirection; }
    bool equalAreaScaling() const { return m_bEqualAreaScaling; }
    bool circleFrameIsShown() const { return m_bShowCircleFrame; }
    /// The top-right box reads "points = " and the number of records that count as selected in the model.
    void setShowPointsCount(bool bOn) { m_bShowPointsCount = bOn; }
    /// Without a background the title and the box let the chart show through.
    void setTransparentBackground(bool bOn) { m_bTransparentBackground = bOn; }

    /// In pixels of the whole chart, as of the last layout.
    int radius() const { return m_iRadius; }
    QPoint centre() const { return {m_iCentreX, m_iCentreY}; }
    NetFrame netFrame() const
    {
        return {static_cast<double>(m_iCentreX), static_cast<double>(m_iCentreY), static_cast<double>(m_iRadius)};
    }
    /// The point at a distance from the centre in a direction.
    QPointF pointAt(double dDirection, double dDistance) const;

    /// What the box at the top right says: how many points count as selected. Asked once per layout.
    virtual QString pointsText() const;

    void layoutChart() override;
    void drawChart(QPainter& painter) override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

protected:
    /// Fits the circle, and the plot rectangle around it, to the chart.
    void setCenterAndRadius();
    using QChartDrawingArea::drawCircle;
    void drawCircle(QPainter* pPainter, const int& r);
    void drawCircle(QPainter* pPainter, const int& r, const QPoint& c);
    /// From the centre to the distance radius + iExtra.
    void drawLine(QPainter* pPainter, double dDirection, int iExtra);
    /// An arrow head at the tip, pointing away from the centre.
    void drawArrow(QPainter* pPainter, const QPointF& oTip);
    /// The arc through the strike ends b and c of a great circle and its dip point a; a line along the strike where
    /// the three lie on one. bAsChord closes and fills it by the chord. Nothing for points that coincide.
    void drawSector(const QPointF& a, const QPointF& b, const QPointF& c, QPainter* pPainter, const bool& bAsChord);
    /// Turns the painter's co-ordinates by degrees, clockwise, about the centre; restores nothing.
    void rotation(QPainter* pPainter, const double& dAngle);
    /// What sticks to the view, with (0, 0) at the top left of the visible part.
    void drawNorth(QPainter* pPainter);
    void drawCornerLines(QPainter* pPainter);
    void drawTitle(QPainter* pPainter);
    void drawTopRightInfo(QPainter* pPainter);
    /// 7 pixels outwards from the circle; nothing without annotation.
    void drawAnnotationTick(QPainter* pPainter, double dDirection);
    /// The number of degrees or, with compass words, the word of a quarter; nothing elsewhere or without annotation.
    void drawAnnotationLabel(QPainter* pPainter, double dDirection);
    /// The number of degrees, iGap + 2 pixels outside the circle; the sides follow from the direction.
    void drawAngleAnnotationLabel(QPainter* pPainter, double dDirection, int iGap);
    /// As above, for the directions of one quadrant.
    void drawAngleAnnotationLabelBetween_0to90(QPainter* pPainter, double dDirection, int iGap)
    {
        drawAngleAnnotationLabel(pPainter, dDirection, iGap);
    }
    void drawAngleAnnotationLabelBetween_90to180(QPainter* pPainter, double dDirection, int iGap)
    {
        drawAngleAnnotationLabel(pPainter, dDirection, iGap);
    }
    void drawAngleAnnotationLabelBetween_180to270(QPainter* pPainter, double dDirection, int iGap)
    {
        drawAngleAnnotationLabel(pPainter, dDirection, iGap);
    }
    void drawAngleAnnotationLabelBetween_270to360(QPainter* pPainter, double dDirection, int iGap)
    {
        drawAngleAnnotationLabel(pPainter, dDirection, iGap);
    }
    /// Labels, ticks and the circle, in the label colour. The parts that stick to the view are not among them.
    void drawFrame(QPainter* pPainter, int iPenWidth);
    /// The disc of the circle, to clip data: as a region in whole pixels, and as a path that is smooth everywhere.
    QRegion clipRegion() const;
    QPainterPath clipPath() const;

    /// Where the title and the box stand in the visible part; empty for none. Their text may be cut to it.
    QRectF titleBox(const QPainter& painter) const;
    QRectF topRightInfoBox(const QPainter& painter) const;
    /// Lines that stand in the bottom-left corner; none here.
    virtual QStringList cornerLines() const;
    /// Their box in the visible part; empty without any, or without room for them.
    QRectF cornerBox(const QPainter& painter) const;
    /// The font of what stands in the corners: the painter's or, where texts in it would reach into the circle, a
    /// smaller one, down to the size of ordinary texts.
    QFont cornerFont(const QPainter& painter) const;
    /// The whole chart is seen, and a box in the view stands in the way of the circle.
    bool covers(const QRectF& oBox) const;
    /// Where a title ends at the latest: before whatever stands to its right.
    virtual double titleLimit(const QPainter& painter) const;
    /// The boxes of all that sticks to the view; labels that they would cover are left out while the whole chart is
    /// seen. Subclasses add theirs.
    virtual std::vector<QRectF> visibleBoxes(const QPainter& painter) const;
    /// The whole chart is seen: what sticks to the view stands still beside the labels.
    bool isWholeChart() const;

    QString m_sTopRightInfo; ///< as of the last layout

private:
    struct RimLabel
    {
        QString m_sText;
        double m_dDirection;
        int m_iGap; ///< pixels between circle and label, less 2
    };

    bool hasAnnotation() const { return m_bLabelAsAngle || m_bLabelAsDirection; }
    /// The free pixels beside and above the circle.
    QSizeF margin() const;
    RimLabel angleLabel(double dDirection, int iGap) const;
    /// The word of a quarter, or its initial where the margin is too narrow for words; empty elsewhere.
    RimLabel compassLabel(const QPainter& painter, double dDirection) const;
    /// The painter's font or, where the labels do not fit into the margin, a smaller one.
    QFont rimFont(const QPainter& painter) const;
    /// Of the label above the circle, with the painter's font yet to be fitted.
    QRectF northLabelBox(const QPainter& painter) const;
    /// The box of the letters alone, in chart pixels.
    QRectF labelBox(const QFontMetricsF& metrics, const RimLabel& label) const;
    void drawRimLabel(QPainter& painter, const RimLabel& label) const;
    void drawCoveredZero(QPainter& painter, const QRectF& oBoxOf360) const;
    /// All that fit into the chart and are not covered by what sticks to the view.
    void drawRimLabels(QPainter& painter);
    std::vector<RimLabel> angleLabels(const QPainter& painter) const;
    std::vector<RimLabel> compassLabels(const QPainter& painter) const;
    QRectF northBox(const QPainter& painter) const;
    /// The header title, that of the data where there is no room for the name of the chart, or what fits of it.
    QString titleText(const QFontMetricsF& metrics, double dWidth) const;
    double topRightInfoWidth(const QFontMetricsF& metrics) const;

    bool m_bLabelAsAngle = true;
    bool m_bLabelAsDirection = false;
    bool m_bEqualAreaScaling = true;
    int m_iRadius = 0;
    int m_iCentreX = 0;
    int m_iCentreY = 0;
    bool m_bShowPointsCount = false;
    bool m_bShowCircleFrame = true;
    bool m_bTransparentBackground = false;
};

} // namespace gkBase

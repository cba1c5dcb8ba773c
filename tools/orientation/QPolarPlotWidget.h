#pragma once

#include "NetProjection.h"
#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QPainterPath>
#include <QPointF>
#include <QRegion>
#include <QString>

class QPainter;

namespace gkBase {

/// Base of the circular charts: one circle fitted to the chart, with ticks and labels around it, a north arrow, a
/// title and a box that counts the points. Directions are azimuths in degrees, clockwise from north, which is up.
///
/// Subclasses override layoutChart() and call this one first, and drawChart(), in which they draw the data and then
/// call drawFrame(). Title, box and north arrow stick to the visible part (drawVisibleFrame()), and are part of
/// exported pictures. As every canvas it keeps nothing between two drawings: pans do not add up.
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

    void redraw() override;
    void layoutChart() override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

protected:
    void setCenterAndRadius();
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
    void drawNorth(QPainter* pPainter);
    void drawTitle(QPainter* pPainter);
    void drawTopRightInfo(QPainter* pPainter);
    void drawAnnotationTick(QPainter* pPainter, double dDirection);
    void drawAnnotationLabel(QPainter* pPainter, double dDirection);
    void drawAngleAnnotationLabel(QPainter* pPainter, double dDirection, int iGap);
    void drawAngleAnnotationLabelBetween_0to90(QPainter* pPainter, double dDirection, int iGap);
    void drawAngleAnnotationLabelBetween_90to180(QPainter* pPainter, double dDirection, int iGap);
    void drawAngleAnnotationLabelBetween_180to270(QPainter* pPainter, double dDirection, int iGap);
    void drawAngleAnnotationLabelBetween_270to360(QPainter* pPainter, double dDirection, int iGap);
    /// Labels, ticks and the circle, in the label colour. The parts that stick to the view are not among them.
    void drawFrame(QPainter* pPainter, int iPenWidth);
    /// The disc of the circle, to clip data: as a region in whole pixels, and as a path that is smooth everywhere.
    QRegion clipRegion() const { return m_oClipRegion; }
    QPainterPath clipPath() const;

    QString m_sTopRightInfo;

private:
    bool m_bLabelAsAngle = true;
    bool m_bLabelAsDirection = false;
    bool m_bEqualAreaScaling = true;
    int m_iRadius = 0;
    int m_iCentreX = 0;
    int m_iCentreY = 0;
    QRegion m_oClipRegion;
    bool m_bShowPointsCount = false;
    bool m_bShowCircleFrame = true;
    bool m_bTransparentBackground = false;
};

} // namespace gkBase

#pragma once

#include "QStereoPlotWidget.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QString>

namespace gkBase {

/// The tangent diagram (Bengtson 1980): a stereonet whose records lie at a distance from the centre in proportion to
/// the tangent of their angle, with a fold axis that can be shown and dragged with the mouse.
///
/// With the projection target 1 planes plot at the tangent of their dip in the direction of their dip. Those of a
/// cylindrical fold then lie on a straight line across its axis, at the tangent of the plunge of the axis from the
/// centre; drawFoldAxis() shows that line. With the target 0 it is the poles that plot.
///
/// The maximum angle, which lies on the rim, is that of the settings.
class GKBASETOOLS_EXPORT QTangentPlotWidget : public QStereoPlotWidget
{
    Q_OBJECT
public:
    QTangentPlotWidget(QWidget* pqParent, const QString& sName);
    ~QTangentPlotWidget() override;

    double maximumAngle() const { return projection().maximumAngle(); }
    /// Distance from the centre in pixels of the whole chart.
    double tangentRadius(double dAngle) const;
    /// The pixel of an angle (degrees) in the direction of an azimuth.
    QPointF tangentPlotPointInPixel(const QPointF& oLine) const;
    /// The angle and azimuth that plot at a pixel, also beyond the rim and whatever the projection target is: of the
    /// dip line or of the pole.
    QPointF transformInDataPoint(const QPointF& oPixel) const override;
    NetProjection projection() const override;
    /// Of the points that count as selected, those steeper than the maximum angle, which plot beyond the rim.
    int pointsBeyondRim() const;
    /// Also tells how many points are not in the picture.
    QString pointsText() const override;

    /// Plunge and azimuth in degrees. Missing numbers leave the axis as it is.
    void setFoldAxis(double dPlunge, double dAzimuth);
    QPointF foldAxis() const { return {m_dPlunge, m_dAzimuth}; }
    void setShowFoldAxis(bool bShow);
    bool foldAxisIsShown() const { return m_bShowFoldAxis; }
    /// The mouse can drag the axis, as at first; otherwise it selects there as elsewhere.
    void setFoldAxisMovable(bool bMovable);

signals:
    /// The axis was dragged to this plunge and azimuth.
    void foldAxisMoved(QPointF oAxis);

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    /// Escape brings a dragged axis back to where it was.
    void keyPressEvent(QKeyEvent* pEvent) override;

    NetPaths netPaths() const override;
    /// The net, whose radial lines mark the centre; without a net nothing does.
    void drawNet(QPainter* pPainter) override;
    void drawFoldAxis(QPainter* pPainter) override;
    /// What the label of the axis says; empty for no label.
    virtual QString foldAxisText() const;
    /// Takes the places at which the label of the axis must not stand; none here.
    virtual void blockFoldAxisLabel(LabelPlacement& placement, const QPainter& painter) const;

private:
    /// Where the symbol of the axis stands: on the rim for a plunge above the maximum angle.
    QPointF foldAxisPixel() const;
    bool isOnFoldAxis(const QPointF& oPosition) const;
    void dragFoldAxis(const QPointF& oPosition);
    /// Where the planes that contain the axis plot.
    QPainterPath foldPath() const;

    double m_dPlunge = 0.0;
    double m_dAzimuth = 0.0;
    bool m_bShowFoldAxis = false;
    bool m_bMovable = true;
    bool m_bDragging = false;
    QPointF m_oAxisBefore; ///< (plunge, azimuth) before it was dragged
};

} // namespace gkBase

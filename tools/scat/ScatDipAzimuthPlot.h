#pragma once

#include "CrossPlotGeometry.h"
#include "LineInPlane.h"
#include "MissingValue.h"
#include "QCrossPlot.h"
#include "gkBaseToolsExport.h"

#include <QPolygonF>
#include <QString>

#include <span>
#include <vector>

namespace gkBase {

/// The plot of dip against dip azimuth, with the curve of a cylindrical fold and marks at T, its opposite and L
/// (Bengtson 1980). The model is one of orientations, as a stereonet has it: its x is the dip, which is drawn upwards
/// here, and its y the azimuth, which is drawn to the right.
class GKBASETOOLS_EXPORT ScatDipAzimuthPlot : public QCrossPlot
{
    Q_OBJECT
public:
    explicit ScatDipAzimuthPlot(QWidget* pqParent = nullptr);

    /// Azimuths in degrees; 99999.0 for none.
    void setDirections(double dT, double dL);
    /// The axis of the fold whose curve is drawn; a missing one draws none.
    void setFoldAxis(const LineOrientation& oAxis);

    /// A mark at an azimuth.
    struct Mark
    {
        double m_dX = 0.0; ///< pixels of the whole chart
        QString m_sName;
        bool m_bTransverse = false; ///< T or its opposite, else L
    };
    /// The marks in the present range, from left to right.
    std::vector<Mark> marks() const;

    /// Chart units are (dip, azimuth).
    QPointF transformInPixelPoint(const QPointF& oPoint) override;
    void transformPoints(std::span<const double> vdDips, std::span<const double> vdAzimuths,
                         std::vector<QPointF>& voPixels) override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

protected:
    /// In degrees, as the model has them.
    QString pointToolTip(int iRecord) const override;

private:
    /// (azimuth, dip) to pixels of the whole chart.
    CrossPlotMap axesMap() const;
    void drawFoldCurve(QPainter& painter) const;
    void drawMarkLabels(QPainter& painter, const std::vector<Mark>& vMarks, const QRect& oVisibleArea) const;

    double m_dT = g_dMissingValue;
    double m_dL = g_dMissingValue;
    std::vector<QPolygonF> m_vFoldCurve; ///< (azimuth, dip)
};

} // namespace gkBase

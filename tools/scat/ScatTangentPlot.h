#pragma once

#include "MissingValue.h"
#include "QTangentPlotWidget.h"
#include "gkBaseToolsExport.h"

#include <QLineF>
#include <QRectF>
#include <QString>

#include <array>

namespace gkBase {

/// The tangent diagram of a dipmeter well, small beside its tracks, with the T and L directions as lines through the
/// centre.
class GKBASETOOLS_EXPORT ScatTangentPlot : public QTangentPlotWidget
{
    Q_OBJECT
public:
    explicit ScatTangentPlot(QWidget* pqParent = nullptr);

    /// Azimuths in degrees; 99999.0 for none.
    void setDirections(double dT, double dL);

protected:
    /// In the colour of grids, lighter than that of a whole chart, with the dips of the circles.
    void drawNet(QPainter* pPainter) override;
    /// The directions below the axis: drawn at each paint, so that a change does not draw the records again.
    void drawFoldAxis(QPainter* pPainter) override;
    void blockFoldAxisLabel(LabelPlacement& placement, const QPainter& painter) const override;
    /// Small diagrams have no room for it.
    QString foldAxisText() const override;

private:
    void drawDips(QPainter& painter) const;
    QLineF directionLine(double dDirection) const;
    /// Boxes of the names of T and L, null for one that is not shown.
    std::array<QRectF, 2> labelBoxes(const QPainter& painter) const;

    std::array<double, 2> m_adDirections{g_dMissingValue, g_dMissingValue}; ///< T, L
};

} // namespace gkBase

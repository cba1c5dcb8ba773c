#pragma once

#include "DensityGrid.h"
#include "QPolarPlotWidget.h"
#include "StereoNetSettings.h"
#include "gkBaseToolsExport.h"

#include <QPointer>
#include <QString>

#include <span>
#include <vector>

class QMouseEvent;

namespace gkBase {

class MatrixDataArray;
class QRelationshipItemModel;

/// The stereonet: orientations projected onto the lower hemisphere, equal-area (Schmidt) or equal-angle (Wulff), with
/// reference net, density contours, great circles, results and clusters. The user selects records with a lasso (Ctrl
/// adds) and, in the pick mode, looks at the plane whose pole lies under the cursor.
///
/// The models are not owned. model() has the first data set; its results are drawn. What changes in a model or in the
/// settings is shown after updateChart().
class GKBASETOOLS_EXPORT QStereoPlotWidget : public QPolarPlotWidget
{
    Q_OBJECT
public:
    QStereoPlotWidget(QWidget* pqParent, const QString& sName);
    ~QStereoPlotWidget() override;

    /// Everything that the user chose; draws nothing by itself.
    void setSettings(const StereoNetSettings& settings);
    const StereoNetSettings& settings() const;

    void setSecondModel(QRelationshipItemModel* pModel);
    void setLineationModel(QRelationshipItemModel* pModel);
    QRelationshipItemModel* secondModel() const;
    QRelationshipItemModel* lineationModel() const;

    /// An azimuth that is marked at the rim with a line through the centre; bShow false hides it, bAxial draws both
    /// directions.
    void setAverageOrientation(const double& dAzimuth, const bool& bShow, const bool& bAxial);

    /// What the mouse does: select with a lasso, or show the plane under the cursor while a button is down.
    enum class MouseMode
    {
        Select,
        Pick
    };
    void setMouseMode(MouseMode eMode);
    MouseMode mouseMode() const;

    // ---- projection: angles in degrees, pixels of the whole chart
    double equalAreaRadius(double dPlunge) const;
    double equalAngleRadius(double dPlunge) const;
    double equalAngleCenterPoleDistance(double dDip) const;
    QPointF poleInPixel(const QPointF& oPlane) const;
    QPointF dipDirectionInPixel(const QPointF& oLine) const;
    QPointF transformInPixelPoint(const QPointF& oPoint) override;
    void transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                         std::vector<QPointF>& voPixels) override;
    /// 0 at the centre.
    double transformInAzimuth(const QPointF& oPixel) const;
    /// The plane whose pole plots there; dip and azimuth stay 0 beyond the rim.
    void generateDipAndDipAzimuth(const QPointF& oPixel, double& dDip, double& dDipAzimuth) const;
    /// The projection of the settings; the tangent diagram has its own.
    virtual NetProjection projection() const;

    static QString dipDirection(const double& dStrike);
    /// Strike by the right-hand rule; returns the compass word of the dip direction.
    static QString transformInStrikeDipConvention(const double& dDipAzimuth, double& dStrike);

    // ---- density
    /// The grid that the contours show, counted when the picture needs it; empty when contours are off, or nothing is
    /// selected. In the settings' projection and with the weights of the model.
    const DensityGrid& density();
    /// Levels in per cent with the colours that bands and legend use; empty without contours.
    struct ContourLevel
    {
        double m_dPercent;
        QColor m_oColor;
    };
    const std::vector<ContourLevel>& contourLevels();

signals:
    /// A press on the net cleared the selection.
    void clearSelection();
};

} // namespace gkBase

#pragma once

#include "ContourPaths.h"
#include "DensityGrid.h"
#include "GreatCirclePainter.h"
#include "NetPaths.h"
#include "PointSelection.h"
#include "ProjectedRecords.h"
#include "QPolarPlotWidget.h"
#include "StereoNetSettings.h"
#include "StereoResults.h"
#include "gkBaseToolsExport.h"

#include <QImage>
#include <QPainterPath>
#include <QPoint>
#include <QPointF>
#include <QPointer>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <span>
#include <vector>

class QMouseEvent;

namespace gkBase {

class LabelPlacement;
class MatrixDataArray;
class QRelationshipItemModel;

/// The stereonet: orientations projected onto the lower hemisphere, equal-area (Schmidt) or equal-angle (Wulff), with
/// reference net, density contours, great circles, results and clusters. The user selects records with a lasso (Ctrl
/// adds) or a click and, in the pick mode, looks at the plane whose pole lies under the cursor. Only the first data set
/// reacts to the mouse, and only while its points or great circles are shown.
///
/// Drawn from below: contours, net, great circles, points of the first, the second and the lineation data, contour
/// labels, results with their labels, centroids, frame. All of the data is clipped to the disc.
///
/// Chart units are (dip, dip azimuth) of planes or (plunge, azimuth) of lines, by polesAreShown(); cursorPos() tells
/// them, or (99999.0, 99999.0) beyond the rim.
///
/// The models are not owned. model() has the first data set; its results are drawn. What changes in a model or in the
/// settings is shown after updateChart(). What did not change is not worked out again: records are projected when
/// points or projection change, and counted when besides these the selection that the counts are restricted to, the
/// weights or the grid do.
class GKBASETOOLS_EXPORT QStereoPlotWidget : public QPolarPlotWidget
{
    Q_OBJECT
public:
    QStereoPlotWidget(QWidget* pqParent, const QString& sName);
    ~QStereoPlotWidget() override;

    /// Everything that the user chose; draws nothing by itself.
    virtual void setSettings(const StereoNetSettings& settings);
    const StereoNetSettings& settings() const { return m_settings; }

    /// Records of the first data set are drawn as poles: they are planes, or there are none, and the settings ask for
    /// it. Else as lines.
    bool polesAreShown() const;

    void setSecondModel(QRelationshipItemModel* pModel);
    void setLineationModel(QRelationshipItemModel* pModel);
    QRelationshipItemModel* secondModel() const;
    QRelationshipItemModel* lineationModel() const;

    /// An azimuth that is marked at the rim with a line from the centre; bShow false hides it, bAxial draws both
    /// directions.
    void setAverageOrientation(const double& dAzimuth, const bool& bShow, const bool& bAxial);

    /// What the mouse does: select with a lasso, or show the plane under the cursor while a button is down.
    enum class MouseMode
    {
        Select,
        Pick
    };
    void setMouseMode(MouseMode eMode);
    MouseMode mouseMode() const { return m_eMouseMode; }

    // ---- projection: angles in degrees, pixels of the whole chart as of the last layout
    double equalAreaRadius(double dPlunge) const;
    double equalAngleRadius(double dPlunge) const;
    /// Of the pole of a plane, in the projection of the settings, whichever that is.
    double equalAngleCenterPoleDistance(double dDip) const;
    QPointF poleInPixel(const QPointF& oPlane) const;
    QPointF dipDirectionInPixel(const QPointF& oLine) const;
    /// poleInPixel() or dipDirectionInPixel(), by polesAreShown(); (0, 0) for a projection target that does not exist.
    QPointF transformInPixelPoint(const QPointF& oPoint) override;
    void transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                         std::vector<QPointF>& voPixels) override;
    /// A pixel in chart units; (99999.0, 99999.0) where no orientation plots.
    virtual QPointF transformInDataPoint(const QPointF& oPixel) const;
    /// Clockwise from north; 0 at the centre.
    double transformInAzimuth(const QPointF& oPixel) const;
    /// The plane whose pole plots there; dip and azimuth are 0 beyond the rim.
    void generateDipAndDipAzimuth(const QPointF& oPixel, double& dDip, double& dDipAzimuth) const;
    /// The projection of the settings; the tangent diagram has its own.
    virtual NetProjection projection() const;

    static QString dipDirection(const double& dStrike);
    /// Strike by the right-hand rule; returns the compass word of the dip direction.
    static QString transformInStrikeDipConvention(const double& dDipAzimuth, double& dStrike);

    // ---- density
    /// The grid that the contours show, counted when the picture needs it; empty when contours are off, or nothing is
    /// taken. In the present projection and with the weights of the model. The counts also go to the contour grids of
    /// the model.
    const DensityGrid& density();
    /// The smallest and the largest node of the last counting pass; 0 before it, and where it took nothing.
    double contourMinimum() const { return m_dContourMinimum; }
    double contourMaximum() const { return m_dContourMaximum; }
    /// Levels in per cent with the colours that bands and legend use; empty without contours.
    struct ContourLevel
    {
        double m_dPercent;
        QColor m_oColor;
    };
    const std::vector<ContourLevel>& contourLevels();

    bool colorAttributeIsOn() override;
    bool symbolAttributeIsOn() override;

    void layoutChart() override;
    void drawChart(QPainter& painter) override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

signals:
    /// A press on the net cleared the selection. Records that the net shows then count as none, unlike those of a table
    /// in which no row is selected.
    void clearSelection();

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    /// Escape gives a lasso up and brings the selection back.
    void keyPressEvent(QKeyEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    bool event(QEvent* pEvent) override;

    /// The position of the mouse in chart pixels.
    QPointF chartPixel(const QPointF& oPosition) const { return oPosition + pixmapRect().topLeft(); }
    /// Chart units under the mouse, as cursorPos() tells them.
    QPointF cursorValue(const QPointF& oPosition) const;
    /// A pixel of the chart lies within the rim or on it; not for NaN.
    bool isOnDisc(const QPointF& oPixel) const;
    /// The net shows records that can be selected: points or great circles of the first data set.
    bool recordsAreSeen() const;
    /// A colour that shows on the background; the label colour for an invalid one.
    QColor readable(const QColor& oColor) const;
    /// The record drawn nearest to a position in chart pixels, within reach of a click; −1 for none.
    int recordAt(const QPointF& oPixel);
    /// What the tool tip of a record says.
    virtual QString pointToolTip(int iRecord) const;

    // ---- drawing, in pixels of the whole chart ----
    virtual NetPaths netPaths() const;
    /// The projection, and that it is of the lower hemisphere, as pictures of nets say it.
    QStringList cornerLines() const override;
    /// The net, and the cross at its centre.
    virtual void drawNet(QPainter* pPainter);
    /// The net alone.
    void drawNetLines(QPainter* pPainter);
    /// Nothing here. Drawn over the chart at each paint, so that it can be moved without drawing the chart again.
    virtual void drawFoldAxis(QPainter* pPainter);
    /// The great circle of a plane in the present pen. bDiameter: and the vertical diameter of the net, in the label
    /// colour.
    void drawCyclographicTrace(QPainter* pPainter, const double& dDip, const double& dDipAzimuth, bool bDiameter);
    /// As a line through its lines at small steps, in the projection of the net.
    void drawEqualAreaCyclographicTrace(QPainter* pPainter, const double& dDip, const double& dDipAzimuth,
                                        bool bDiameter);
    /// As the arc through its strike ends and its dip point, which it is on the equal-angle net.
    void drawEqualAngleCyclographicTrace(QPainter* pPainter, const double& dDip, const double& dDipAzimuth,
                                         bool bDiameter);
    /// Great circles of all planes of the first and, where it is shown, of the second data set.
    void drawCyclographicTraces(QPainter* pPainter);
    /// Poles and lines beyond the rim, which only tangent diagrams have, are not drawn.
    void drawPole(QPainter* pPainter, const QPointF& oPlane);
    /// A point for a line. Lines with |plunge| below 0.005 are not drawn: a zero plunge is treated as no value.
    void drawDipDirection(QPainter* pPainter, const QPointF& oLine);
    /// The same with a symbol, in the highlight colour if wished.
    void drawDipDirection(QPainter* pPainter, const QPointF& oLine, PointStyle eStyle, bool bHighlight);
    /// An open circle of 5 pixels.
    void drawDipDirectionAsBigCircle(QPainter* pPainter, const QPointF& oLine);
    /// The dip azimuth of a plane: a line from the centre over its dip point to the rim, with its name and degrees.
    void drawDipDirectionConstruction(QPainter* pPainter, const QPointF& oPlane);
    /// Bands and isolines. On screens and images from a picture that is kept, so that another selection fills no area.
    void drawContour(QPainter* pPainter);
    void drawContourLabels(QPainter* pPainter, LabelPlacement& placement);
    void drawMeanOrientation(QPainter* pPainter);
    void drawPoleCentroids(QPainter* pPainter);
    void drawAzimuthCentroids(QPainter* pPainter);

    /// Counts of the first data set at nodes over the square around the net, after the edge rule. A column number of
    /// −1 takes the size of the grid; null writes nothing. bPoles false takes the records as lines.
    void countingOutProjections(int iColumns, int iRows, MatrixDataArray* poGrid, bool bPoles,
                                bool bBiasCorrected) const;
    /// The same for the grid that the contours show, until records, weights, projection or number of nodes change.
    void countingOutProjections(int iColumns, int iRows, bool bPoles, bool bBiasCorrected);

private:
    /// A data set beside the first.
    struct Layer
    {
        QPointer<QRelationshipItemModel> m_pModel; ///< not owned
        ProjectedRecords m_oRecords;
        std::vector<QPointF> m_voPixels;
        PointPainter m_oPainter;
        GreatCirclePainter m_oGreatCircles;
    };
    /// A label with its box in pixels.
    struct PlacedText
    {
        QString m_sText;
        QRectF m_oBox;
    };
    /// A result in pixels.
    struct ResultShape
    {
        StereoResultItem m_oItem;
        QPointF m_oPoint; ///< the point, or where the label of a circle goes, of a plane its dip point; NaN beyond
                          ///< the rim
        QPainterPath m_oPath;
    };

    bool contoursAreOn() const;
    /// The same of a further data set.
    bool polesAreShown(const QRelationshipItemModel& model) const;
    DensityGrid count(int iColumns, int iRows, bool bPoles, bool bBiasCorrected) const;
    /// The grid of the model, which must be set, that takes the counts.
    MatrixDataArray* contourGrid() const;
    void updateDensity();
    void updateContours();
    quint64 densityKey() const;
    quint64 netKey() const;
    void layOutNet();
    void layOutLayer(Layer& layer, bool bPoles);
    void layOutContours();
    void layOutResults();
    QPointF pointOf(const StereoResultItem& item) const;

    void drawContourShapes(QPainter& painter) const;
    void updateContourPicture(const PointTarget& target);
    void drawLayers(QPainter* pPainter);
    void drawLayer(QPainter* pPainter, Layer& layer, const QColor& oColor);
    void drawGreatCirclesOf(QPainter* pPainter, const QRelationshipItemModel& model, const QColor& oColor,
                            GreatCirclePainter& curves);
    void drawAverageOrientation(QPainter* pPainter);
    void drawVerticalDiameter(QPainter* pPainter);
    void blockResults(LabelPlacement& placement) const;
    /// A box for the label of each result, null for none.
    std::vector<QRectF> placeResultLabels(const QPainter& painter, LabelPlacement& placement) const;
    void drawResultLabels(QPainter* pPainter, const std::vector<QRectF>& voBoxes);
    void updateContourLabels(const QPainter& painter, LabelPlacement& placement);
    QPolygonF centroids(bool bPoles) const;
    void drawPick(QPainter& painter);

    using QPolarPlotWidget::setMousePickingPos;
    /// Keeps the position of the mouse, or the rim in its direction.
    void setMousePickingPos(QMouseEvent* pEvent);
    void selectOutline();
    void giveUpGesture();
    void tellSelection();

    StereoNetSettings m_settings;
    double m_dAverageOrientation = 0.0;
    bool m_bShowAverageOrientation = false;
    bool m_bAxialAverageOrientation = false;

    // Shapes of the present layout.
    NetPaths m_oNet;
    quint64 m_iNetKey = 0; ///< of what the net was made for; 0: nothing
    ProjectedRecords m_oRecords;
    GreatCirclePainter m_oGreatCircles;
    Layer m_oSecond;
    Layer m_oLineation;
    std::vector<ResultShape> m_vResults;

    // Density: counts, contours on the net of radius 1, the same in pixels.
    DensityGrid m_oDensity;
    double m_dContourMinimum = 0.0;
    double m_dContourMaximum = 0.0;
    QPointer<QRelationshipItemModel> m_pCountedModel; ///< not owned
    quint64 m_iDensityKey = 0;                        ///< of what was counted; 0: nothing
    std::vector<DensityContour> m_vContours;
    std::vector<ContourLevel> m_vLevels;
    quint64 m_iContourKey = 0;
    std::vector<ContourPath> m_vContourPaths;
    quint64 m_iPathKey = 0;
    quint64 m_iPathSerial = 0; ///< grows with every change of the paths
    std::vector<PlacedText> m_vContourLabels;
    quint64 m_iContourLabelKey = 0;
    QImage m_oContourPicture; ///< drawn before, for m_iContourPictureKey
    QPoint m_oContourPictureTopLeft;
    quint64 m_iContourPictureKey = 0;

    // The gesture under way.
    MouseMode m_eMouseMode = MouseMode::Select;
    Qt::MouseButton m_eButton = Qt::NoButton;
    PointSelectionGesture m_oSelectionGesture;
    bool m_bPicking = false;
};

} // namespace gkBase

#pragma once

#include "QPolarPlotWidget.h"
#include "RoseBins.h"
#include "RosePetals.h"
#include "gkBaseToolsExport.h"

#include <QPolygonF>
#include <QString>
#include <QStringList>
#include <QVector>

#include <span>
#include <vector>

class QHelpEvent;
class QMouseEvent;

namespace gkBase {

class MatrixData;

/// The rose diagram: directions counted in sectors, each drawn as a petal whose radius, or whose area, goes with the
/// count. The classes of the model's colour attribute cut the petals into bands, from the first class inside to the
/// last one outside. An arrow shows the mean direction, a dashed line through the centre the mean axis of bidirectional
/// data.
///
/// A click in a sector selects its records, Ctrl adds them to those that are taken; a click beside the circle takes
/// all again. The owner counts (roseBins()) and hands the counts over; setters draw nothing by themselves.
class GKBASETOOLS_EXPORT QRosePlotWidget : public QPolarPlotWidget
{
    Q_OBJECT
public:
    QRosePlotWidget(QWidget* pqParent, const QString& sName);

    // ---- data
    /// Reads the azimuths of an attribute (any unit of angle) into the model where they changed, null empties it, takes
    /// these records into account, or all when the list is empty. Tells whether anything changed. Nothing without a
    /// model.
    bool setDirectionData(MatrixData* poDirection, const std::vector<int>& viRecords);
    /// One byte per record, 1 where it is taken into account; empty for all.
    std::span<const unsigned char> takenMask() const { return m_vbTaken; }
    /// Counts with as many classes as the model's colour attribute has ids, class 0 being that of records without a
    /// value, or without classes. Sets the distance of the grid circles to a fifth of the largest count, rounded.
    void setRoseData(const RoseBins& bins, const CircularMeans& means);
    const RoseBins& bins() const { return m_bins; }
    /// The largest count of a sector.
    double maximum() const { return m_bins.maximum(); }
    /// Shown instead of a rose without records.
    void setMessage(const QString& sMessage);

    // ---- looks
    void showDirectionAsRosePlot(bool bOn) { m_bRosePlot = bOn; } ///< else as unit vectors
    void showResultantMeanDirection(bool bOn) { m_bMeanDirection = bOn; }
    /// The arrow is as long as the mean resultant length, 1 being the radius.
    void showResultantMeanLength(bool bOn) { m_bMeanLength = bOn; }
    void setUnidirectional(bool bOn) { m_bUnidirectional = bOn; }
    bool isUnidirectional() const { return m_bUnidirectional; }
    void showGridCircles(bool bOn) { m_bGridCircles = bOn; }
    void showTickMarks(bool bOn) { m_bTickMarks = bOn; }
    /// In counts; below 1 there are no circles.
    void setGridCircleDistance(int iCounts) { m_iGridCircleDistance = iCounts; }
    int getGridCircleDistance() const { return m_iGridCircleDistance; }
    /// Radius at which petals and grid begin, per cent of that of the plot.
    void setZeroCircleSize(int iPercent) { m_iZeroCircleSize = iPercent; }

    // ---- shapes, as of the last layout
    RoseScale scale() const;
    const std::vector<RosePetal>& petals() const { return m_vPetals; }
    /// Radii of the grid circles, pixels.
    const std::vector<int>& gridRadii() const { return m_viGridRadii; }
    /// What the cursor is on: sector, count, share of the records and, in a band, its class; empty beside the circle.
    QString sectorText(const QPointF& oPosition) const;
    /// The sector under a position of the widget, −1 beside the circle and in the uncovered rest.
    int sectorAt(const QPointF& oPosition) const;

    void layoutChart() override;
    void drawChart(QPainter& painter) override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;
    bool colorAttributeIsOn() override;

protected:
    void drawRoseData(QPainter* pPainter);
    void drawClassifiedRoseData(QPainter* pPainter);
    void drawBin(QPainter* pPainter, const QPolygonF& oOutline);
    /// A circle as large as the count of each sector, and the vector along the middle of the sector. The zero circle
    /// is deliberately not added here: a vector begins at the centre.
    void drawBinBoundaryCircles(QPainter* pPainter);
    void drawGridCircles(QPainter* pPainter, int iPenWidth);
    /// Axes to north, east, south and west with ticks where the grid circles would be.
    void drawTickMarks(QPainter* pPainter);
    /// A line from the centre to radius + extra, with an arrow head when there is some extra. With the mean length
    /// shown, and some extra, the line is as long as the share of the radius that dLength is.
    void drawVector(QPainter* pPainter, double dDirection, double dLength, int iExtraLength);

    double titleLimit(const QPainter& painter) const override;
    QStringList cornerLines() const override;
    std::vector<QRectF> visibleBoxes(const QPainter& painter) const override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    bool event(QEvent* pEvent) override;

private:
    struct Caption
    {
        QRectF m_oBox; ///< in the visible part; empty when there is no room
        QStringList m_lLines;
    };

    QPointF chartPosition(const QPointF& oPosition) const;
    QPolygonF outline(const RosePetal& petal) const;
    void drawMeans(QPainter* pPainter);
    void drawScaleLabels(QPainter* pPainter);
    double quietDirection() const;
    /// The data set's colour, made to stand out from the background.
    QColor dataColor() const;
    QPen meanPen(bool bAxis) const;
    Caption meanCaption(const QPainter& painter) const;
    void drawMeanCaption(QPainter& painter) const;
    void selectSector(int iSector, bool bAdd);

    RoseBins m_bins;
    CircularMeans m_means;
    std::vector<int> m_viTaken;           ///< as given
    std::vector<unsigned char> m_vbTaken; ///< empty: all
    QString m_sMessage;
    bool m_bRosePlot = true;
    bool m_bMeanDirection = true;
    bool m_bMeanLength = false;
    bool m_bUnidirectional = true;
    bool m_bGridCircles = true;
    bool m_bTickMarks = false;
    int m_iGridCircleDistance = 5;
    int m_iZeroCircleSize = 0;

    std::vector<RosePetal> m_vPetals; ///< radii rounded to whole pixels
    std::vector<QPolygonF> m_voOutlines;
    std::vector<int> m_viGridRadii;
    QPointF m_oPressed;
    bool m_bPressed = false;
    QVector<bool> m_vbSelection; ///< as long as receivers of the signal may look at it
};

} // namespace gkBase

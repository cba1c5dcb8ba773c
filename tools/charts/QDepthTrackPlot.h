#pragma once

#include "DepthMarkers.h"
#include "DepthTrack.h"
#include "DepthTrackGeometry.h"
#include "QCrossPlot.h"
#include "gkBaseToolsExport.h"

#include <QCursor>
#include <QPointF>
#include <QSize>
#include <QString>

#include <memory>
#include <span>
#include <vector>

namespace gkBase {

/// The canvas of one track of a depth plot: x is the attribute, y the depth, growing downwards. Beside what a cross
/// plot draws (points, interval boundaries) it draws the line through the samples in the order of the records, the bars
/// of a decimation, marker lines and, in the column for them, their labels.
///
/// Of a line with many samples per pixel row it draws those that cover the same pixels: first, least, greatest and
/// last. Vector files (SVG, PDF, EMF) get four rows per pixel.
///
/// Tracks are magnified and panned together: the canvas only asks for it.
class GKBASETOOLS_EXPORT QDepthTrackPlot : public QCrossPlot
{
    Q_OBJECT
public:
    explicit QDepthTrackPlot(QWidget* pqParent = nullptr, const QString& sName = QString());

    /// Limits and looks; the points are those of the model.
    void setTrack(const DepthTrack& track);
    const DepthTrack& track() const { return m_oTrack; }
    /// The depths at the upper and lower edge of the whole chart, in model units.
    void setDepthRange(double dFrom, double dTo);
    /// Bars of a decimation; empty for none.
    void setDecimation(std::vector<DepthBin> vBins);
    /// Shared by all tracks; null for none.
    void setMarkers(std::shared_ptr<const DepthMarkers> pMarkers);
    /// This canvas is the column of the marker labels.
    void setShowMarkerLabels(bool bShow);
    /// Records whose x lies farther from 0 than this stand as open symbols at the nearer side of the track, where they
    /// are also selected; they stand there when the track shows no symbols, too. 99999.0: none.
    void setSteepLimit(double dDegrees);
    /// A line where x is 0, for values to both sides of it.
    void setZeroLine(bool bShow);
    /// A press of the left button reports a depth for the interval filter instead of selecting points.
    void setBoundaryEditing(bool bEditing);

    /// The line as it was drawn last, for hit tests.
    const std::vector<DepthTrackPiece>& pieces() const { return m_vPieces; }

    /// Magnifies in depth only, as zoomY().
    void zoom(double dZoom) override;
    void transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                         std::vector<QPointF>& voPixels) override;
    std::span<const unsigned char> openPoints() const override { return m_vbSteep; }
    void layoutChart() override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;

    static QColor markerColor(DepthMarker::Kind eKind, bool bOnBlack);

signals:
    /// The wheel asks for a magnification at which the depth under this row of the widget stays there.
    void zoomAsked(double dZoom, double dRow);
    /// A drag or a key asks to show what lies this many pixels further down.
    void panAsked(int iPixels);
    /// A press while boundaries are edited, with the reach of the press in depth.
    void boundaryPressed(double dDepth, double dTolerance);

protected:
    void drawUnderPoints(QPainter& painter) override;
    void drawOverPoints(QPainter& painter) override;
    QString pointToolTip(int iRecord) const override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    /// What the shape of the line depends on.
    struct LineKey
    {
        const QRelationshipItemModel* m_pModel = nullptr;
        quint64 m_iPoints = 0; ///< pointsRevision()
        bool m_bLine = false;
        double m_dFullTurn = 0.0;
        QSize m_oChart;
        QPointF m_oA;
        QPointF m_oB;

        bool operator==(const LineKey&) const = default;
    };

    LineKey lineKey() const;
    DepthTrackMap map() const;
    std::vector<DepthTrackPiece> thinnedLine(int iRowsPerPixel) const;
    void drawZeroLine(QPainter& painter) const;
    void drawLine(QPainter& painter);
    void drawDecimation(QPainter& painter);
    void drawSteepSamples(QPainter& painter);
    void drawSelectedSamples(QPainter& painter);
    void drawMarkerLines(QPainter& painter);
    void drawDecimatedTadpoles(QPainter& painter);
    void drawMarkerLabels(QPainter& painter, const QRect& oVisibleArea);
    bool isOnBlack() const { return labelColor().red() != 0; }

    DepthTrack m_oTrack;
    double m_dFrom = 0.0;
    double m_dTo = 1.0;
    std::vector<DepthBin> m_vBins;
    std::shared_ptr<const DepthMarkers> m_pMarkers;
    bool m_bShowMarkerLabels = false;
    bool m_bBoundaryEditing = false;
    bool m_bZeroLine = false;
    double m_dSteepLimit;
    std::vector<unsigned char> m_vbSteep; ///< by record; empty without a limit
    LineKey m_oLineKey;                   ///< that m_vPieces were made for
    std::vector<DepthTrackPiece> m_vPieces;
    std::vector<DepthBinBar> m_vBars;
    bool m_bPanning = false;
    double m_dPanRow = 0.0; ///< of the mouse when it was last followed
    QCursor m_oCursorBesidePan;
};

} // namespace gkBase

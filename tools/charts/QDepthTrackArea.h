#pragma once

#include "DepthMarkers.h"
#include "DepthOrder.h"
#include "DepthTrack.h"
#include "DepthTrackGeometry.h"
#include "MatrixDataPointer.h"
#include "gkBaseToolsExport.h"

#include <QList>
#include <QPixmap>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <vector>

class QCartesianAxisWidget;
class QFrame;
class QLabel;
class QPainter;
class QRectF;
class QScrollBar;

namespace gkBase {

class DepthTrackHeader;
class ElidedLabel;
class MatrixData;
class QDepthTrackPlot;
class QRelationshipItemModel;

/// The tracks of a well side by side, with a header above each, one depth axis at their left and, when there are
/// markers, a column with their labels. Keeps magnification, position, cursor line, grid and selection of all tracks
/// together and draws all of it on any device.
///
/// Depths are in the model unit of the depth attribute. Too many tracks for the width are scrolled.
class GKBASETOOLS_EXPORT QDepthTrackArea : public QWidget
{
    Q_OBJECT
public:
    /// Whose lines (interval boundaries, scenarios) the tracks show.
    enum class Lines
    {
        Shared, ///< all those of lines()
        PerTrack
    };

    explicit QDepthTrackArea(QWidget* pqParent = nullptr, Lines eLines = Lines::Shared);
    ~QDepthTrackArea() override;

    // ---- data ----------------------------------------------------------------------------------------------------
    /// The depth of all tracks and the number of records of the data set. Not owned; null empties all tracks. The
    /// whole range of depths is shown.
    void setDepth(MatrixData* poDepth, int iRecords);
    MatrixData* depth() const { return m_poDepth.get(); }
    void setTracks(const std::vector<DepthTrack>& vTracks);
    /// Other looks or limits of a track whose attributes stay; nothing for a track that does not exist.
    void setTrack(int iTrack, const DepthTrack& track);
    /// Other attributes in a track, whose canvas, points and lines stay the same objects.
    void refillTrack(int iTrack, const DepthTrack& track);
    std::vector<DepthTrack> tracks() const;
    int numberOfTracks() const { return static_cast<int>(m_vViews.size()); }
    /// Null for a track that does not exist. Owned by the area.
    QDepthTrackPlot* plot(int iTrack) const;
    QRelationshipItemModel* model(int iTrack) const;
    /// The model without points whose lines all tracks share, unless each has its own. Owned by the area.
    QRelationshipItemModel* lines() const { return m_pLines; }
    /// Reads the values of all attributes again; the data set may have another number of records now.
    void refresh(int iRecords);
    /// The records that take part, of a filtered table; empty for all.
    void setTableRows(const std::vector<int>& viRecords);
    /// Marks these records in all tracks; tells whether that changed anything.
    bool setSelectedRecords(const std::vector<int>& viRecords);
    std::vector<int> selectedRecords() const { return m_viSelected; }
    /// A gesture that selects no record leaves the selection as it was, and nothing is emitted.
    void setKeepsSelection(bool bKeeps) { m_bKeepsSelection = bKeeps; }
    void setMarkers(std::shared_ptr<const DepthMarkers> pMarkers);
    /// Bars of a decimation in a track.
    void setDecimation(int iTrack, std::vector<DepthBin> vBins);
    /// Interval filter or other lines changed.
    void linesChanged();

    // ---- depth range ---------------------------------------------------------------------------------------------
    /// The depths that are shown at zoom 1; nothing for bounds that are missing or equal.
    void setDepthRange(double dFrom, double dTo);
    /// All records with some room around them; 0 to 1 without any.
    void showWholeRange();
    double depthFrom() const { return m_dFrom; }
    double depthTo() const { return m_dTo; }
    /// The depths of the records, 99999.0 without any.
    void dataRange(double& dMin, double& dMax) const;
    double zoomFactor() const { return m_dZoom; }
    /// Brings the row of the whole magnified chart to the upper edge, as far as it goes.
    void panToRow(int iRow);
    /// The row of the whole magnified chart at which a depth in the middle of what is seen has its upper edge.
    int rowForCentre(double dDepth) const;

    // ---- looks ---------------------------------------------------------------------------------------------------
    /// What is shown, and of which well; an empty name takes the title away.
    void setTitle(const QString& sChart, const QString& sName);
    QString title() const;
    /// Shown instead of the tracks; empty for none.
    void setMessage(const QString& sMessage);
    QString message() const;
    void setGridIsOn(bool bOn);
    void setTrackGrid(int iTrack, bool bOn);
    void setBlackBackground(bool bBlack);
    void setFontSize(double dPointSize);
    /// Magnifies in depth around the middle of what is seen.
    void setZoom(double dZoom);
    void setMarkerLabels(bool bShow);
    void setCurrentTrack(int iTrack);
    /// Marks several tracks.
    void setMarkedTracks(const std::vector<int>& viTracks);
    /// A click reports a depth instead of selecting records.
    void setBoundaryEditing(bool bEditing);
    QColor backgroundColor() const;
    QColor labelColor() const;

    /// What the headers read at the cursor: the depth, then every track; empty texts without a cursor.
    QStringList readOuts() const;

    /// Everything that is seen, without scroll bars.
    QPixmap grabChart();
    /// Draws title, headers, depth axis and all tracks at zoom 1 into the rectangle of any device.
    void renderTo(QPainter& painter, const QRectF& oTarget);

signals:
    /// Wheel or keys changed the magnification.
    void zoomChanged(double dZoom);
    /// A lasso in one of the tracks; one flag per record.
    void selectionMade(bool* pbSelection, int iLength, int iTrack);
    /// An outline around no record, or a click beside all of them, while the selection is kept as it was.
    void nothingSelected(int iTrack);
    void trackClicked(int iTrack);
    /// A press while boundaries are edited: a depth and the reach of the press.
    void boundaryPressed(double dDepth, double dTolerance);
    void copyAsked();
    void metafileCopyAsked();

protected:
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

private:
    /// One track with what shows it; all children of the area's content.
    struct View
    {
        DepthTrack m_oTrack;
        QRelationshipItemModel* m_pModel = nullptr;
        QDepthTrackPlot* m_pqPlot = nullptr;
        DepthTrackHeader* m_pqHeader = nullptr;
        bool m_bGrid = true;
    };

    /// Where the parts stand in a rectangle.
    struct Places;

    void createSurroundings();
    View newView(int iTrack);
    void connectPlot(QDepthTrackPlot* pqPlot);
    void removeLastView();
    void fillView(View& view);
    void showDepthHeader();
    void applyDepthRange(double dFrom, double dTo);
    void showTrack(View& view);
    int trackOf(const QDepthTrackPlot* pqPlot) const;
    void applyLooks(QDepthTrackPlot* pqPlot);
    void applyLooks(DepthTrackHeader* pqHeader);
    std::vector<QDepthTrackPlot*> allPlots() const;

    Places places(const QRect& oRect) const;
    int markerColumnWidth() const;
    void layoutTracks();
    QList<int> gridColumns(const DepthTrack& track, int iWidth) const;
    void syncDepth();
    void renderTrack(QPainter& painter, const View& view, const QRect& oRect, int iHeader,
                     const QList<int>& viGridRows) const;

    void slotZoomAsked(double dZoom, double dRow);
    void slotSelectionMade(QDepthTrackPlot* pqPlot, bool* pbSelection, int iLength);
    void setCursor(double dDepth);
    void showReadOuts(double dDepth);

    MatrixDataPointer m_poDepth;
    int m_iRecords = 0;
    std::vector<View> m_vViews;
    QRelationshipItemModel* m_pLines;
    Lines m_eLines;
    std::vector<int> m_viTableRows; ///< empty: all
    bool m_bKeepsSelection = false;
    std::vector<int> m_viSelected;
    std::shared_ptr<const DepthMarkers> m_pMarkers;
    std::vector<double> m_vdDepths; ///< that m_oOrder was made for
    DepthOrder m_oOrder;
    bool m_bOrderOutdated = true;

    double m_dFrom = 0.0;
    double m_dTo = 1.0;
    bool m_bWholeRange = true; ///< follows the records
    double m_dZoom = 1.0;
    bool m_bGrid = true;
    bool m_bBlack = false;
    bool m_bMarkerLabels = true;
    bool m_bBoundaryEditing = false;
    QFont m_oChartFont;

    QFrame* m_pqFrame = nullptr; ///< everything but the scroll bars
    ElidedLabel* m_pqTitle = nullptr;
    DepthTrackHeader* m_pqDepthHeader = nullptr;
    QCartesianAxisWidget* m_pqAxis = nullptr;
    QDepthTrackPlot* m_pqMarkerColumn = nullptr;
    QWidget* m_pqViewport = nullptr; ///< clips the tracks
    QWidget* m_pqContent = nullptr;
    QLabel* m_pqMessage = nullptr;
    QScrollBar* m_pqVerticalScrollBar = nullptr;
    QScrollBar* m_pqHorizontalScrollBar = nullptr;
};

} // namespace gkBase

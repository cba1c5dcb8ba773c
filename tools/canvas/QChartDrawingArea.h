#pragma once

#include "ChartBackingStore.h"
#include "ChartViewport.h"
#include "PointBatch.h"
#include "PointPainter.h"
#include "PointStyle.h"
#include "SymbolSpriteCache.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QPointer>
#include <QPolygonF>
#include <QRect>
#include <QRectF>
#include <QString>
#include <QVector>
#include <QWidget>

#include <functional>
#include <span>
#include <utility>
#include <vector>

class QAction;
class QComboBox;
class QMenu;
class QPainter;

namespace gkBase {

class QRelationshipItemModel;
class RelationshipClasses;

/// Base of every chart canvas: draws the chart off screen, shows a part of it that can be magnified and panned, and
/// offers the drawing of points that all charts share.
///
/// How a canvas draws. A subclass overrides two functions and never opens a painter itself:
///
/// - layoutChart() works out shapes for the whole chart of chartSize() logical pixels (zoom included);
/// - drawChart() strokes and fills these shapes, in the pixels of the whole chart, with (0, 0) at its top left.
///
/// The base calls them: redraw() lays out, gets pixels for the visible part, fills them with the background colour and
/// calls drawChart() with a painter that is translated and clipped to those pixels. Panning calls neither while the
/// pixels at hand cover the view; otherwise drawChart() alone is called for the strips that came in. renderTo() lays
/// out for another size and calls drawChart() on any device, so screen, PNG, SVG, PDF and EMF show the same.
/// drawChart() must not reset the painter's transformation or replace its clip (intersecting it is fine), must not
/// paint the background, and may skip what lies outside QPainter::clipBoundingRect().
///
/// What sticks to the visible area (title, boxes, messages) belongs into drawVisibleFrame(), which is drawn over the
/// chart at each paint and moves with the view.
class GKBASETOOLS_EXPORT QChartDrawingArea : public QWidget
{
    Q_OBJECT
public:
    QChartDrawingArea(QWidget* pqParent, const QString& sName);
    ~QChartDrawingArea() override;

    // ---- virtual operations, in the order that subclasses rely on --------------------------------------------------
    /// Black/white mode: a colour with some red in it means light texts on black, any other dark texts on white.
    virtual void setLabelColor(const QColor& oColor);
    /// Puts the visible part of the chart with its axes on the clipboard as an enhanced metafile, or makes the copy of
    /// setMetafileCopy().
    virtual void copyWEMFToClipboard();
    /// Draws the whole chart in chart pixels; see the class description.
    virtual void drawChart(QPainter& painter);
    /// Draws axes beside an area in which the visible part of the chart stands.
    virtual void drawAxis(QPainter& painter, QRect oVisibleArea);
    /// Lays the chart out and draws its pixels again.
    virtual void redraw();
    /// Adds a subclass's actions to the context menu.
    virtual void addToContextMenuEvent(QMenu* pqMenu);
    virtual bool colorAttributeIsOn();
    virtual bool symbolAttributeIsOn();
    /// A text beside a point, in the label colour.
    virtual void drawLabel(QPainter* pPainter, const QPointF& oPosition, const QString& sText);
    /// The cell grid over the plot rectangle; nothing without grid columns and rows.
    virtual void drawGrid(QPainter* pPainter);
    /// Chart units to pixels of the whole chart.
    virtual QPointF transformInPixelPoint(const QPointF& oPoint);

public slots:
    /// Magnification of the chart against the widget. The wheel keeps to 1 … 20; here any positive number goes, and
    /// what is none is ignored.
    virtual void zoom(double dZoom);
    /// Magnifies the height only.
    virtual void zoomY(double dZoom);
    /// Pan position in per cent of what does not fit, 0 … 100.
    virtual void xoffset(int iPercent);
    virtual void yoffset(int iPercent);
    virtual void enableMouseZoom(bool bEnable);

public:
    /// Works out everything that depends on chartSize(). Also sets the plot rectangle.
    virtual void layoutChart();
    /// Drawn over the visible part, with the painter in the co-ordinates of that part: (0, 0) is its top left.
    virtual void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea);
    /// Columns and rows of lines of the cell grid; 0 means none.
    virtual int gridColumns() const;
    virtual int gridRows() const;

    /// Chart units to pixels of the whole chart for many points; one with a number that is not finite becomes NaN.
    /// The base asks transformInPixelPoint() for each; charts of many points convert all at once.
    virtual void transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                                 std::vector<QPointF>& voPixels);

    /// Records whose symbols are open, one flag each, of the pixels that pointPixels() gave last. Empty: none are.
    virtual std::span<const unsigned char> openPoints() const;

    // ---- points ----------------------------------------------------------------------------------------------------
    /// The points that drawPoints() draws. Not owned; may be deleted while the canvas lives; null for none. What
    /// changes in the model is shown after updateChart().
    void setModel(QRelationshipItemModel* pModel);
    QRelationshipItemModel* model() const;
    /// The model's points in pixels of the whole chart, by record; NaN where there is none. Worked out once per layout.
    const std::vector<QPointF>& pointPixels();

    // ---- state -----------------------------------------------------------------------------------------------------
    /// redraw(), then a repaint.
    void updateChart();
    /// The next paint lays out and draws again, once however often this was called before it.
    void scheduleRedraw();
    /// An empty title empties the header, otherwise it becomes "chart name: title".
    void changeHeaderTitle(const QString& sTitle);
    QString headerTitle() const { return m_sHeaderTitle; }
    QString chartName() const { return m_sChartName; }

    /// Logical size of the whole chart, zoom included.
    QSize chartSize() const { return viewport().chartSize(); }
    /// The visible area in pixels of the whole chart.
    QRect pixmapRect() const { return viewport().visibleRect(); }
    double zoomFactor() const { return m_oViewport.zoom(); }
    int offsetPercentX() const { return m_oViewport.percentX(); }
    int offsetPercentY() const { return m_oViewport.percentY(); }
    /// Pans so that a pixel of the whole chart stands at the view's top left, as far as the chart reaches; finer than
    /// whole per cent.
    void panTo(const QPoint& oTopLeft);
    /// Bytes that the chart's pixels take.
    qint64 pixelMemory() const { return m_oStore.bytes(); }

    /// Draws the whole chart at zoom 1 into the rectangle of any device, clipped to it, with the background colour
    /// under it. Screen, zoom and pan stay as they are.
    void renderTo(QPainter& painter, const QRect& oTarget);

    QPointF mousePickingPos() const { return m_oMousePickingPos; }
    void setMousePickingPos(const QPointF& oPosition) { m_oMousePickingPos = oPosition; }
    QColor backgroundColor() const { return m_oBackgroundColor; }
    QColor labelColor() const { return m_oLabelColor; }
    QColor gridColor() const { return m_oGridColor; }
    QColor lineColor() const { return m_oLineColor; }
    void setLineColor(const QColor& oColor) { m_oLineColor = oColor; }
    QColor pointFillColor() const { return m_oPointFillColor; }
    void setPointFillColor(const QColor& oColor) { m_oPointFillColor = oColor; }
    int linePixelSize() const { return m_iLinePixelSize; }
    void setLinePixelSize(int iPixels) { m_iLinePixelSize = iPixels; }
    bool symbolColorOnly() const { return m_bSymbolColorOnly; }
    void setSymbolColorOnly(bool bOnly) { m_bSymbolColorOnly = bOnly; }
    bool gridIsOn() const { return m_bGridIsOn; }
    void setGridIsOn(bool bOn);
    bool clusterPoleCentroidsOn() const { return m_bClusterPoleCentroidsOn; }
    void setClusterPoleCentroidsOn(bool bOn) { m_bClusterPoleCentroidsOn = bOn; }
    bool clusterAzimuthCentroidsOn() const { return m_bClusterAzimuthCentroidsOn; }
    void setClusterAzimuthCentroidsOn(bool bOn) { m_bClusterAzimuthCentroidsOn = bOn; }
    /// Offers the copy to an enhanced metafile in the context menu, or hides it as at first.
    void allowCopyToWMF(bool bAllow);
    /// For owners that copy more than the canvas: called instead of copying the canvas alone. Must not outlive what it
    /// uses; an empty one takes it back.
    void setMetafileCopy(std::function<void()> fnCopy) { m_fnMetafileCopy = std::move(fnCopy); }
    /// For subclasses that draw otherwise into metafiles; the base neither sets nor reads it.
    void paintingToWEMF(bool bPainting) { m_bPaintingToWEMF = bPainting; }
    bool paintingToWEMF() const { return m_bPaintingToWEMF; }

    // ---- pictures of symbols for combo boxes and legends ---------------------------------------------------------
    /// Fills a combo box with icon, name and (as item data) value of the point styles; all: the seven variants too.
    void initializePointSytleComboBox(QComboBox* pqComboBox, bool bAll);
    /// A symbol in the point fill colour.
    QPixmap symbolPixmap(PointStyle eStyle) const;
    QPixmap getSymbolPixmap(PointStyle eStyle, const QColor& oColor) const;
    /// As above, for a stored style; one that does not exist becomes the circle's. bFilled false draws it hollow.
    QPixmap getSymbolPixmap(int& iStyle, const QColor& oColor, bool bFilled) const;

public slots:
    /// The widget as it is shown, as a bitmap.
    void copyToClipboard();
    /// copyWEMFToClipboard(), for the action.
    void slotCopyWEMFToClipboard();

signals:
    /// A selection mask over the data points; receivers copy it at once.
    void dataPointsSelection(bool* pbSelection, int iLength);
    void zoomChanged(double dZoom);
    /// The cursor in chart units; (99999.0, 99999.0) when it has left the chart.
    void cursorPos(QPointF oPosition);
    void signalCopyToClipboard();

protected:
    void wheelEvent(QWheelEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;

    // ---- drawing toolkit: centre in chart pixels, size = half the symbol's width; pen and brush as they are --------
    void drawCircle(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawCross(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawRectangle(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawTriangle(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawTriangle2(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawDiamond(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawBigCross(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawBigCross45(QPainter* pPainter, const QPointF& oCentre, int iSize);
    void drawPolygon(QPainter* pPainter, const QPointF& oCentre, int iSize, int iCorners);
    /// One symbol with its outline in the colour, filled as its style says (symbolFill()).
    void drawOneSymbol(QPainter* pPainter, const QPointF& oCentre, PointStyle eStyle, const QColor& oColor, int iSize);
    /// One symbol of a chart with many: outline in oColor, inside in oFillColor when filled. Hollow styles stay hollow.
    /// Drawn from the sprite cache on screens.
    void drawSymbols(QPainter* pPainter, const QPointF& oCentre, PointStyle eStyle, const QColor& oColor, bool bFilled,
                     const QColor& oFillColor, int iSize);
    /// As drawSymbols(), but the fill flag alone decides about the inside, whatever the style.
    void drawDefaultSymbols(QPainter* pPainter, const QPointF& oCentre, PointStyle eStyle, const QColor& oColor,
                            bool bFilled, const QColor& oFillColor, int iSize);
    /// A disc with a tail along the azimuth (degrees); nothing for a missing azimuth.
    void drawTadPole(QPainter* pPainter, const QPointF& oCentre, double dAzimuthDeg, const QColor& oColor, int iSize);
    /// The same with an outline of another colour.
    void drawColorFilledTadPole(QPainter* pPainter, const QPointF& oCentre, double dAzimuthDeg, const QColor& oOutline,
                                const QColor& oFillColor, int iSize);
    /// Cluster centres: a broad cross in a ring at each point, readable on any colour.
    void drawCentroids(QPainter* pPainter, const QPolygonF& oCentres, const QColor& oColor);
    /// A computed result (a mean direction, an eigenvector): a framed square with its label.
    void drawResultPoint(QPainter* pPainter, const QPointF& oCentre, const QColor& oColor, const QString& sLabel);
    void drawLabel2(QPainter* pPainter, const QPointF& oPosition, const QString& sText, const QColor& oColor);
    /// Pen and brush of plain points: the point fill colour, lighter or darker where the background hides it.
    void setPointPen(QPainter* pPainter);
    /// One point in the model's style and size, in the painter's pen and brush.
    void drawPoint(QPainter* pPainter, const QPointF& oCentre);

    // ---- the model's points: unselected ones, above them selected ones with a pen and a halo of their own
    // ------------
    /// Chooses one of the variants below by the attributes that are on. Nothing without a model.
    void drawPoints(QPainter* pPainter);
    /// Points of another model than model(), as a second data set over the first.
    struct OtherPoints
    {
        QRelationshipItemModel* m_pModel = nullptr;
        std::span<const QPointF> m_voPixels; ///< by record
        QColor m_oColor;                     ///< of points without classes
        PointPainter* m_pPainter = nullptr;  ///< one for each set, since it keeps a picture
    };
    /// drawPoints() for these: in the looks of their model, with its selection.
    void drawPointsOf(QPainter* pPainter, const OtherPoints& other);
    void drawPlainPoints(QPainter* pPainter);
    void drawPointsWith_tadpoles(QPainter* pPainter);
    /// In the colours of the colour classes; as tadpoles where these are on.
    void drawPointsWith_color_attribute(QPainter* pPainter);
    /// In the colours that the data hold.
    void drawPointsWithTypeColorAttribute(QPainter* pPainter);
    void drawPointsWithTypeColorAttributeAndSymbol(QPainter* pPainter);
    /// The symbol attribute gives the colours only.
    void drawPointsWith_symbol_attribute1(QPainter* pPainter);
    /// The symbol attribute gives symbols and colours.
    void drawPointsWith_symbol_attribute2(QPainter* pPainter);
    void drawPointsWith_symbol_and_color_attribute(QPainter* pPainter);

    QColor m_oBackgroundColor = Qt::white;
    QPointF m_oMousePickingPos;        ///< widget pixels, 99999.0 = none
    QVector<QPointF> m_vSelectionPath; ///< outline of a freehand selection, widget pixels
    QPixmap m_oOverlayPixmap;          ///< shown instead of the chart's pixels when not null
    QColor m_oLabelColor = Qt::black;
    QColor m_oGridColor = Qt::gray;
    QColor m_oLineColor = Qt::blue;
    QColor m_oHighlightColor = QColor(183, 200, 255);
    QColor m_oPointFillColor = Qt::darkBlue;
    QRectF m_oPlotRect; ///< data area in chart pixels
    SymbolSpriteCache m_oSprites;

private:
    void createActions();
    void layOut();
    QAction* newCopyAction(const char* pText, const char* pShortcut);
    void drawRegion(const QRegion& oRegion);
    /// The viewport at the widget's present size, or at the size that renderTo() draws for.
    ChartViewport viewport() const;
    /// The points as they look without classes.
    PointBatch pointBatch();
    void colorPoints(PointBatch& batch, const RelationshipClasses& classes) const;
    void drawTadPoles(QPainter* pPainter, PointBatch& batch);
    void drawBatch(QPainter* pPainter, const PointBatch& batch);
    /// The model that drawPoints() or drawPointsOf() is drawing.
    QRelationshipItemModel* drawnModel() const { return m_pOther ? m_pOther->m_pModel : model(); }

    QString m_sChartName;
    QString m_sHeaderTitle;
    int m_iLinePixelSize = 2;
    bool m_bSymbolColorOnly = false;
    bool m_bGridIsOn = true;
    bool m_bClusterPoleCentroidsOn = true;
    bool m_bClusterAzimuthCentroidsOn = false;
    bool m_bMouseZoomEnabled = true;
    bool m_bNeedsRedraw = true;
    ChartViewport m_oViewport;
    QSize m_oRenderSize; ///< valid while renderTo() draws
    ChartBackingStore m_oStore;
    QPointer<QRelationshipItemModel> m_pModel; ///< not owned
    PointPainter m_oPointPainter;
    const OtherPoints* m_pOther = nullptr; ///< not owned, set while drawPointsOf() draws
    std::vector<QPointF> m_voPointPixels;
    quint64 m_iPointRevision = 0; ///< of the points of the model, for m_voPointPixels
    QSize m_oPointChart;          ///< size of the chart, for m_voPointPixels
    bool m_bPointsMoved = true;   ///< the layout changed since
    QAction* m_pqCopyAction;
    QAction* m_pqCopyMetafileAction;
    std::function<void()> m_fnMetafileCopy; ///< the owner's, may be empty
    bool m_bPaintingToWEMF = false;
};

} // namespace gkBase

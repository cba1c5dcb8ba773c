#pragma once

#include "CrossPlotGeometry.h"
#include "PointSelection.h"
#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QCursor>
#include <QList>
#include <QPointF>
#include <QPointer>
#include <QRectF>
#include <QString>

#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

class QAction;
class QCartesianAxisWidget;

namespace gkBase {

class DepthLineField;
class LabelPlacement;
struct CrossPlotStyle;

/// The canvas of every cartesian point chart: the cross plot and the depth tracks. It draws the points of its model
/// over the whole chart (axes are separate widgets), interval boundaries, structural tops and, when asked, the
/// regression line, and turns mouse gestures into a lasso selection or into edits of lines.
///
/// Chart units are model units.
class GKBASETOOLS_EXPORT QCrossPlot : public QChartDrawingArea
{
    Q_OBJECT
public:
    /// What a press of the mouse does.
    enum DataCreationType
    {
        StructuralTopCreation = 0, ///< picks a line, or asks for a new one
        IntervalBoundaryRemoval = 1,
        NoCreation = 2,         ///< lasso selection
        OrientationCreation = 3 ///< lasso selection of the records that give a line its orientation
    };

    explicit QCrossPlot(QWidget* pqParent = nullptr, const QString& sName = QString());
    ~QCrossPlot() override;

    /// The corners of the plotted area in chart units. A side of no length maps everything to 0.
    void setRange(const QPointF& oA, const QPointF& oB);
    QPointF rangeA() const { return m_oA; }
    QPointF rangeB() const { return m_oB; }
    /// 1: A.y lies at the bottom and values grow upwards; otherwise A.y lies at the top and they grow downwards.
    void setOrientationFlag(int iFlag);
    int orientationFlag() const { return m_iOrientation; }
    void setDataCreationType(int iType);
    int dataCreationType() const { return m_iDataCreationType; }
    /// Picked lines follow the mouse while a button is held, and a press on a line's grip picks it even where other
    /// presses start an outline (types 2 and 3).
    void setStructuralTopsMovable(bool bMovable) { m_bTopsMovable = bMovable; }
    /// How far (chart units of y) from a line a press still picks it.
    double pickingEpsY() const;
    /// The same when the press has another reach, in pixels.
    void setPickingPixels(int iPixels);
    /// The structural top that a press at a position of the widget picks, by its number; −1 for none. Its grip comes
    /// first, then the nearest line, where presses on lines pick them. Hidden lines are not picked.
    int lineAt(const QPointF& oPosition);
    /// The grips of the structural tops as they are shown, with the numbers of their lines.
    std::vector<std::pair<int, QRectF>> lineHandles();
    /// Where the orientation of a line (dip and azimuth in degrees) stands on x, in chart units; NaN for nowhere.
    /// Lines with an orientation then bear a large tadpole there, as the field's flags say. Empty at first: none.
    void setLineOrientationPosition(std::function<double(const QPointF& oDipAndAzimuth)> position);

    /// The line of the model's regression with its text in display units.
    void setShowRegressionLine(bool bShow);
    bool showRegressionLine() const { return m_bShowRegression; }
    /// The text of the regression as shown, empty while it is off: "y=…" and, in a second line, " R=…", or that the
    /// regression is no function.
    QString regressionText() const { return m_sRegression; }
    /// Lines at the 5 and 95 per cent quantiles of x and y, which hold 90 % of the points between them.
    void setShow90PercentRange(bool bShow);
    bool show90PercentRange() const { return m_bShow90PercentRange; }
    /// The axes that stand beside the canvas, for drawAxis(). Not owned; null for none.
    void setAxes(QCartesianAxisWidget* pqLeft, QCartesianAxisWidget* pqBottom);
    /// Shown in the middle of an empty chart (an attribute is missing or holds text). Empty: none.
    void setMessage(const QString& sMessage);
    QString message() const { return m_sMessage; }
    /// A line across the chart at a y in chart units, 99999.0 for none: the cursor of a neighbouring track.
    void setCursorLine(double dY);

    QPointF transformInPixelPoint(const QPointF& oPoint) override;
    void transformPoints(std::span<const double> vdX, std::span<const double> vdY,
                         std::vector<QPointF>& voPixels) override;
    /// Pixels of the whole chart to chart units.
    QPointF transformInDataPoint(const QPointF& oPixel) const;
    /// A button is held for a gesture of the cross plot.
    bool gestureIsUnderWay() const { return m_eButton != Qt::NoButton; }
    /// The valid point nearest to a position in chart pixels within the distance, −1 for none.
    int recordAt(const QPointF& oPixel, double dDistance);

    void layoutChart() override;
    void drawChart(QPainter& painter) override;
    void drawAxis(QPainter& painter, QRect oVisibleArea) override;
    void drawVisibleFrame(QPainter& painter, const QRect& oVisibleArea) override;
    void addToContextMenuEvent(QMenu* pqMenu) override;
    /// Leaves the copy to whoever is connected to signalCopyWEMFToClipboard(); copies itself when nobody is.
    void copyWEMFToClipboard() override;
    bool colorAttributeIsOn() override;
    bool symbolAttributeIsOn() override;
    /// Draws the whole chart at another size with the grid lines that belong to it, without cursor line and outline.
    void renderWithGrid(QPainter& painter, const QRect& oTarget, const QList<int>& viVertical,
                        const QList<int>& viHorizontal);

signals:
    // What a gesture asks to do with structural tops is told as an intent. While somebody is connected to
    // sendScatPickPos() or sendMoveSelectedUpdate(), the canvas leaves picking and moving to the receiver, which
    // changes the lines of all canvases that show them and calls their updateLines(); otherwise it changes its own
    // lines.

    /// A press asks for a new line at a position in chart units. A new line that the receiver picks follows the mouse.
    void sendInsertScatUpdate(QPointF oPosition);
    /// The picked lines are to be moved by this much, in chart units, since the last signal.
    void sendMoveSelectedUpdate(QPointF oOffset);
    void sendMoveSelectedUpdateStop();
    /// The move under way was given up: the lines go back to where they were before its first step. Comes instead of
    /// sendMoveSelectedUpdateStop(). While nobody is connected, a step back and the stop are sent instead.
    void sendMoveSelectedCancel();
    void sendScatUpdate(QColor oColor);
    void sendScatUpdate(QString sName);
    void sendDeleteSelectedUpdate();
    /// These lines are to be picked: instead of all others, or with Ctrl in addition to them.
    void sendScatPickPos(std::vector<int> viLines);
    void sendModifySelectedOrientation();
    void crossPlotLeaveEvent(QEvent* pEvent);
    void signalCopyWEMFToClipboard();
    /// A press in the mode that removes interval boundaries removed one.
    void intervalBoundariesChanged();

public slots:
    /// Shows changed structural tops. Cheaper than updateChart(): points are drawn again only where domains changed.
    void updateLines();
    /// Positions of the axes' ticks, at which the grid is drawn.
    void verticalGridLinesChanged(QList<int> viPositions);
    void horizontalGridLinesChanged(QList<int> viPositions);

private slots:
    void slotDeleteSelected();
    void slotRenameSelected();
    void slotModifySelectedColor();

protected:
    /// Drawn between grid and points; nothing in the base. The painter is in pixels of the whole chart.
    virtual void drawUnderPoints(QPainter& painter);
    /// Drawn over points and lines; nothing in the base.
    virtual void drawOverPoints(QPainter& painter);
    /// What the tool tip of a point says; empty for none.
    virtual QString pointToolTip(int iRecord) const;

    bool event(QEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    /// Delete asks to delete the picked lines, Alt with Up or Down moves them by one pixel, with Shift by ten. Escape
    /// gives up an outline and brings the selection back, or gives up the move of lines.
    void keyPressEvent(QKeyEvent* pEvent) override;
    /// A key that was held moved the lines once.
    void keyReleaseEvent(QKeyEvent* pEvent) override;
    void focusOutEvent(QFocusEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    /// No menu opens during a gesture, whose release it would take.
    void contextMenuEvent(QContextMenuEvent* pEvent) override;

private:
    void createActions();
    CrossPlotMap map() const;
    CrossPlotStyle style() const;
    void layOutRegression();
    void layOutRange();
    /// The lines of a field in colours that can be read on the background.
    std::vector<CrossPlotDepthLine> readableLines(const DepthLineField& field) const;
    void layOutBoundaries();
    void layOutTops();
    std::vector<CrossPlotOrientationMark> orientationMarks(const QRect& oVisibleArea) const;
    void drawLines(QPainter& painter, const QRect& oVisibleArea, LabelPlacement& placement);
    void drawCentroidsOfClusters(QPainter& painter);
    DepthLineField* structuralTops() const;

    // Gestures; positions in widget pixels.
    QPointF chartPixel(const QPointF& oPosition) const;
    void removeBoundary(const QPointF& oPosition);
    void selectOutline();
    void cancelOutline();
    void endGesture();
    /// As endGesture(), but without selecting by an outline that was never closed.
    void giveUpGesture();
    void tellSelection();

    // Gestures on lines.
    bool pressPicksLines() const { return m_iDataCreationType == StructuralTopCreation; }
    bool pressPicksHandles() const;
    /// Of the lines as they are now.
    std::vector<CrossPlotLineHandle> currentHandles();
    int handleAt(const QPointF& oPosition);
    int nearLine(const QPointF& oPosition);
    double rowOfLine(int iLine); ///< of the widget
    bool isPicked(int iLine) const;
    void pressOnLines(const QPointF& oPosition, int iLine, bool bAdd);
    void pickForMenu(const QPointF& oPosition, bool bAdd);
    void pick(const std::vector<int>& viLines, bool bAdd);
    void dragLines(const QPointF& oPosition);
    void shiftLines(const QPointF& oStep);
    void nudgeLines(int iPixels);
    void endLineGesture(bool bReleased);
    void cancelLineGesture();
    void setHoveredLine(int iLine);
    QString lineToolTip(int iLine) const;

    QPointF m_oA;
    QPointF m_oB = {1.0, 1.0};
    int m_iOrientation = 1;
    int m_iDataCreationType = NoCreation;
    int m_iPickingPixels = 5;
    bool m_bTopsMovable = false;
    bool m_bShowRegression = false;
    bool m_bShow90PercentRange = false;
    QString m_sMessage;
    double m_dCursorY;
    QPointer<QCartesianAxisWidget> m_pqLeftAxis;   ///< not owned
    QPointer<QCartesianAxisWidget> m_pqBottomAxis; ///< not owned
    QList<int> m_viVerticalGridLines;
    QList<int> m_viHorizontalGridLines;
    QAction* m_pqRenameAction;
    QAction* m_pqColorAction;
    QAction* m_pqOrientationAction;
    QAction* m_pqDeleteAction;

    // Shapes of the present layout.
    std::vector<CrossPlotDepthLine> m_vBoundaries; ///< of intervals
    std::vector<CrossPlotDepthLine> m_vLines;      ///< structural tops
    std::vector<CrossPlotDomain> m_vDomains;
    std::function<double(const QPointF&)> m_linePosition; ///< of orientations, may be empty
    QLineF m_oRegression;
    QString m_sRegression;
    CrossPlotRange m_oRange;
    quint64 m_iRangeKey = 0; ///< of the values that the range was worked out for; 0: none

    // The gesture under way.
    Qt::MouseButton m_eButton = Qt::NoButton;
    PointSelectionGesture m_oSelectionGesture;
    bool m_bMovingTops = false;
    bool m_bTopsMoved = false;
    double m_dPressRow = 0.0;                      ///< widget pixels
    double m_dGrabbedRow = 0.0;                    ///< of the line that is held, from the pressed row
    QPointF m_oPressed;                            ///< chart units
    QPointF m_oLastMove;                           ///< chart units
    int m_iOnlyLine = -1;                          ///< that stays picked when the button is released without a move
    std::unique_ptr<DepthLineField> m_pBeforeMove; ///< of lines that the canvas itself moves

    int m_iHoveredLine = -1;
    QCursor m_oCursorBesideLines;
};

} // namespace gkBase

#pragma once

#include "QChartDrawingArea.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QList>
#include <QPointF>
#include <QString>

#include <vector>

class QEvent;
class QHelpEvent;
class QMouseEvent;

namespace gkBase {

/// The Woodcock diagram: the shape of distributions of axes by the ratios of their eigenvalues, ln(S1/S2) against
/// ln(S2/S3), with one point per subset of the data. Clusters plot above the line K = 1, girdles below it; the farther
/// from the origin (C), the stronger the preferred orientation. Points that lie outside the picture are marked at its
/// edge by an arrow.
class GKBASETOOLS_EXPORT QWoodcockHelpWidget : public QChartDrawingArea
{
    Q_OBJECT
public:
    explicit QWoodcockHelpWidget(QWidget* pqParent = nullptr);
    ~QWoodcockHelpWidget() override;

    /// Appends a point: x = ln(S2/S3), y = ln(S1/S2), a PointStyle and a colour. Undefined values (99999.0) are kept
    /// but not drawn. The name, if any, stands beside the point and in its tool tip.
    void addPoint(const double& x, const double& y, const int& symbol, const QColor& colour);
    void addPoint(const double& x, const double& y, const int& symbol, const QColor& colour, const QString& sName);
    void resetPoints();
    int numberOfPoints() const { return static_cast<int>(m_voPoints.size()); }

    /// The subset that the panel has highlighted, drawn large and yellow, also where no stored point equals it.
    void setCurrentPoint(const double& x, const double& y);
    void clearCurrentPoint();
    QPointF currentPoint() const { return m_oCurrent; } ///< (99999.0, 99999.0) for none

    /// A reference pixel, small at 383 and large at 634 pixels, in the chart of the present size.
    QPointF point(const QPointF& small, const QPointF& large) const;
    /// (ln(S2/S3), ln(S1/S2)) to pixels of the whole chart.
    QPointF transformInPixelPoint(const QPointF& oPoint) override;
    /// The stored point under a position of the widget, the topmost one; −1 for none.
    int pointAt(const QPointF& oPosition) const;

    void layoutChart() override;
    void drawChart(QPainter& painter) override;

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int iWidth) const override { return iWidth; }

signals:
    /// The user clicked a stored point, or (−1) none.
    void pointClicked(int iPoint);

protected:
    bool event(QEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;

private:
    /// A point in pixels of the whole chart, or its mark at the edge.
    struct Mark
    {
        QPointF m_oPosition;
        bool m_bOutside = false;
        bool m_bDefined = false;
    };

    Mark markOf(const QPointF& oValues) const;
    bool isCurrent(int iPoint) const;
    void drawMark(QPainter& painter, const Mark& mark, int iSymbol, const QColor& oColor, bool bCurrent);
    void drawArrow(QPainter& painter, const QPointF& oMark, int iSymbolSize, const QColor& oColor);
    void drawNames(QPainter& painter);
    QString toolTipAt(const QPointF& oPosition) const;

    QList<QPointF> m_voPoints;
    QList<int> m_viSymbols;
    QList<QColor> m_voColors;
    QList<QString> m_vsNames;
    QPointF m_oCurrent;
    QSizeF m_oLaidOut;          ///< size of the chart
    double m_dScale = 1.0;      ///< of symbols
    std::vector<Mark> m_vMarks; ///< of the points, in their order
};

} // namespace gkBase

#pragma once

#include "AxisScale.h"
#include "AxisTicks.h"
#include "UnitManager.h"
#include "gkBaseQtExport.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QWidget>

#include <boost/shared_ptr.hpp>

namespace gkBase {
struct AxisStyle;
}

/// The drawn axis beside a chart. It is as long as the visible part of the chart; the whole chart picture is zoom times
/// as long, and offset pixels of it lie before the visible part. The range is in model units, ticks and labels are in
/// the display units of the unit manager. Range and picture meet as in gkBase::AxisScale: the minimum at pixel 0 and
/// the maximum at the last pixel (the other way round on a vertical axis or where inverted).
class GKBASEQT_EXPORT QCartesianAxisWidget : public QWidget
{
    Q_OBJECT
public:
    /// The side of the chart on which the axis stands.
    enum Position
    {
        Left,
        Right,
        Top,
        Bottom
    };
    Q_ENUM(Position)

    explicit QCartesianAxisWidget(QWidget* pqParent = nullptr);
    QCartesianAxisWidget(Position position, QWidget* pqParent);
    ~QCartesianAxisWidget() override;

    /// Bounds in model units; NaN and infinite bounds give an axis without ticks.
    void setRange(double dMin, double dMax);
    void setMinValue(double dMin);
    void setMaxValue(double dMax);
    double minValue() const { return m_dMin; }
    double maxValue() const { return m_dMax; }
    /// Widens a range in model units to whole multiples of a 1-2-5 step in display units. Leaves a range without width
    /// or with bounds that are not finite as it is; the range of the axis does not change.
    void fitNiceRange(double& dMin, double& dMax) const;

    /// Pixels of the chart picture before the visible part.
    void setOffset(int iOffset);
    int offset() const { return m_iOffset; }
    /// Length of the chart picture against that of the visible part; values below 1 and NaN count as 1.
    void setZoom(double dZoom);
    double zoom() const { return m_dZoom; }

    /// The unit tag is added by the axis: "Depth" is shown as "Depth [m]".
    void setTitle(const QString& sTitle);
    QString title() const { return m_sTitle; }
    /// The title as shown, with the unit tag; empty when there is no title.
    QString displayTitle() const;
    void setDrawTitle(bool bDrawTitle);
    bool drawTitle() const { return m_bDrawTitle; }
    void setPosition(Position position);
    Position position() const { return m_position; }
    Qt::Orientation orientation() const;
    /// Direction of the label texts: Qt::Horizontal (default), or Qt::Vertical for texts that read upwards.
    void setLabelOrientation(Qt::Orientation orientation);
    Qt::Orientation labelOrientation() const { return m_labelOrientation; }
    /// Null means values without a unit.
    void setUnitManager(boost::shared_ptr<gkBase::UnitManager> poUnitManager);
    boost::shared_ptr<gkBase::UnitManager> unitManager() const { return m_poUnitManager; }
    /// Turns the direction in which the values grow: downwards on a vertical axis, to the left on a horizontal one.
    void setInverted(bool bInverted);
    bool isInverted() const { return m_bInverted; }
    /// Labels whole numbers only, for an axis of counts.
    void setWholeNumbers(bool bWholeNumbers);
    bool wholeNumbers() const { return m_bWholeNumbers; }
    /// Ticks to show instead of the ones that the axis chooses, for scales that are not linear; values in display
    /// units, rising, with a label for each major one. Those outside the range, and labels that would cover another,
    /// are left out. None (default): the axis chooses.
    void setFixedTicks(const gkBase::AxisTicks& oTicks);
    const gkBase::AxisTicks& fixedTicks() const { return m_oFixedTicks; }

    /// Colour of line, ticks and texts; an invalid colour (default) takes the palette's text colour.
    void setAxisColor(const QColor& color);
    /// An invalid colour (default) leaves the background to the parent.
    void setBackgroundColor(const QColor& color);

    /// The scale in display units over the chart picture. A hidden widget follows its size at the next redraw().
    const gkBase::AxisScale& scale() const { return m_oScale; }
    const gkBase::AxisTicks& ticks() const { return m_oTicks; }
    /// Pixel positions of the major ticks on the chart picture, rising.
    QList<int> gridLines() const { return m_vGridLines; }

    /// Draws the same axis beside a chart of which visibleArea is shown, with the painter in that area's co-ordinates:
    /// the axis line touches the area's side and everything else lies outside of it. An area of another length than
    /// the widget's scales the offset with it.
    virtual void drawAxis(QPainter& painter, const QRect& visibleArea) const;
    /// Space in pixels that drawAxis() needs beside the area.
    int thickness() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    /// Works out the ticks again and repaints.
    void redraw();

signals:
    /// Pixel positions of the major ticks on the chart picture, rising; emitted only when they change.
    void gridLinesChanged(const QList<int>& vPositions);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

private:
    void slotDisplayUnitChanged(const QString& sCategory);
    void updateTicks();
    void updateSizePolicy();
    double toDisplay(double dModelValue) const;
    double toModel(double dDisplayValue) const;
    gkBase::AxisScale scaleForLength(int iVisibleLength) const;
    gkBase::AxisTicks ticksForScale(const gkBase::AxisScale& oScale) const;
    gkBase::AxisStyle axisStyle() const;

    Position m_position = Bottom;
    Qt::Orientation m_labelOrientation = Qt::Horizontal;
    double m_dMin = 0.0;
    double m_dMax = 1.0;
    double m_dZoom = 1.0;
    int m_iOffset = 0;
    int m_iThickness = 0;     ///< that the layout knows
    int m_iVisibleLength = 0; ///< for which scale and ticks were made; a hidden widget may be resized later
    bool m_bDrawTitle = true;
    bool m_bInverted = false;
    bool m_bWholeNumbers = false;
    QString m_sTitle;
    QColor m_oAxisColor;
    QColor m_oBackgroundColor;
    boost::shared_ptr<gkBase::UnitManager> m_poUnitManager;
    gkBase::AxisScale m_oScale;
    gkBase::AxisTicks m_oTicks;
    gkBase::AxisTicks m_oFixedTicks; ///< no major ticks: none
    QList<int> m_vGridLines;
};

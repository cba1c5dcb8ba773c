#include "QCartesianAxisWidget.h"

#include "AxisPainter.h"
#include "DisplayUnitManager.h"
#include "MissingValue.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

/// Parts into which fitNiceRange() may divide a range.
constexpr int g_iNiceParts = 10;

/// Lengths beyond this are no picture that a chart could have; it keeps the arithmetic in int.
constexpr double g_dMaxChartLength = 1.0e6;

/// The marker of missing values passes unit conversions unchanged, but a bound of an axis may well have that value.
double convertibleValue(double dValue)
{
    return dValue == gkBase::g_dMissingValue ? std::nextafter(dValue, 0.0) : dValue;
}

gkBase::AxisTicks ticksInRange(const gkBase::AxisTicks& oTicks, const gkBase::AxisScale& oScale)
{
    const auto isInside = [&oScale](double dValue) {
        return dValue >= oScale.minValue() && dValue <= oScale.maxValue();
    };
    gkBase::AxisTicks oInside;
    for (qsizetype i = 0; i < oTicks.m_vMajor.size(); ++i) {
        if (!isInside(oTicks.m_vMajor[i]))
            continue;
        oInside.m_vMajor.append(oTicks.m_vMajor[i]);
        oInside.m_lLabels.append(oTicks.m_lLabels[i]);
    }
    std::copy_if(oTicks.m_vMinor.begin(), oTicks.m_vMinor.end(), std::back_inserter(oInside.m_vMinor), isInside);
    return oInside;
}

} // namespace

QCartesianAxisWidget::QCartesianAxisWidget(QWidget* pqParent)
    : QCartesianAxisWidget(Bottom, pqParent)
{
}

QCartesianAxisWidget::QCartesianAxisWidget(Position position, QWidget* pqParent)
    : QWidget(pqParent)
    , m_position(position)
{
    updateSizePolicy();
    updateTicks();
    connect(&gkBase::DisplayUnitManager::instance(), &gkBase::DisplayUnitManager::displayChanged, this,
            &QCartesianAxisWidget::slotDisplayUnitChanged);
}

QCartesianAxisWidget::~QCartesianAxisWidget() = default;

void QCartesianAxisWidget::setRange(double dMin, double dMax)
{
    if (dMin == m_dMin && dMax == m_dMax)
        return;
    m_dMin = dMin;
    m_dMax = dMax;
    redraw();
}

void QCartesianAxisWidget::setMinValue(double dMin)
{
    setRange(dMin, m_dMax);
}

void QCartesianAxisWidget::setMaxValue(double dMax)
{
    setRange(m_dMin, dMax);
}

void QCartesianAxisWidget::fitNiceRange(double& dMin, double& dMax) const
{
    if (dMin > dMax)
        std::swap(dMin, dMax);
    const double dOldMin = dMin;
    const double dOldMax = dMax;
    double dDisplayMin = toDisplay(dMin);
    double dDisplayMax = toDisplay(dMax);
    const bool bTurned = dDisplayMin > dDisplayMax;
    if (!gkBase::isTickableRange(std::min(dDisplayMin, dDisplayMax), std::max(dDisplayMin, dDisplayMax)))
        return;
    gkBase::niceRange(dDisplayMin, dDisplayMax, g_iNiceParts);
    if (bTurned)
        std::swap(dDisplayMin, dDisplayMax);
    // Going to display units and back may cost a rounding error, which must not narrow the range.
    dMin = std::min(toModel(dDisplayMin), dOldMin);
    dMax = std::max(toModel(dDisplayMax), dOldMax);
}

void QCartesianAxisWidget::setOffset(int iOffset)
{
    if (iOffset == m_iOffset)
        return;
    m_iOffset = iOffset;
    update();
}

void QCartesianAxisWidget::setZoom(double dZoom)
{
    const double dNewZoom = dZoom > 1.0 && std::isfinite(dZoom) ? dZoom : 1.0;
    if (dNewZoom == m_dZoom)
        return;
    m_dZoom = dNewZoom;
    redraw();
}

void QCartesianAxisWidget::setTitle(const QString& sTitle)
{
    if (sTitle == m_sTitle)
        return;
    m_sTitle = sTitle;
    setAccessibleName(displayTitle());
    updateGeometry();
    update();
}

QString QCartesianAxisWidget::displayTitle() const
{
    const QString sTag = m_poUnitManager ? m_poUnitManager->getDisplayUnitTag() : QString();
    if (m_sTitle.isEmpty() || sTag.isEmpty())
        return m_sTitle;
    return QStringLiteral("%1 [%2]").arg(m_sTitle, sTag);
}

void QCartesianAxisWidget::setDrawTitle(bool bDrawTitle)
{
    if (bDrawTitle == m_bDrawTitle)
        return;
    m_bDrawTitle = bDrawTitle;
    updateGeometry();
    update();
}

void QCartesianAxisWidget::setPosition(Position position)
{
    if (position == m_position)
        return;
    m_position = position;
    updateSizePolicy();
    redraw();
}

Qt::Orientation QCartesianAxisWidget::orientation() const
{
    return m_position == Left || m_position == Right ? Qt::Vertical : Qt::Horizontal;
}

void QCartesianAxisWidget::setLabelOrientation(Qt::Orientation orientation)
{
    if (orientation == m_labelOrientation)
        return;
    m_labelOrientation = orientation;
    redraw();
}

void QCartesianAxisWidget::setUnitManager(boost::shared_ptr<gkBase::UnitManager> poUnitManager)
{
    if (poUnitManager == m_poUnitManager)
        return;
    m_poUnitManager = std::move(poUnitManager);
    setAccessibleName(displayTitle());
    redraw();
}

void QCartesianAxisWidget::setInverted(bool bInverted)
{
    if (bInverted == m_bInverted)
        return;
    m_bInverted = bInverted;
    redraw();
}

void QCartesianAxisWidget::setWholeNumbers(bool bWholeNumbers)
{
    if (bWholeNumbers == m_bWholeNumbers)
        return;
    m_bWholeNumbers = bWholeNumbers;
    redraw();
}

void QCartesianAxisWidget::setFixedTicks(const gkBase::AxisTicks& oTicks)
{
    m_oFixedTicks = oTicks;
    m_oFixedTicks.m_lLabels.resize(oTicks.m_vMajor.size());
    redraw();
}

void QCartesianAxisWidget::setAxisColor(const QColor& color)
{
    m_oAxisColor = color;
    update();
}

void QCartesianAxisWidget::setBackgroundColor(const QColor& color)
{
    m_oBackgroundColor = color;
    update();
}

void QCartesianAxisWidget::redraw()
{
    updateTicks();
    update();
}

void QCartesianAxisWidget::slotDisplayUnitChanged(const QString& sCategory)
{
    if (!m_poUnitManager || m_poUnitManager->category() != sCategory)
        return;
    setAccessibleName(displayTitle());
    redraw();
}

double QCartesianAxisWidget::toDisplay(double dModelValue) const
{
    return m_poUnitManager ? m_poUnitManager->convertModelToDisplay(convertibleValue(dModelValue)) : dModelValue;
}

double QCartesianAxisWidget::toModel(double dDisplayValue) const
{
    return m_poUnitManager ? m_poUnitManager->convertDisplayToModel(convertibleValue(dDisplayValue)) : dDisplayValue;
}

gkBase::AxisScale QCartesianAxisWidget::scaleForLength(int iVisibleLength) const
{
    const double dLength = std::min(iVisibleLength * m_dZoom, g_dMaxChartLength);
    const double dDisplayMin = toDisplay(m_dMin);
    const double dDisplayMax = toDisplay(m_dMax);
    // A conversion that turns the order of values (or bounds given the wrong way round) turns the axis too.
    const bool bTurned = (dDisplayMin > dDisplayMax) != (m_dMin > m_dMax);
    return {dDisplayMin, dDisplayMax, qRound(dLength), orientation(), m_bInverted != bTurned};
}

gkBase::AxisTicks QCartesianAxisWidget::ticksForScale(const gkBase::AxisScale& oScale) const
{
    if (!m_oFixedTicks.m_vMajor.isEmpty())
        return ticksInRange(m_oFixedTicks, oScale);
    const gkBase::AxisStyle oStyle = axisStyle();
    return gkBase::fittedAxisTicks(oScale, gkBase::labelExtent(oStyle), gkBase::labelGap(oStyle),
                                   gkBase::tickSpacing(oStyle), m_bWholeNumbers ? 1.0 : 0.0);
}

gkBase::AxisStyle QCartesianAxisWidget::axisStyle() const
{
    using Side = gkBase::AxisStyle::Side;
    gkBase::AxisStyle oStyle;
    switch (m_position) {
    case Left:
        oStyle.m_side = Side::Left;
        break;
    case Right:
        oStyle.m_side = Side::Right;
        break;
    case Top:
        oStyle.m_side = Side::Top;
        break;
    case Bottom:
        oStyle.m_side = Side::Bottom;
        break;
    }
    oStyle.m_bUprightLabels = m_labelOrientation == Qt::Vertical;
    if (m_bDrawTitle)
        oStyle.m_sTitle = displayTitle();
    oStyle.m_oFont = font();
    oStyle.m_oColor = m_oAxisColor.isValid() ? m_oAxisColor : palette().color(QPalette::WindowText);
    return oStyle;
}

void QCartesianAxisWidget::updateTicks()
{
    m_iVisibleLength = orientation() == Qt::Vertical ? height() : width();
    m_oScale = scaleForLength(m_iVisibleLength);
    m_oTicks = ticksForScale(m_oScale);
    if (const int iThickness = thickness(); iThickness != m_iThickness) {
        m_iThickness = iThickness;
        updateGeometry();
    }

    QList<int> vGridLines;
    if (m_oScale.isValid()) {
        for (const double dValue : std::as_const(m_oTicks.m_vMajor))
            vGridLines.append(m_oScale.toPixelIndex(dValue));
        std::sort(vGridLines.begin(), vGridLines.end());
    }
    if (vGridLines == m_vGridLines)
        return;
    m_vGridLines = vGridLines;
    emit gridLinesChanged(vGridLines);
}

void QCartesianAxisWidget::updateSizePolicy()
{
    const bool bVertical = orientation() == Qt::Vertical;
    setSizePolicy(bVertical ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                  bVertical ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

int QCartesianAxisWidget::thickness() const
{
    return gkBase::axisThickness(m_oTicks, axisStyle());
}

QSize QCartesianAxisWidget::sizeHint() const
{
    const int iLength = 20 * fontMetrics().averageCharWidth();
    return orientation() == Qt::Vertical ? QSize(thickness(), iLength) : QSize(iLength, thickness());
}

QSize QCartesianAxisWidget::minimumSizeHint() const
{
    constexpr int iLength = 1;
    return orientation() == Qt::Vertical ? QSize(thickness(), iLength) : QSize(iLength, thickness());
}

void QCartesianAxisWidget::drawAxis(QPainter& painter, const QRect& visibleArea) const
{
    const int iLength = orientation() == Qt::Vertical ? visibleArea.height() : visibleArea.width();
    if (iLength == m_iVisibleLength) {
        gkBase::drawAxis(painter, visibleArea, m_oScale, m_oTicks, m_iOffset, axisStyle());
        return;
    }
    const gkBase::AxisScale oScale = scaleForLength(iLength);
    const double dOffset = m_iVisibleLength > 0 ? double(m_iOffset) * iLength / m_iVisibleLength : 0.0;
    gkBase::drawAxis(painter, visibleArea, oScale, ticksForScale(oScale), qRound(dOffset), axisStyle());
}

void QCartesianAxisWidget::paintEvent(QPaintEvent* pEvent)
{
    QPainter painter(this);
    if (m_oBackgroundColor.isValid())
        painter.fillRect(pEvent->rect(), m_oBackgroundColor);
    // The area beside which the axis stands touches the widget from outside.
    QRect visibleArea = rect();
    switch (m_position) {
    case Left:
        visibleArea = QRect(width(), 0, 0, height());
        break;
    case Right:
        visibleArea = QRect(0, 0, 0, height());
        break;
    case Top:
        visibleArea = QRect(0, height(), width(), 0);
        break;
    case Bottom:
        visibleArea = QRect(0, 0, width(), 0);
        break;
    }
    drawAxis(painter, visibleArea);
}

void QCartesianAxisWidget::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    updateTicks();
}

void QCartesianAxisWidget::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange)
        redraw();
    else if (pEvent->type() == QEvent::PaletteChange)
        update();
}

#include "QRosePlotWidget.h"

#include "MissingValue.h"
#include "QRelationshipItemModel.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Degrees between the corners of arcs.
constexpr double g_dArcStep = 1.0;
constexpr int g_iGridShare = 5;

} // namespace

QRosePlotWidget::QRosePlotWidget(QWidget* pqParent, const QString& sName)
    : QPolarPlotWidget(pqParent, sName)
{
    setMouseTracking(true);
}

// ---- data -----------------------------------------------------------------------------------------------------------

bool QRosePlotWidget::setDirectionData(MatrixData* poDirection, const std::vector<int>& viRecords)
{
    if (!model())
        return false;
    const quint64 iRevision = model()->pointsRevision();
    const auto iFormerRecords = static_cast<std::size_t>(model()->numberOfPoints());
    model()->takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, poDirection, poDirection, {});
    const auto iRecords = static_cast<std::size_t>(model()->numberOfPoints());
    const bool bOtherValues = model()->pointsRevision() != iRevision;
    if (iRecords == iFormerRecords && viRecords == m_viTaken)
        return bOtherValues;
    m_viTaken = viRecords;
    m_vbTaken.assign(viRecords.empty() ? 0 : iRecords, 0);
    for (const int iRecord : viRecords) {
        if (iRecord >= 0 && static_cast<std::size_t>(iRecord) < iRecords)
            m_vbTaken[static_cast<std::size_t>(iRecord)] = 1;
    }
    return true;
}

void QRosePlotWidget::setRoseData(const RoseBins& bins, const CircularMeans& means)
{
    m_bins = bins;
    m_means = means;
    m_iGridCircleDistance = static_cast<int>(std::lround(maximum() / g_iGridShare));
}

void QRosePlotWidget::setMessage(const QString& sMessage)
{
    m_sMessage = sMessage;
}

bool QRosePlotWidget::colorAttributeIsOn()
{
    return model() && model()->colorAttributeIsOn();
}

// ---- shapes ---------------------------------------------------------------------------------------------------------

RoseScale QRosePlotWidget::scale() const
{
    return {maximum(), equalAreaScaling(), static_cast<double>(m_iZeroCircleSize)};
}

void QRosePlotWidget::layoutChart()
{
    QPolarPlotWidget::layoutChart();
    m_vPetals.clear();
    m_voOutlines.clear();
    m_viGridRadii.clear();
    if (radius() < 1)
        return;
    const auto pixels = [this](double dRadius) { return static_cast<int>(std::lround(dRadius * radius())); };
    m_vPetals = rosePetals(m_bins, scale());
    for (RosePetal& petal : m_vPetals) {
        petal.m_dInner = static_cast<double>(pixels(petal.m_dInner)) / radius();
        petal.m_dOuter = static_cast<double>(pixels(petal.m_dOuter)) / radius();
        m_voOutlines.push_back(outline(petal));
    }
    for (const double dRadius : scale().gridRadii(m_iGridCircleDistance))
        m_viGridRadii.push_back(pixels(dRadius));
}

QPolygonF QRosePlotWidget::outline(const RosePetal& petal) const
{
    QPolygonF oOutline;
    for (const NetPoint& point : petalOutline(petal, g_dArcStep)) {
        const NetPoint oPixel = netFrame().toPixel(point);
        oOutline << QPointF(oPixel.m_dX, oPixel.m_dY);
    }
    return oOutline;
}

// ---- mouse ----------------------------------------------------------------------------------------------------------

QPointF QRosePlotWidget::chartPosition(const QPointF& oPosition) const
{
    return oPosition + QPointF(pixmapRect().topLeft());
}

int QRosePlotWidget::sectorAt(const QPointF& oPosition) const
{
    const QPointF oPixel = chartPosition(oPosition);
    const NetPoint oPoint = netFrame().toNet(oPixel.x(), oPixel.y());
    return isOnNet(oPoint) ? m_bins.sectorAt(netAzimuth(oPoint)) : -1;
}

QString QRosePlotWidget::sectorText(const QPointF& oPosition) const
{
    const QPointF oPixel = chartPosition(oPosition);
    const NetPoint oPoint = netFrame().toNet(oPixel.x(), oPixel.y());
    if (!isOnNet(oPoint) || m_bins.m_iRecords == 0)
        return {};
    const int iSector = m_bins.sectorAt(netAzimuth(oPoint));
    if (iSector < 0)
        return tr("%1° – 360°: no sector").arg(m_bins.sectorStart(m_bins.sectors()));
    const double dStart = m_bins.sectorStart(iSector);
    const auto shareText = [this](double dCount) {
        return (m_bins.m_bBidirectional ? tr("%1 (%2 % of %3 records, both ends)") : tr("%1 (%2 % of %3)"))
            .arg(dCount, 0, 'f', 0)
            .arg(m_bins.percent(dCount), 0, 'f', 1)
            .arg(m_bins.m_dWeight, 0, 'f', 0);
    };
    QString sText = tr("%1° – %2°: %3")
                        .arg(dStart)
                        .arg(dStart + m_bins.m_dSectorSize)
                        .arg(shareText(m_bins.m_vdCounts[static_cast<std::size_t>(iSector)]));
    const int iPetal = m_bRosePlot ? petalAt(m_vPetals, oPoint) : -1;
    if (iPetal >= 0 && m_bins.m_iClasses > 0 && model()) {
        const RosePetal& petal = m_vPetals[static_cast<std::size_t>(iPetal)];
        const QString sClass = petal.m_iClass > 0 ? model()->getColorName(petal.m_iClass) : tr("no value");
        sText += tr("; %1: %2").arg(sClass, shareText(petal.m_dCount));
    }
    return sText;
}

void QRosePlotWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    const QPointF oPixel = chartPosition(pEvent->position());
    const NetPoint oPoint = netFrame().toNet(oPixel.x(), oPixel.y());
    setMousePickingPos(pEvent->position());
    emit cursorPos(isOnNet(oPoint) ? QPointF(netAzimuth(oPoint), std::hypot(oPoint.m_dX, oPoint.m_dY))
                                   : QPointF(g_dMissingValue, g_dMissingValue));
}

void QRosePlotWidget::leaveEvent(QEvent* pEvent)
{
    QPolarPlotWidget::leaveEvent(pEvent);
    setMousePickingPos(QPointF(g_dMissingValue, g_dMissingValue));
    emit cursorPos(QPointF(g_dMissingValue, g_dMissingValue));
}

void QRosePlotWidget::mousePressEvent(QMouseEvent* pEvent)
{
    m_bPressed = pEvent->button() == Qt::LeftButton;
    m_oPressed = pEvent->position();
}

void QRosePlotWidget::mouseReleaseEvent(QMouseEvent* pEvent)
{
    const bool bClick = m_bPressed && pEvent->button() == Qt::LeftButton &&
                        (pEvent->position() - m_oPressed).manhattanLength() < QApplication::startDragDistance();
    m_bPressed = false;
    if (bClick && model() && model()->numberOfPoints() > 0)
        selectSector(sectorAt(m_oPressed), pEvent->modifiers() & Qt::ControlModifier);
}

void QRosePlotWidget::selectSector(int iSector, bool bAdd)
{
    // A slip beside the circle must not undo what Ctrl gathered.
    if (iSector < 0 && (bAdd || m_vbTaken.empty()))
        return;
    const std::vector<unsigned char> vbSector = sectorRecords(model()->x(), m_bins, iSector, !m_bUnidirectional);
    m_vbSelection.resize(static_cast<qsizetype>(vbSector.size()));
    for (std::size_t i = 0; i < vbSector.size(); ++i) {
        const bool bTaken = bAdd && i < m_vbTaken.size() && m_vbTaken[i];
        m_vbSelection[static_cast<qsizetype>(i)] = vbSector[i] || bTaken;
    }
    emit dataPointsSelection(m_vbSelection.data(), static_cast<int>(m_vbSelection.size()));
}

bool QRosePlotWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QPolarPlotWidget::event(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const QString sText = sectorText(pHelp->pos());
    if (sText.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(pHelp->globalPos(), sText, this);
    return true;
}

} // namespace gkBase

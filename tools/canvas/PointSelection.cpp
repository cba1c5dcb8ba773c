#include "PointSelection.h"

#include "PolygonMask.h"
#include "QRelationshipItemModel.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QPoint>
#include <QPolygonF>

#include <algorithm>
#include <set>
#include <utility>

namespace gkBase {

int nearestPoint(std::span<const QPointF> voPixels, const QPointF& oPosition, double dDistance)
{
    double dNearest = dDistance * dDistance;
    int iNearest = -1;
    for (std::size_t i = 0; i < voPixels.size(); ++i) {
        const double dX = voPixels[i].x() - oPosition.x();
        const double dY = voPixels[i].y() - oPosition.y();
        const double dSquare = dX * dX + dY * dY;
        // False for NaN.
        if (dSquare <= dNearest) {
            dNearest = dSquare;
            iNearest = static_cast<int>(i);
        }
    }
    return iNearest;
}

int distinctCorners(std::span<const QPointF> voCorners)
{
    std::set<std::pair<int, int>> pixels;
    for (const QPointF& oCorner : voCorners) {
        pixels.insert({qRound(oCorner.x()), qRound(oCorner.y())});
        if (pixels.size() == 3) {
            break;
        }
    }
    return static_cast<int>(pixels.size());
}

std::vector<unsigned char> pointsInOutline(std::span<const QPointF> voPixels, std::span<const QPointF> voOutline,
                                           const QPointF& oOffset, double dReach)
{
    std::vector<unsigned char> vbMask(voPixels.size());
    if (voOutline.empty()) {
        return vbMask;
    }
    if (distinctCorners(voOutline) < 3) {
        const int iRecord = nearestPoint(voPixels, voOutline.back() + oOffset, dReach);
        if (iRecord >= 0) {
            vbMask[static_cast<std::size_t>(iRecord)] = 1;
        }
        return vbMask;
    }
    std::vector<double> vdX(voOutline.size());
    std::vector<double> vdY(voOutline.size());
    for (std::size_t i = 0; i < voOutline.size(); ++i) {
        vdX[i] = voOutline[i].x() + oOffset.x();
        vdY[i] = voOutline[i].y() + oOffset.y();
    }
    const PolygonMask mask(vdX, vdY);
    std::transform(voPixels.begin(), voPixels.end(), vbMask.begin(), [&mask](const QPointF& oPixel) {
        return static_cast<unsigned char>(mask.contains(oPixel.x(), oPixel.y()));
    });
    return vbMask;
}

void drawSelectionOutline(QPainter& painter, const QVector<QPointF>& voOutline, const QColor& oBackground,
                          const QColor& oLabel)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor oInside = oLabel;
    oInside.setAlpha(28);
    painter.setPen(QPen(oBackground, 3.0));
    painter.setBrush(oInside);
    painter.drawPolygon(QPolygonF(voOutline), Qt::OddEvenFill);
    painter.setPen(QPen(oLabel, 1.0, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(QPolygonF(voOutline), Qt::OddEvenFill);
    painter.restore();
}

bool PointSelectionGesture::begin(QRelationshipItemModel* pModel, Qt::KeyboardModifiers eModifiers)
{
    // Ctrl alone adds to what is selected.
    m_bAdding = eModifiers == Qt::ControlModifier;
    m_viBefore.clear();
    if (!pModel || pModel->numberOfSelectedPoints() == 0) {
        return false;
    }
    m_viBefore = pModel->selectedRecords();
    if (!m_bAdding) {
        pModel->clearSelection();
    }
    return !m_bAdding;
}

void PointSelectionGesture::select(QRelationshipItemModel* pModel, std::span<const unsigned char> vbMask)
{
    if (pModel) {
        pModel->selectPoints(vbMask, m_bAdding);
    }
}

void PointSelectionGesture::giveUp(QRelationshipItemModel* pModel)
{
    if (pModel && !m_bAdding) {
        pModel->setSelectedRecords(m_viBefore);
    }
    m_viBefore.clear();
}

} // namespace gkBase

#include "CrossPlotGeometry.h"

#include "MissingValue.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace gkBase {

namespace {

/// Pixel spans up to this have no length.
constexpr double g_dSmallestSpan = 0.0005;

QString labelOf(const DepthLineField& oField, std::size_t iLine)
{
    const QString& sName = oField.lineNames()[iLine];
    const QPointF& oOrientation = oField.lineOrientations()[iLine];
    const auto isSet = [](double dAngle) { return !isMissing(dAngle) && dAngle >= 0.0; };
    if (!isSet(oOrientation.x()) || !isSet(oOrientation.y())) {
        return sName;
    }
    const QString sOrientation = QStringLiteral("%1/%2").arg(QString::number(oOrientation.x(), 'f', 0),
                                                             QString::number(oOrientation.y(), 'f', 0));
    return sName.isEmpty() ? sOrientation : sName + QLatin1Char(' ') + sOrientation;
}

bool boundsDomains(DepthLineField::DomainType eDomains, DepthLineField::DataType eType)
{
    switch (eDomains) {
    case DepthLineField::StructuralPlaneDomains:
        return DepthLineField::isStructuralPlane(eType);
    case DepthLineField::HorizonDomains:
        return eType == DepthLineField::Horizon;
    case DepthLineField::AllLineDomains:
        return eType != DepthLineField::IntervalBoundary;
    default:
        return false;
    }
}

CrossPlotDepthLine depthLine(const DepthLineField& oField, std::size_t iLine, double dY)
{
    const DepthLineField::DataType eType = oField.lineTypes()[iLine];
    CrossPlotDepthLine line;
    line.m_dY = dY;
    line.m_oColor = oField.lineColors()[iLine];
    line.m_iWidth = oField.lineWidth();
    line.m_bSelected = oField.isSelected(static_cast<int>(iLine));
    line.m_bDashed = DepthLineField::isStructuralPlane(eType);
    line.m_bDotted = eType == DepthLineField::AverageOrientation;
    if (oField.isLabelShown(eType)) {
        line.m_sLabel = labelOf(oField, iLine);
    }
    return line;
}

} // namespace

// ---- scales ---------------------------------------------------------------------------------------------------------

CrossPlotScale::CrossPlotScale(double dFirst, double dLast, int iPixels)
    : m_dFirst(std::isfinite(dFirst) ? dFirst : 0.0)
{
    const double dLength = dLast - dFirst;
    if (std::isfinite(dLength) && dLength != 0.0 && iPixels - 1 > g_dSmallestSpan) {
        m_dLastPixel = iPixels - 1;
        m_dLength = dLength;
    }
}

double CrossPlotScale::valuesPerPixel() const
{
    return hasLength() ? std::abs(m_dLength) / m_dLastPixel : 0.0;
}

CrossPlotMap::CrossPlotMap(const QPointF& oA, const QPointF& oB, bool bUpwards, const QSize& oChart)
    : m_oX(oA.x(), oB.x(), oChart.width())
    , m_oY(bUpwards ? oB.y() : oA.y(), bUpwards ? oA.y() : oB.y(), oChart.height())
{
}

void CrossPlotMap::toPixels(std::span<const double> vdX, std::span<const double> vdY,
                            std::vector<QPointF>& voPixels) const
{
    const std::size_t iCount = std::min(vdX.size(), vdY.size());
    voPixels.resize(iCount);
    const double* pX = vdX.data();
    const double* pY = vdY.data();
    const CrossPlotScale oX = m_oX;
    const CrossPlotScale oY = m_oY;
    QPointF* pPixels = voPixels.data();
    for (std::size_t i = 0; i < iCount; ++i) {
        pPixels[i] = QPointF(oX.toPixel(pX[i]), oY.toPixel(pY[i]));
    }
}

QLineF crossPlotLine(const CrossPlotMap& oMap, double dSlope, double dIntercept)
{
    if (!oMap.m_oX.hasLength() || !oMap.m_oY.hasLength() || !std::isfinite(dSlope) || !std::isfinite(dIntercept)) {
        return {};
    }
    const double dRight = oMap.m_oX.m_dLastPixel;
    const double dBottom = oMap.m_oY.m_dLastPixel;
    const auto yAt = [&](double dPixel) { return oMap.m_oY.toPixel(dSlope * oMap.m_oX.toValue(dPixel) + dIntercept); };
    const double dY0 = yAt(0.0);
    const double dRise = (yAt(dRight) - dY0) / dRight;
    double dX1 = 0.0;
    double dX2 = dRight;
    if (dRise != 0.0) {
        const double dA = (0.0 - dY0) / dRise;
        const double dB = (dBottom - dY0) / dRise;
        dX1 = std::max(dX1, std::min(dA, dB));
        dX2 = std::min(dX2, std::max(dA, dB));
    } else if (dY0 < 0.0 || dY0 > dBottom) {
        return {};
    }
    return dX1 < dX2 ? QLineF(dX1, dY0 + dRise * dX1, dX2, dY0 + dRise * dX2) : QLineF();
}

// ---- lines at depths ------------------------------------------------------------------------------------------------

std::vector<CrossPlotDepthLine> crossPlotDepthLines(const DepthLineField& oField, const CrossPlotMap& oMap,
                                                    const QSize& oChart)
{
    std::vector<CrossPlotDepthLine> vLines;
    std::set<int> rows; // that hold a plain line
    for (std::size_t i = 0; i < oField.lineDepths().size(); ++i) {
        const double dY = oMap.m_oY.toPixel(oField.lineDepths()[i]);
        if (!oField.isShown(oField.lineTypes()[i]) || !(dY >= -1.0 && dY <= oChart.height())) {
            continue;
        }
        CrossPlotDepthLine line = depthLine(oField, i, dY);
        if (line.m_bSelected || !line.m_sLabel.isEmpty() || rows.insert(qRound(dY)).second) {
            vLines.push_back(std::move(line));
        }
    }
    std::stable_sort(vLines.begin(), vLines.end(),
                     [](const CrossPlotDepthLine& a, const CrossPlotDepthLine& b) { return a.m_dY < b.m_dY; });
    return vLines;
}

std::vector<CrossPlotDomain> crossPlotDomains(const DepthLineField& oField, const CrossPlotMap& oMap,
                                              const QSize& oChart)
{
    std::vector<CrossPlotDomain> vDomains;
    int iAbove = -1;
    for (const int iLine : oField.linesByDepth()) {
        const auto i = static_cast<std::size_t>(iLine);
        if (!boundsDomains(oField.domainType(), oField.lineTypes()[i])) {
            continue;
        }
        if (iAbove >= 0) {
            const auto iUpper = static_cast<std::size_t>(iAbove);
            const double dY1 = oMap.m_oY.toPixel(oField.lineDepths()[iUpper]);
            const double dY2 = oMap.m_oY.toPixel(oField.lineDepths()[i]);
            QColor oColor = oField.lineColors()[iUpper];
            oColor.setAlphaF(1.0F - static_cast<float>(oField.domainTransparency()) / 100.0F);
            const QRectF oBand = QRectF(QPointF(0.0, std::min(dY1, dY2)), QPointF(oChart.width(), std::max(dY1, dY2))) &
                                 QRectF(QPointF(0, 0), QSizeF(oChart));
            if (oBand.height() > 0.0 && oColor.alpha() > 0) {
                vDomains.push_back({oBand, oColor});
            }
        }
        iAbove = iLine;
    }
    return vDomains;
}

// ---- mouse ----------------------------------------------------------------------------------------------------------

} // namespace gkBase

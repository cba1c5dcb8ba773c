#include "CrossPlotGeometry.h"

#include "MissingValue.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <utility>

namespace gkBase {

namespace {

/// Pixel spans up to this have no length.
constexpr double g_dSmallestSpan = 0.0005;

/// Grips do not spread over more of the chart than this.
constexpr double g_dHandleShare = 0.5;
constexpr double g_dHandleMargin = 2.0;
constexpr double g_dHandleGap = 1.0;

bool hasOrientation(const QPointF& oDipAndAzimuth)
{
    const auto isSet = [](double dAngle) { return !isMissing(dAngle) && dAngle >= 0.0; };
    return isSet(oDipAndAzimuth.x()) && isSet(oDipAndAzimuth.y());
}

/// An average orientation is named by what it is; other lines have a mark for it.
QString labelOf(const DepthLineField& oField, std::size_t iLine)
{
    const QString& sName = oField.lineNames()[iLine];
    if (oField.lineTypes()[iLine] != DepthLineField::AverageOrientation) {
        return sName;
    }
    return (sName + QLatin1Char(' ') + lineOrientationText(oField.lineOrientations()[iLine])).trimmed();
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
    line.m_iLine = static_cast<int>(iLine);
    line.m_eType = eType;
    line.m_dY = dY;
    line.m_oOrientation = oField.lineOrientations()[iLine];
    line.m_oColor = oField.lineColors()[iLine];
    line.m_iWidth = oField.lineWidth();
    line.m_bSelected = oField.isSelected(static_cast<int>(iLine));
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
    std::set<int> rows; // that hold a boundary
    for (std::size_t i = 0; i < oField.lineDepths().size(); ++i) {
        const double dY = oMap.m_oY.toPixel(oField.lineDepths()[i]);
        if (!oField.isShown(oField.lineTypes()[i]) || !(dY >= -1.0 && dY <= oChart.height())) {
            continue;
        }
        if (oField.lineTypes()[i] != DepthLineField::IntervalBoundary || rows.insert(qRound(dY)).second) {
            vLines.push_back(depthLine(oField, i, dY));
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

// ---- grips and marks ------------------------------------------------------------------------------------------------

int nearestShownLine(const DepthLineField& oField, double dDepth, double dTolerance)
{
    int iNearest = -1;
    double dNearest = dTolerance;
    for (std::size_t i = 0; i < oField.lineDepths().size(); ++i) {
        const double dDistance = std::abs(oField.lineDepths()[i] - dDepth);
        if (dDistance <= dNearest && oField.isShown(oField.lineTypes()[i])) {
            dNearest = dDistance;
            iNearest = static_cast<int>(i);
        }
    }
    return iNearest;
}

QString lineTypeLetter(DepthLineField::DataType eType)
{
    switch (eType) {
    case DepthLineField::CrestalPlane:
        return QStringLiteral("C");
    case DepthLineField::AxialPlane:
        return QStringLiteral("A");
    case DepthLineField::InflectionPlane:
        return QStringLiteral("I");
    case DepthLineField::Horizon:
        return QStringLiteral("H");
    case DepthLineField::Fault:
        return QStringLiteral("F");
    default:
        return {};
    }
}

namespace {

/// Columns of grips, each with the upper edges of its grips, rising.
class HandleColumns
{
public:
    explicit HandleColumns(double dWidth)
        : m_vdTops(static_cast<std::size_t>(std::max(1.0, std::floor(dWidth / (CrossPlotLineHandle::s_dSize + 2.0)))))
    {
    }

    /// The first column with room for a grip there, or the one where it covers least; takes the place.
    QRectF take(double dTop, std::span<const CrossPlotOrientationMark> vMarks)
    {
        std::size_t iBest = 0;
        double dFarthest = -1.0;
        for (std::size_t i = 0; i < m_vdTops.size() && dFarthest < CrossPlotLineHandle::s_dSize + g_dHandleGap; ++i) {
            const double dDistance = hidesMark(box(i, dTop), vMarks) ? 0.0 : distance(m_vdTops[i], dTop);
            if (dDistance > dFarthest) {
                dFarthest = dDistance;
                iBest = i;
            }
        }
        std::vector<double>& vdTops = m_vdTops[iBest];
        vdTops.insert(std::upper_bound(vdTops.begin(), vdTops.end(), dTop), dTop);
        return box(iBest, dTop);
    }

private:
    static QRectF box(std::size_t iColumn, double dTop)
    {
        const double dLeft = g_dHandleMargin + static_cast<double>(iColumn) * (CrossPlotLineHandle::s_dSize + 2.0);
        return {dLeft, dTop, CrossPlotLineHandle::s_dSize, CrossPlotLineHandle::s_dSize};
    }

    /// The marks come from top to bottom.
    static bool hidesMark(const QRectF& oBox, std::span<const CrossPlotOrientationMark> vMarks)
    {
        constexpr double dRadius = CrossPlotOrientationMark::s_iRadius;
        const QRectF oReach = oBox.adjusted(-dRadius, -dRadius, dRadius, dRadius);
        auto mark = std::lower_bound(vMarks.begin(), vMarks.end(), oReach.top(),
                                     [](const CrossPlotOrientationMark& m, double dY) { return m.m_oCentre.y() < dY; });
        for (; mark != vMarks.end() && mark->m_oCentre.y() <= oReach.bottom(); ++mark) {
            if (oReach.contains(mark->m_oCentre)) {
                return true;
            }
        }
        return false;
    }

    static double distance(const std::vector<double>& vdTops, double dTop)
    {
        const auto next = std::lower_bound(vdTops.begin(), vdTops.end(), dTop);
        const double dBelow = next == vdTops.end() ? HUGE_VAL : *next - dTop;
        return next == vdTops.begin() ? dBelow : std::min(dBelow, dTop - *(next - 1));
    }

    std::vector<std::vector<double>> m_vdTops;
};

} // namespace

std::vector<CrossPlotLineHandle> crossPlotLineHandles(std::span<const CrossPlotDepthLine> vLines,
                                                      std::span<const CrossPlotOrientationMark> vMarks,
                                                      const QRect& oVisible)
{
    constexpr double dSize = CrossPlotLineHandle::s_dSize;
    // In the order of insertion: neither a pick nor a move of a line lets the grips of earlier ones jump.
    std::vector<std::size_t> viOrder(vLines.size());
    std::iota(viOrder.begin(), viOrder.end(), std::size_t{0});
    std::sort(viOrder.begin(), viOrder.end(),
              [&vLines](std::size_t a, std::size_t b) { return vLines[a].m_iLine < vLines[b].m_iLine; });
    std::vector<CrossPlotLineHandle> vHandles;
    HandleColumns columns(oVisible.width() * g_dHandleShare);
    for (const std::size_t i : viOrder) {
        const double dY = std::round(vLines[i].m_dY) - oVisible.top();
        if (dY < 0.0 || dY >= oVisible.height()) {
            continue;
        }
        const double dTop = std::clamp(dY - std::floor(dSize / 2.0), 0.0, std::max(0.0, oVisible.height() - dSize));
        vHandles.push_back({i, columns.take(dTop, vMarks)});
    }
    std::stable_partition(vHandles.begin(), vHandles.end(), [&vLines](const CrossPlotLineHandle& handle) {
        return !vLines[handle.m_iShape].m_bSelected;
    });
    return vHandles;
}

int lineHandleAt(std::span<const CrossPlotLineHandle> vHandles, const QPointF& oPosition)
{
    for (std::size_t i = vHandles.size(); i-- > 0;) {
        if (vHandles[i].m_oRect.contains(oPosition)) {
            return static_cast<int>(vHandles[i].m_iShape);
        }
    }
    return -1;
}

std::vector<CrossPlotOrientationMark>
crossPlotOrientationMarks(const DepthLineField& oField, std::span<const CrossPlotDepthLine> vLines,
                          const std::function<double(const QPointF& oDipAndAzimuth)>& position,
                          const CrossPlotScale& oX, const QRect& oVisible)
{
    std::vector<CrossPlotOrientationMark> vMarks;
    if (!position || !oField.showAverageOrientations()) {
        return vMarks;
    }
    for (const CrossPlotDepthLine& line : vLines) {
        const QPointF& oOrientation = line.m_oOrientation;
        const double dY = line.m_dY - oVisible.top();
        if (!hasOrientation(oOrientation) || dY < 0.0 || dY >= oVisible.height()) {
            continue;
        }
        const double dX = oX.toPixel(position(oOrientation));
        if (!std::isfinite(dX)) {
            continue;
        }
        const bool bBeyond = dX < 0.0 || dX > oX.m_dLastPixel;
        const double dInset = bBeyond ? CrossPlotOrientationMark::s_iRadius + g_dHandleMargin : 0.0;
        const double dShown = std::clamp(dX, dInset, std::max(dInset, oX.m_dLastPixel - dInset));
        vMarks.push_back({QPointF(dShown - oVisible.left(), dY), oOrientation.y(), bBeyond, line.m_bSelected,
                          line.m_oColor,
                          oField.showAverageOrientationLabels() ? lineOrientationText(oOrientation) : QString()});
    }
    return vMarks;
}

QString lineOrientationText(const QPointF& oDipAndAzimuth)
{
    if (!hasOrientation(oDipAndAzimuth)) {
        return {};
    }
    const int iAzimuth = qRound(oDipAndAzimuth.y()) % 360;
    return QStringLiteral("%1/%2").arg(qRound(oDipAndAzimuth.x())).arg(iAzimuth, 3, 10, QLatin1Char('0'));
}

} // namespace gkBase

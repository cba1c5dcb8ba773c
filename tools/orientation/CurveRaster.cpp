#include "CurveRaster.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iTileSide = 32;

} // namespace

CurveRaster::CurveRaster(const PointTarget& target, const NetFrame& oFrame)
    : m_oRect(target.m_oRect)
    , m_dCentreX(oFrame.m_dCentreX * target.m_dScale + target.m_oOffset.x() - m_oRect.left())
    , m_dCentreY(oFrame.m_dCentreY * target.m_dScale + target.m_oOffset.y() - m_oRect.top())
    , m_dRadius(oFrame.m_dRadius * target.m_dScale)
    , m_oPicture(m_oRect.size(), QImage::Format_ARGB32_Premultiplied)
{
    m_oPicture.fill(Qt::transparent);
    if (!m_oPicture.isNull()) {
        m_pPixels = reinterpret_cast<QRgb*>(m_oPicture.bits());
        m_iStride = m_oPicture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
        freeDisc();
    }
}

void CurveRaster::freeDisc()
{
    const int iWidth = m_oPicture.width();
    m_iTileColumns = iWidth / g_iTileSide + 1;
    m_viTileFree.resize(static_cast<std::size_t>(m_iTileColumns) *
                        static_cast<std::size_t>(m_oPicture.height() / g_iTileSide + 1));
    m_vbFree.resize(static_cast<std::size_t>(iWidth) * static_cast<std::size_t>(m_oPicture.height()));
    for (int iRow = 0; iRow < m_oPicture.height(); ++iRow) {
        const double dY = iRow + 0.5 - m_dCentreY;
        const double dHalf = std::sqrt(std::max(m_dRadius * m_dRadius - dY * dY, 0.0));
        const int iFirst = static_cast<int>(std::clamp(std::ceil(m_dCentreX - dHalf - 0.5), 0.0, double(iWidth)));
        const int iEnd = static_cast<int>(std::clamp(std::floor(m_dCentreX + dHalf + 0.5), 0.0, double(iWidth)));
        if (dHalf > 0.0 && iFirst < iEnd) {
            std::fill_n(m_vbFree.begin() + static_cast<std::ptrdiff_t>(iRow) * iWidth + iFirst, iEnd - iFirst, 1);
            m_iFree += static_cast<std::size_t>(iEnd - iFirst);
            const auto iTiles = static_cast<std::size_t>(iRow / g_iTileSide) * static_cast<std::size_t>(m_iTileColumns);
            for (int iColumn = iFirst; iColumn < iEnd; ++iColumn) {
                ++m_viTileFree[iTiles + static_cast<std::size_t>(iColumn / g_iTileSide)];
            }
        }
    }
}

/// All tiles that a box touches; the box lies inside the picture.
bool CurveRaster::tilesAreFull(int iLeft, int iTop, int iRight, int iBottom) const
{
    for (int iRow = iTop / g_iTileSide; iRow <= iBottom / g_iTileSide; ++iRow) {
        for (int iColumn = iLeft / g_iTileSide; iColumn <= iRight / g_iTileSide; ++iColumn) {
            if (m_viTileFree[static_cast<std::size_t>(iRow) * static_cast<std::size_t>(m_iTileColumns) +
                             static_cast<std::size_t>(iColumn)] != 0) {
                return false;
            }
        }
    }
    return true;
}

void CurveRaster::write(std::span<const NetPolyline> vLines, QRgb oColor, double dWidth)
{
    for (const NetPolyline& line : vLines) {
        for (std::size_t i = 1; i < line.size(); ++i) {
            writeSegment(m_dCentreX + m_dRadius * line[i - 1].m_dX, m_dCentreY - m_dRadius * line[i - 1].m_dY,
                         m_dCentreX + m_dRadius * line[i].m_dX, m_dCentreY - m_dRadius * line[i].m_dY, oColor, dWidth);
        }
    }
}

void CurveRaster::writePixel(int iX, int iY, QRgb oColor)
{
    if (iX < 0 || iY < 0 || iX >= m_oPicture.width() || iY >= m_oPicture.height()) {
        return;
    }
    std::uint8_t& bFree = m_vbFree[static_cast<std::size_t>(iY) * static_cast<std::size_t>(m_oPicture.width()) +
                                   static_cast<std::size_t>(iX)];
    if (bFree != 0) {
        bFree = 0;
        --m_iFree;
        --m_viTileFree[static_cast<std::size_t>(iY / g_iTileSide) * static_cast<std::size_t>(m_iTileColumns) +
                       static_cast<std::size_t>(iX / g_iTileSide)];
        m_pPixels[iY * m_iStride + iX] = oColor;
    }
}

void CurveRaster::writeSegment(double dX1, double dY1, double dX2, double dY2, QRgb oColor, double dWidth)
{
    const int iWidth = m_oPicture.width();
    const int iHeight = m_oPicture.height();
    const double dHalf = std::max(dWidth, 1.0) - 1.0; // more than half of a slanting line
    const double dLeft = std::min(dX1, dX2) - dHalf;
    const double dRight = std::max(dX1, dX2) + dHalf;
    const double dTop = std::min(dY1, dY2) - dHalf;
    const double dBottom = std::max(dY1, dY2) + dHalf;
    if (m_vbFree.empty() || dRight < 0.0 || dBottom < 0.0 || dLeft >= iWidth || dTop >= iHeight) {
        return;
    }
    const auto inside = [](double d, int iEnd) { return static_cast<int>(std::clamp(d, 0.0, iEnd - 1.0)); };
    if (tilesAreFull(inside(dLeft, iWidth), inside(dTop, iHeight), inside(dRight, iWidth), inside(dBottom, iHeight))) {
        return;
    }
    const double dLong = std::max(std::abs(dX2 - dX1), std::abs(dY2 - dY1));
    const int iSteps = std::max(1, static_cast<int>(std::ceil(dLong)));
    const double dX = (dX2 - dX1) / iSteps;
    const double dY = (dY2 - dY1) / iSteps;
    // Broad lines take pixels across the longer direction.
    const bool bUpright = std::abs(dY) > std::abs(dX);
    const double dSlant = dLong > 0.0 ? std::hypot(dX2 - dX1, dY2 - dY1) / dLong : 1.0;
    const int iAcross = dWidth <= 1.0 ? 1 : static_cast<int>(std::lround(dWidth * dSlant));
    const double dFirst = (iAcross - 1) / 2.0;
    for (int i = 0; i <= iSteps; ++i) {
        const auto iX = static_cast<int>(std::floor(dX1 + i * dX - (bUpright ? dFirst : 0.0)));
        const auto iY = static_cast<int>(std::floor(dY1 + i * dY - (bUpright ? 0.0 : dFirst)));
        for (int k = 0; k < iAcross; ++k) {
            writePixel(bUpright ? iX + k : iX, bUpright ? iY : iY + k, oColor);
        }
    }
}

} // namespace gkBase

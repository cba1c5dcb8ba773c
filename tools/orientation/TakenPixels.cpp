#include "TakenPixels.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dMostSide = 8192.0; // 8 MB of bits

} // namespace

TakenPixels::TakenPixels(double dRadius, double dReach)
    : m_dRadius(dRadius)
    , m_dReach(dReach)
{
    const double dSide = std::max(std::ceil(2.0 * dReach * dRadius), 0.0) + 1.0;
    m_iSide = dSide <= g_dMostSide ? static_cast<std::size_t>(dSide) : 0;
    m_vbTaken.resize(m_iSide * m_iSide);
}

bool TakenPixels::take(NetPoint oPoint)
{
    const double dX = (oPoint.m_dX + m_dReach) * m_dRadius;
    const double dY = (oPoint.m_dY + m_dReach) * m_dRadius;
    const auto dSide = static_cast<double>(m_iSide);
    // Written so that NaN fails.
    if (!(dX >= 0.0 && dY >= 0.0 && dX < dSide && dY < dSide)) {
        return true;
    }
    const std::size_t i = static_cast<std::size_t>(dY) * m_iSide + static_cast<std::size_t>(dX);
    const bool bFirst = !m_vbTaken[i];
    m_vbTaken[i] = true;
    return bFirst;
}

} // namespace gkBase

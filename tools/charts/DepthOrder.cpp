#include "DepthOrder.h"

#include "MissingValue.h"

#include <algorithm>

namespace gkBase {

DepthOrder::DepthOrder(std::span<const double> vdDepth)
{
    m_viRecords.reserve(vdDepth.size());
    for (std::size_t i = 0; i < vdDepth.size(); ++i) {
        if (!isMissing(vdDepth[i]))
            m_viRecords.push_back(static_cast<int>(i));
    }
    const auto bBelow = [vdDepth](int i, int j) {
        return vdDepth[static_cast<std::size_t>(i)] < vdDepth[static_cast<std::size_t>(j)];
    };
    if (std::is_sorted(m_viRecords.begin(), m_viRecords.end(), bBelow))
        return;
    std::reverse(m_viRecords.begin(), m_viRecords.end()); // a log that was run upwards
    if (!std::is_sorted(m_viRecords.begin(), m_viRecords.end(), bBelow))
        std::stable_sort(m_viRecords.begin(), m_viRecords.end(), bBelow);
}

int DepthOrder::recordAt(std::span<const double> vdDepth, double dDepth, double dTolerance) const
{
    if (m_viRecords.empty() || isMissing(dDepth))
        return -1;
    const auto depthOf = [vdDepth](int iRecord) { return vdDepth[static_cast<std::size_t>(iRecord)]; };
    const auto below = std::lower_bound(m_viRecords.begin(), m_viRecords.end(), dDepth,
                                        [&](int iRecord, double dValue) { return depthOf(iRecord) < dValue; });
    if (below == m_viRecords.end())
        return dDepth - depthOf(m_viRecords.back()) <= dTolerance ? m_viRecords.back() : -1;
    if (below == m_viRecords.begin())
        return depthOf(*below) - dDepth <= dTolerance ? *below : -1;
    const int iAbove = *(below - 1);
    return dDepth - depthOf(iAbove) <= depthOf(*below) - dDepth ? iAbove : *below;
}

} // namespace gkBase

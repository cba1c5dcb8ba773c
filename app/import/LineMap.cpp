#include "LineMap.h"

#include <algorithm>

namespace gkHost {

void LineMap::append(int iRow, qint64 iLine)
{
    if (m_vJumps.empty() || iLine - m_vJumps.back().m_iLine != iRow - m_vJumps.back().m_iRow) {
        m_vJumps.push_back({iRow, iLine});
    }
}

qint64 LineMap::line(int iRow) const
{
    const auto it = std::upper_bound(m_vJumps.begin(), m_vJumps.end(), iRow,
                                     [](int iWanted, const Jump& jump) { return iWanted < jump.m_iRow; });
    return it == m_vJumps.begin() ? 0 : std::prev(it)->m_iLine + (iRow - std::prev(it)->m_iRow);
}

} // namespace gkHost

#include "RowRuns.h"

#include <algorithm>
#include <cstddef>

namespace gkBase {

namespace {

/// Walks the places where membership in either set changes and keeps the rows for which keep(inA, inB) is true.
template <typename Keep>
RowRuns mergedRuns(const RowRuns& vA, const RowRuns& vB, Keep keep)
{
    RowRuns vResult;
    std::size_t iA = 0;
    std::size_t iB = 0;
    bool bInA = false;
    bool bInB = false;
    bool bOpen = false;
    // The next row at which a set begins or ends; the row behind its last run counts as an end.
    const auto border = [](const RowRuns& vRuns, std::size_t i, bool bIn) {
        return bIn ? vRuns[i].iLast + 1 : vRuns[i].iFirst;
    };
    while (iA < vA.size() || iB < vB.size()) {
        int iRow = 0;
        if (iA == vA.size())
            iRow = border(vB, iB, bInB);
        else if (iB == vB.size())
            iRow = border(vA, iA, bInA);
        else
            iRow = std::min(border(vA, iA, bInA), border(vB, iB, bInB));
        const auto cross = [iRow, &border](const RowRuns& vRuns, std::size_t& i, bool& bIn) {
            if (i == vRuns.size() || border(vRuns, i, bIn) != iRow)
                return;
            if (bIn)
                ++i;
            bIn = !bIn;
        };
        cross(vA, iA, bInA);
        cross(vB, iB, bInB);
        const bool bKeep = keep(bInA, bInB);
        if (bKeep && !bOpen)
            vResult.push_back({iRow, iRow});
        else if (!bKeep && bOpen)
            vResult.back().iLast = iRow - 1;
        bOpen = bKeep;
    }
    return vResult;
}

} // namespace

RowRuns runsOfFlags(const bool* pbFlags, int iCount, int iShift)
{
    RowRuns vRuns;
    if (!pbFlags)
        return vRuns;
    const bool* const pbEnd = pbFlags + std::max(iCount, 0);
    for (const bool* pb = std::find(pbFlags, pbEnd, true); pb != pbEnd; pb = std::find(pb, pbEnd, true)) {
        const bool* const pbStop = std::find(pb, pbEnd, false);
        vRuns.push_back({static_cast<int>(pb - pbFlags) + iShift, static_cast<int>(pbStop - pbFlags) - 1 + iShift});
        pb = pbStop;
    }
    return vRuns;
}

RowRuns runsOfRows(const std::vector<int>& viRisingRows)
{
    RowRuns vRuns;
    for (const int iRow : viRisingRows) {
        if (!vRuns.empty() && iRow <= vRuns.back().iLast + 1)
            vRuns.back().iLast = std::max(vRuns.back().iLast, iRow);
        else
            vRuns.push_back({iRow, iRow});
    }
    return vRuns;
}

RowRuns normalizedRuns(RowRuns vRuns)
{
    std::erase_if(vRuns, [](const RowRun& oRun) { return oRun.size() < 1; });
    const auto before = [](const RowRun& a, const RowRun& b) { return a.iFirst < b.iFirst; };
    if (!std::is_sorted(vRuns.begin(), vRuns.end(), before))
        std::sort(vRuns.begin(), vRuns.end(), before);
    std::size_t iKept = 0;
    for (const RowRun& oRun : vRuns) {
        if (iKept > 0 && oRun.iFirst <= vRuns[iKept - 1].iLast + 1)
            vRuns[iKept - 1].iLast = std::max(vRuns[iKept - 1].iLast, oRun.iLast);
        else
            vRuns[iKept++] = oRun;
    }
    vRuns.resize(iKept);
    return vRuns;
}

RowRuns complementOfRuns(const RowRuns& vRuns, int iRowCount)
{
    RowRuns vAll;
    if (iRowCount > 0)
        vAll.push_back({0, iRowCount - 1});
    return mergedRuns(vAll, vRuns, [](bool bInAll, bool bInRuns) { return bInAll && !bInRuns; });
}

RowRuns unitedRuns(const RowRuns& vA, const RowRuns& vB)
{
    return mergedRuns(vA, vB, [](bool bInA, bool bInB) { return bInA || bInB; });
}

RowRuns intersectedRuns(const RowRuns& vA, const RowRuns& vB)
{
    return mergedRuns(vA, vB, [](bool bInA, bool bInB) { return bInA && bInB; });
}

RowRuns toggledRuns(const RowRuns& vA, const RowRuns& vB)
{
    return mergedRuns(vA, vB, [](bool bInA, bool bInB) { return bInA != bInB; });
}

int countOfRuns(const RowRuns& vRuns)
{
    int iCount = 0;
    for (const RowRun& oRun : vRuns)
        iCount += oRun.size();
    return iCount;
}

bool runsContain(const RowRuns& vRuns, int iRow)
{
    const auto it = std::upper_bound(vRuns.begin(), vRuns.end(), iRow,
                                     [](int iValue, const RowRun& oRun) { return iValue < oRun.iFirst; });
    return it != vRuns.begin() && std::prev(it)->iLast >= iRow;
}

std::vector<int> rowsOfRuns(const RowRuns& vRuns)
{
    std::vector<int> viRows;
    viRows.reserve(static_cast<std::size_t>(countOfRuns(vRuns)));
    for (const RowRun& oRun : vRuns)
        for (int iRow = oRun.iFirst; iRow <= oRun.iLast; ++iRow)
            viRows.push_back(iRow);
    return viRows;
}

} // namespace gkBase

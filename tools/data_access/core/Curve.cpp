#include "Curve.h"

#include "MissingValue.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace gkBase {

double curveValue(std::span<const double> vdPositions, std::span<const double> vdValues, double dAt)
{
    if (isMissing(dAt)) {
        return g_dMissingValue;
    }
    double dNearest = g_dMissingValue;
    double dNearestDistance = std::numeric_limits<double>::infinity();
    double dLastPosition = g_dEmptyCell;
    double dLastValue = g_dEmptyCell;
    const std::size_t iPairs = std::min(vdPositions.size(), vdValues.size());
    for (std::size_t i = 0; i < iPairs; ++i) {
        const double dPosition = vdPositions[i];
        if (isMissing(dPosition) || isMissing(vdValues[i])) {
            continue;
        }
        if (dPosition == dAt) {
            return vdValues[i];
        }
        // False for the first pair, whose predecessor is NaN.
        if ((dLastPosition < dAt && dAt < dPosition) || (dPosition < dAt && dAt < dLastPosition)) {
            const double dShare = (0.5 * dAt - 0.5 * dLastPosition) / (0.5 * dPosition - 0.5 * dLastPosition);
            return std::lerp(dLastValue, vdValues[i], dShare);
        }
        const double dDistance = std::abs(dPosition - dAt);
        if (dDistance < dNearestDistance) {
            dNearestDistance = dDistance;
            dNearest = vdValues[i];
        }
        dLastPosition = dPosition;
        dLastValue = vdValues[i];
    }
    return dNearest;
}

AveragedCurve averagedCurve(std::span<const double> vdPositions, std::span<const double> vdValues)
{
    std::vector<std::pair<double, double>> vPairs;
    const std::size_t iPairs = std::min(vdPositions.size(), vdValues.size());
    vPairs.reserve(iPairs);
    for (std::size_t i = 0; i < iPairs; ++i) {
        if (!isMissing(vdPositions[i]) && !isMissing(vdValues[i])) {
            vPairs.emplace_back(vdPositions[i], vdValues[i]);
        }
    }
    const auto isBefore = [](const auto& first, const auto& second) { return first.first < second.first; };
    if (!std::is_sorted(vPairs.begin(), vPairs.end(), isBefore)) {
        std::stable_sort(vPairs.begin(), vPairs.end(), isBefore);
    }
    AveragedCurve oCurve;
    for (auto it = vPairs.begin(); it != vPairs.end();) {
        const double dPosition = it->first;
        double dMean = 0.0;
        // The mean grows value by value: no overflow, and exact for equal values.
        for (double dCount = 1.0; it != vPairs.end() && it->first == dPosition; ++it, dCount += 1.0) {
            dMean += it->second / dCount - dMean / dCount;
        }
        oCurve.m_vdPositions.push_back(dPosition);
        oCurve.m_vdValues.push_back(dMean);
    }
    return oCurve;
}

int fillGaps(std::span<double> vdValues)
{
    int iFilled = 0;
    std::size_t iLast = vdValues.size();
    for (std::size_t i = 0; i < vdValues.size(); ++i) {
        if (isMissing(vdValues[i])) {
            continue;
        }
        for (std::size_t iGap = iLast + 1; iLast < i && iGap < i; ++iGap) {
            const double dShare = static_cast<double>(iGap - iLast) / static_cast<double>(i - iLast);
            vdValues[iGap] = std::lerp(vdValues[iLast], vdValues[i], dShare);
            ++iFilled;
        }
        iLast = i;
    }
    return iFilled;
}

} // namespace gkBase

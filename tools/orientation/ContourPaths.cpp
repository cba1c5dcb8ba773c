#include "ContourPaths.h"

#include "GKColormap.h"
#include "NetPaths.h"

#include <cmath>

namespace gkBase {

std::vector<ContourPath> contourPaths(std::span<const DensityContour> vContours, const NetFrame& oFrame)
{
    std::vector<ContourPath> vPaths;
    vPaths.reserve(vContours.size());
    for (const DensityContour& contour : vContours) {
        ContourPath& path = vPaths.emplace_back();
        path.m_dLevel = contour.m_dLevel;
        path.m_oArea.setFillRule(Qt::WindingFill);
        for (const NetPolyline& outline : contour.m_vOutlines) {
            const NetPolyline area = areaOnNet(outline);
            addToPath(path.m_oArea, oFrame, std::span(&area, 1));
            path.m_oArea.closeSubpath();
        }
        addToPath(path.m_oLines, oFrame, contour.m_vLines);
    }
    return vPaths;
}

std::vector<QColor> contourColors(std::span<const double> vdLevels, double dInterval, bool bRedToBlue)
{
    std::vector<QColor> voColors;
    if (vdLevels.empty()) {
        return voColors;
    }
    GKColormap colors;
    colors.fill_spectrum_color_list(vdLevels.front(), vdLevels.back(), dInterval, bRedToBlue);
    colors.interpolation(GKColormap::Stepwise);
    voColors.reserve(vdLevels.size());
    // Levels of map and contours may differ by the last digit: each colour is taken from within its band.
    const double dInside = vdLevels.size() > 1 ? (vdLevels[1] - vdLevels[0]) / 2.0 : 0.0;
    for (const double dLevel : vdLevels) {
        voColors.push_back(colors.value_to_color(dLevel + dInside));
    }
    return voColors;
}

std::vector<QColor> contourGrays(std::span<const double> vdLevels, const QColor& oBackground)
{
    // From nearly the background to a gray that still shows lines and labels of the other colour beside it.
    constexpr double dFirst = 0.04;
    constexpr double dLast = 0.7;
    const bool bOnBlack = oBackground.lightness() < 128;
    std::vector<QColor> voColors;
    voColors.reserve(vdLevels.size());
    for (std::size_t i = 0; i < vdLevels.size(); ++i) {
        const double dShare =
            vdLevels.size() > 1 ? static_cast<double>(i) / static_cast<double>(vdLevels.size() - 1) : 0.0;
        const double dGray = std::lerp(dFirst, dLast, dShare);
        voColors.push_back(QColor::fromRgbF(bOnBlack ? dGray : 1.0 - dGray, bOnBlack ? dGray : 1.0 - dGray,
                                            bOnBlack ? dGray : 1.0 - dGray));
    }
    return voColors;
}

} // namespace gkBase

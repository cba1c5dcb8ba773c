#pragma once

#include "DensityContours.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QPainterPath>

#include <span>
#include <vector>

namespace gkBase {

/// One level of a contour map in pixels.
struct ContourPath
{
    double m_dLevel = 0.0; ///< per cent
    QPainterPath m_oArea;  ///< all on the net that is at or above the level, with its holes
    QPainterPath m_oLines; ///< the isolines
};

/// Level by level, the lowest first: filled one above the other their areas show the bands.
GKBASETOOLS_EXPORT std::vector<ContourPath> contourPaths(std::span<const DensityContour> vContours,
                                                         const NetFrame& oFrame);

/// The colours of the bands that begin at the levels, from the spectrum of GKColormap, and in grays from the
/// background's side to the other. dInterval is that of the levels, 99999.0 for automatic.
GKBASETOOLS_EXPORT std::vector<QColor> contourColors(std::span<const double> vdLevels, double dInterval,
                                                     bool bRedToBlue);
GKBASETOOLS_EXPORT std::vector<QColor> contourGrays(std::span<const double> vdLevels, const QColor& oBackground);

} // namespace gkBase

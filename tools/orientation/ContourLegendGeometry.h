#pragma once

#include "gkBaseToolsExport.h"

#include <QRectF>

#include <cstddef>
#include <vector>

namespace gkBase {

/// A band between two levels of a contour map, and the number at its lower limit.
struct ContourLegendBand
{
    QRectF m_oBox;
    bool m_bNumber = false; ///< the number at the lower limit has room
};

/// Bands of equal height from the bottom of the area up. The number of the lowest one is always shown; of the others
/// every n-th, so that dLineHeight fits between them and, with bTop, below the number that stands at the top.
GKBASETOOLS_EXPORT std::vector<ContourLegendBand> contourLegendBands(std::size_t iBands, const QRectF& oArea,
                                                                     double dLineHeight, bool bTop);

} // namespace gkBase

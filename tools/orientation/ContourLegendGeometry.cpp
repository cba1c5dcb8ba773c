#include "ContourLegendGeometry.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

std::vector<ContourLegendBand> contourLegendBands(std::size_t iBands, const QRectF& oArea, double dLineHeight,
                                                  bool bTop)
{
    std::vector<ContourLegendBand> vBands(iBands);
    const double dHeight = oArea.height() / static_cast<double>(iBands);
    const double dStep = std::ceil(dLineHeight / dHeight - 1e-9);
    const std::size_t iStep =
        dStep < static_cast<double>(iBands) ? std::max<std::size_t>(static_cast<std::size_t>(dStep), 1) : iBands;
    for (std::size_t i = 0; i < iBands; ++i) {
        const double dBottom = oArea.bottom() - static_cast<double>(i) * dHeight;
        vBands[i].m_oBox = QRectF(oArea.left(), dBottom - dHeight, oArea.width(), dHeight);
        vBands[i].m_bNumber = i == 0 || (i % iStep == 0 && (!bTop || iBands - i >= iStep));
    }
    return vBands;
}

} // namespace gkBase

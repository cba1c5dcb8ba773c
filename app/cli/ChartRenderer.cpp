#include "ChartRenderer.h"

#include "BarChartRenderer.h"
#include "CrossPlotRenderer.h"
#include "DepthPlotRenderer.h"
#include "HistogramRenderer.h"
#include "RoseRenderer.h"
#include "ScatRenderer.h"
#include "StereonetRenderer.h"
#include "TangentRenderer.h"
#include "WoodcockRenderer.h"

namespace gkHost {

const std::vector<ChartRenderer>& chartRenderers()
{
    static const std::vector<ChartRenderer> vRenderers = {
        histogramRenderer(), barChartRenderer(), probabilityRenderer(), crossPlotRenderer(), depthPlotRenderer(),
        stereonetRenderer(), tangentRenderer(),  roseRenderer(),        woodcockRenderer(),  scatRenderer()};
    return vRenderers;
}

} // namespace gkHost

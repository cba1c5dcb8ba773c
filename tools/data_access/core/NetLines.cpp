#include "NetLines.h"

#include <algorithm>
#include <iterator>

namespace gkBase {

namespace {

void append(std::vector<NetPolyline>& vTo, std::vector<NetPolyline> vFrom)
{
    std::move(vFrom.begin(), vFrom.end(), std::back_inserter(vTo));
}

} // namespace

NetLines netLines(const NetProjection& oProjection, int iStep, double dStep)
{
    iStep = std::clamp(iStep, 1, 90);
    NetLines oLines;
    if (oProjection.layout() == NetLayout::Tangent) {
        for (int iAngle = iStep; iAngle < oProjection.maximumAngle(); iAngle += iStep) {
            oLines.m_vdRadii.push_back(oProjection.lineRadius(iAngle));
        }
        for (int iAzimuth = 0; iAzimuth < 360; iAzimuth += iStep) {
            oLines.m_vdAzimuths.push_back(iAzimuth);
        }
        return oLines;
    }
    for (int iAngle = iStep; iAngle < 90; iAngle += iStep) {
        append(oLines.m_vGreatCircles, greatCircle(oProjection, iAngle, 90.0, dStep));
        append(oLines.m_vGreatCircles, greatCircle(oProjection, iAngle, 270.0, dStep));
        append(oLines.m_vSmallCircles, smallCircle(oProjection, 0.0, 0.0, iAngle, dStep));
    }
    return oLines;
}

double clearedNetCentre(const NetProjection& oProjection, bool bFine)
{
    switch (oProjection.layout()) {
    case NetLayout::EqualArea:
        return oProjection.poleRadius(bFine ? 20.0 : 2.0);
    case NetLayout::EqualAngle:
        return oProjection.poleRadius(bFine ? 10.0 : 2.0);
    case NetLayout::Tangent:
        break;
    }
    return oProjection.lineRadius(bFine ? 20.0 : 10.0);
}

} // namespace gkBase

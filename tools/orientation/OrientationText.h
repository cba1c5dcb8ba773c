#pragma once

#include "DirectionCosines.h"
#include "gkBaseToolsExport.h"

#include <QString>

namespace gkBase {

/// How planes are written. Lines are always plunge/azimuth.
enum class OrientationConvention
{
    DipAzimuth,    ///< dip/dip azimuth: 30.0/090.0
    StrikeDip,     ///< strike by the right-hand rule/dip: 000.0/30.0
    StrikeDipSense ///< the same with the compass word of the dip: 000.0/30.0/E
};
inline constexpr int g_iOrientationConventions = 3;

/// What stands for an undefined value.
GKBASETOOLS_EXPORT QString undefinedText();

/// All in degrees with iDecimals decimals and without a unit; "---" when an angle is missing. Azimuths have three
/// digits and stay below 360 when they are rounded.
GKBASETOOLS_EXPORT QString angleText(double dAngle, int iDecimals = 1);
GKBASETOOLS_EXPORT QString azimuthText(double dAzimuth, int iDecimals = 1);
GKBASETOOLS_EXPORT QString planeText(const PlaneOrientation& oPlane, OrientationConvention eConvention,
                                     int iDecimals = 1);
GKBASETOOLS_EXPORT QString lineText(const LineOrientation& oLine, int iDecimals = 1);

/// What planeText() and lineText() give, for headers: "Dip/Dip Azimuth", "Strike/Dip", "Strike/Dip/Sense";
/// "Plunge/Azimuth".
GKBASETOOLS_EXPORT QString planeHeader(OrientationConvention eConvention);
GKBASETOOLS_EXPORT QString lineHeader();

} // namespace gkBase

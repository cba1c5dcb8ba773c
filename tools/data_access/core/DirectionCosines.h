#pragma once

#include "Angles.h"
#include "LineInPlane.h"
#include "MissingValue.h"
#include "SineCosine.h"
#include "gdfVertex.h"
#include "gkBaseCoreExport.h"

namespace gkBase {

/// A plane by dip (0 … 90 degrees below the horizontal) and dip azimuth ([0, 360)).
struct PlaneOrientation
{
    double m_dDip;
    double m_dDipAzimuth;
};

/// What a pair of angle and azimuth describes.
enum class OrientationType
{
    Planes, ///< dip and dip azimuth; calculations take the pole
    Lines   ///< plunge and azimuth
};

inline constexpr LineOrientation g_oMissingLine{g_dMissingValue, g_dMissingValue};
inline constexpr PlaneOrientation g_oMissingPlane{g_dMissingValue, g_dMissingValue};

/// Components of unit vectors below this are rounding noise: such a plunge is 0, such a horizontal part has no azimuth.
inline constexpr double g_dNoiseOfCosines = 1e-12;

/// Direction cosines, x north, y east, z down, of a line. The angles must be finite and are not checked: 99999.0 gives
/// a vector without meaning, an angle out of range the one that the formulas say, perhaps an upward one.
inline gdfVertex lineVector(double dPlunge, double dAzimuth)
{
    const SineCosine oPlunge = sineCosine(dPlunge);
    const SineCosine oAzimuth = sineCosine(dAzimuth);
    return {oPlunge.m_dCosine * oAzimuth.m_dCosine, oPlunge.m_dCosine * oAzimuth.m_dSine, oPlunge.m_dSine};
}

/// Direction cosines of the pole of a plane: the normal that points down for dips below 90. Angles as for lines.
inline gdfVertex poleVector(double dDip, double dDipAzimuth)
{
    const SineCosine oDip = sineCosine(dDip);
    const SineCosine oAzimuth = sineCosine(dDipAzimuth);
    return {-oDip.m_dSine * oAzimuth.m_dCosine, -oDip.m_dSine * oAzimuth.m_dSine, oDip.m_dCosine};
}

/// The pole of a plane or the line itself.
inline gdfVertex orientationVector(OrientationType eType, double dAngle, double dAzimuth)
{
    return eType == OrientationType::Planes ? poleVector(dAngle, dAzimuth) : lineVector(dAngle, dAzimuth);
}

/// The end of an axis in the lower hemisphere; horizontal axes, also those that rounding lifts a little, stay as they
/// are.
inline gdfVertex lowerHemisphere(const gdfVertex& oAxis)
{
    return oAxis.z() < -g_dNoiseOfCosines ? -oAxis : oAxis;
}

/// Plunge and azimuth of the lower end of an axis. Its length does not matter. A vertical axis has azimuth 0. A null
/// vector or one that is not finite gives (99999.0, 99999.0).
GKBASECORE_EXPORT LineOrientation lineOf(const gdfVertex& oAxis);

/// Dip and dip azimuth of the plane with this pole. A horizontal plane has dip azimuth 0. Otherwise as lineOf().
GKBASECORE_EXPORT PlaneOrientation planeOfPole(const gdfVertex& oPole);

/// The pole of a plane: (90 − dip, dip azimuth + 180). Missing for a missing angle.
GKBASECORE_EXPORT LineOrientation poleOfPlane(const PlaneOrientation& oPlane);

/// The plane with this pole: (90 − plunge, azimuth + 180). Missing for a missing angle.
GKBASECORE_EXPORT PlaneOrientation planeOfPole(const LineOrientation& oPole);

/// The angle between two axes, 0 … 90 degrees, precise for small angles too; 0 when one is a null vector.
GKBASECORE_EXPORT double angleBetweenAxes(const gdfVertex& oFirst, const gdfVertex& oSecond);

} // namespace gkBase

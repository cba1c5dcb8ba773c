#pragma once

#include "DirectionCosines.h"
#include "gdfVertex.h"
#include "gkBaseCoreExport.h"

#include <span>

namespace gkBase {

/// A rotation about an axis by an angle in degrees. Seen along the axis downwards it turns clockwise (right-hand rule
/// in the frame x north, y east, z down).
class GKBASECORE_EXPORT Rotation
{
public:
    /// A missing axis or angle gives the rotation that leaves everything as it is.
    Rotation(const LineOrientation& oAxis, double dAngle);

    const LineOrientation& axis() const { return m_oAxis; }
    double angle() const { return m_dAngle; }
    /// The rotation back.
    Rotation inverse() const { return {m_oAxis, -m_dAngle}; }

    /// The one rotation that does the same as this one followed by another.
    Rotation then(const Rotation& oNext) const;

    gdfVertex apply(const gdfVertex& oVector) const;
    /// The rotated line by its lower end.
    LineOrientation apply(const LineOrientation& oLine) const;
    /// The rotated plane: its pole is turned.
    PlaneOrientation apply(const PlaneOrientation& oPlane) const;

private:
    LineOrientation m_oAxis;
    double m_dAngle;
    gdfVertex m_aoRows[3]; ///< rows of the rotation matrix
};

/// The rotation that makes a mean plane horizontal: about its strike, a horizontal axis at dip azimuth − 90, by
/// 360 − dip.
GKBASECORE_EXPORT Rotation rotationToHorizontal(const PlaneOrientation& oMeanPlane);

/// The rotation that makes a mean line vertical, so that it comes to the centre of the net.
GKBASECORE_EXPORT Rotation rotationToVertical(const LineOrientation& oMeanLine);

/// Rotates records: (dip, dip azimuth) or (plunge, azimuth) in degrees. Records with a missing angle are NaN in both
/// results, as empty cells are. The results may be the columns themselves; the shortest span counts.
GKBASECORE_EXPORT void rotateOrientations(OrientationType eType, const Rotation& oRotation,
                                          std::span<const double> vdAngles, std::span<const double> vdAzimuths,
                                          std::span<double> vdRotatedAngles, std::span<double> vdRotatedAzimuths);

} // namespace gkBase

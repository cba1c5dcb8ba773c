#pragma once

#include "DirectionCosines.h"
#include "gkBaseCoreExport.h"

#include <span>

namespace gkBase {

/// How the lower hemisphere is laid out on the net.
enum class NetLayout
{
    EqualArea,  ///< Lambert's azimuthal projection (Schmidt net)
    EqualAngle, ///< stereographic projection (Wulff net)
    Tangent     ///< distance from the centre in proportion to the tangent of the plunge (Bengtson 1980)
};

/// A position on the net of radius 1 about (0, 0): x east, y north.
struct NetPoint
{
    double m_dX;
    double m_dY;
};

/// Lower-hemisphere projection of lines, and of planes by their poles, onto the net of radius 1, and back. Angles in
/// degrees. Missing angles (NaN, infinite, 99999.0) give NaN positions, and those give missing angles (99999.0).
class GKBASECORE_EXPORT NetProjection
{
public:
    static constexpr double s_dDefaultMaximumAngle = 60.0;
    /// Distances from the centre up to this much beyond 1 count as the rim.
    static constexpr double s_dRimTolerance = 1e-9;

    /// The maximum angle is the plunge on the rim of a tangent net: brought to 10 … 85, the default where missing.
    /// The other layouts do not use it.
    explicit NetProjection(NetLayout eLayout = NetLayout::EqualArea, double dMaximumAngle = s_dDefaultMaximumAngle);

    NetLayout layout() const { return m_eLayout; }
    double maximumAngle() const { return m_dMaximumAngle; }

    /// Distance from the centre of a line of this plunge: √2 · sin(45° − plunge / 2), tan(45° − plunge / 2), or
    /// tan(plunge) / tan(maximum angle), which passes 1 beyond the maximum angle.
    double lineRadius(double dPlunge) const;
    /// Distance from the centre of the pole of a plane of this dip: √2 · sin(dip / 2), tan(dip / 2), or
    /// tan(90° − dip) / tan(maximum angle).
    double poleRadius(double dDip) const;

    NetPoint line(double dPlunge, double dAzimuth) const;
    NetPoint pole(double dDip, double dDipAzimuth) const;
    /// The line along a vector (north, east, down) of any ordinary length, turned to its lower end.
    NetPoint vector(double dNorth, double dEast, double dDown) const;

    /// The line that plots at a position; its azimuth is 0 at the centre. Beyond the rim (more than s_dRimTolerance)
    /// of the equal-area and equal-angle net there is none: (99999.0, 99999.0).
    LineOrientation lineAt(NetPoint oPoint) const;
    /// The plane whose pole plots at a position. A dip up to 5e-9 becomes 0 with the azimuth of the position (not on
    /// the tangent net). Beyond the rim as lineAt().
    PlaneOrientation poleAt(NetPoint oPoint) const;

private:
    NetLayout m_eLayout;
    double m_dMaximumAngle;
    double m_dRimTangent; ///< tangent of the maximum angle
};

/// True for a position within the net; the rim, to within NetProjection::s_dRimTolerance, belongs to it.
GKBASECORE_EXPORT bool isOnNet(NetPoint oPoint);

/// The position itself, or the rim in its direction for one beyond the net.
GKBASECORE_EXPORT NetPoint pulledOntoNet(NetPoint oPoint);

/// Azimuth of a position seen from the centre, [0, 360); 0 at the centre.
GKBASECORE_EXPORT double netAzimuth(NetPoint oPoint);

/// Positions of many lines, one per record up to the end of the shortest column.
GKBASECORE_EXPORT void projectLines(const NetProjection& oProjection, std::span<const double> vdPlunge,
                                    std::span<const double> vdAzimuth, std::span<NetPoint> vPoints);

/// Positions of the poles of many planes, as projectLines().
GKBASECORE_EXPORT void projectPoles(const NetProjection& oProjection, std::span<const double> vdDip,
                                    std::span<const double> vdDipAzimuth, std::span<NetPoint> vPoints);

/// Where the net lies in a picture: its centre and radius in pixels, y downwards.
struct GKBASECORE_EXPORT NetFrame
{
    double m_dCentreX = 0.0;
    double m_dCentreY = 0.0;
    double m_dRadius = 0.0;

    /// The net fitted into a pixmap: its centre is the mean of the first and last pixel and its radius 0.4 of the
    /// shorter side, all cut to whole pixels. 400 × 400 gives centre (199, 199) and radius 160.
    static NetFrame fitted(int iWidth, int iHeight);

    NetPoint toPixel(NetPoint oPoint) const
    {
        return {m_dCentreX + m_dRadius * oPoint.m_dX, m_dCentreY - m_dRadius * oPoint.m_dY};
    }
    /// The centre of the net for a frame without a radius.
    NetPoint toNet(double dPixelX, double dPixelY) const
    {
        return m_dRadius > 0.0 ? NetPoint{(dPixelX - m_dCentreX) / m_dRadius, (m_dCentreY - dPixelY) / m_dRadius}
                               : NetPoint{0.0, 0.0};
    }
};

} // namespace gkBase

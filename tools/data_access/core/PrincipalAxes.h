#pragma once

#include "DirectionCosines.h"
#include "MissingValue.h"
#include "OrientationMatrix.h"
#include "Rotation.h"
#include "gkBaseCoreExport.h"

#include <array>
#include <cstddef>

namespace gkBase {

/// Eigenvalues and eigenvectors of an orientation matrix. Index 0 … 2 runs with the increasing eigenvalue: 0 the pole
/// of the girdle, 2 the centre of the cluster.
struct PrincipalAxes
{
    std::size_t m_iCount = 0; ///< records; 0 when nothing is defined
    /// e1 ≤ e2 ≤ e3, together the number of records; below 1e-12 of it exactly 0. 99999.0 without records.
    std::array<double, 3> m_adValues{g_dMissingValue, g_dMissingValue, g_dMissingValue};
    std::array<gdfVertex, 3> m_aoVectors{}; ///< unit vectors of the lower hemisphere; null vectors without records
    std::array<LineOrientation, 3> m_aoLines{g_oMissingLine, g_oMissingLine, g_oMissingLine};
    /// The planes whose poles the eigenvectors are.
    std::array<PlaneOrientation, 3> m_aoPlanes{g_oMissingPlane, g_oMissingPlane, g_oMissingPlane};

    bool isDefined() const { return m_iCount > 0; }
    /// The principal mean, which suits axes: of lines m_aoLines[2], of planes m_aoPlanes[2].
    const LineOrientation& meanLine() const { return m_aoLines[2]; }
    const PlaneOrientation& meanPlane() const { return m_aoPlanes[2]; }
    /// The plane that holds the records (of planes, their poles) best.
    const PlaneOrientation& girdle() const { return m_aoPlanes[0]; }
    /// The pole of the girdle: of poles to folded beds, the fold axis.
    const LineOrientation& foldAxis() const { return m_aoLines[0]; }
    /// Direction of most change (T) and of least change (L) of the beds, that of the middle and of the smallest
    /// eigenvector: the azimuths to compute transverse and longitudinal dips with.
    const LineOrientation& transverse() const { return m_aoLines[1]; }
    const LineOrientation& longitudinal() const { return m_aoLines[0]; }
    /// The suggested section: the plane whose pole is the middle eigenvector, and that pole. Take it from the axes of
    /// the records turned to their mean, see rotatedAxes().
    const PlaneOrientation& sectionPlane() const { return m_aoPlanes[1]; }
    const LineOrientation& sectionPole() const { return m_aoLines[1]; }
};

/// Principal axes of the records (Scheidegger 1965; Woodcock 1977). Axes of equal eigenvalues are any of those that
/// are possible; of identical or coplanar records the smallest eigenvalues are 0.
GKBASECORE_EXPORT PrincipalAxes principalAxes(const OrientationSums& oSums);

/// The axes of the same records after a rotation, without rotating the records.
GKBASECORE_EXPORT PrincipalAxes rotatedAxes(const PrincipalAxes& oAxes, const Rotation& oRotation);

/// The share q = e / (e1 + e2 + e3) of an eigenvalue, 0 … 1; 99999.0 when the axes are undefined.
GKBASECORE_EXPORT double eigenvalueShare(const PrincipalAxes& oAxes, int iAxis);

/// True where two eigenvalues are equal, to within 1e-9 of their sum: the records leave it open which axes in their
/// plane belong to them. False for axes out of range 0 … 2 or undefined.
GKBASECORE_EXPORT bool areEigenvaluesEqual(const PrincipalAxes& oAxes, int iFirst, int iSecond);

/// True where the records settle an axis: its eigenvalue equals no other one. Of identical records only the mean is
/// settled, of coplanar ones in all directions only the pole of their plane.
GKBASECORE_EXPORT bool isAxisSettled(const PrincipalAxes& oAxes, int iAxis);

/// True when the vector mean of records with this R̄ misleads, because axes that lie close together cancel as vectors:
/// steep planes that dip both ways, lines on both sides of the rim. Without cancelling R̄ is near √(e3 / N), which it
/// never exceeds: 1 for a cluster, 0.90 of it for a half-circle, 0.87 for a uniform hemisphere; below 0.8 it is too
/// low. Show the principal mean beside the other then. False when something is undefined.
GKBASECORE_EXPORT bool doesVectorMeanMislead(const PrincipalAxes& oAxes, double dMeanResultantLength);

} // namespace gkBase

#pragma once

#include "DensityGrid.h"
#include "MissingValue.h"
#include "NetCurves.h"
#include "gkBaseCoreExport.h"

#include <functional>
#include <span>
#include <vector>

namespace gkBase {

/// More contour levels than this are not drawn at all.
inline constexpr int g_iMostContourLevels = 1000;
/// Number of levels of an automatic interval.
inline constexpr int g_iAutomaticContourLevels = 20;

/// Levels of a contour map, rising: the minimum, and one an interval on as long as it does not pass the maximum. The
/// interval 99999.0 is automatic: (maximum − minimum) / 19, 20 levels of which the last is the maximum. Empty unless
/// minimum < maximum, for an interval that is not above 0 or not a number, and for more than g_iMostContourLevels.
GKBASECORE_EXPORT std::vector<double> contourLevels(double dMinimum, double dMaximum,
                                                    double dInterval = g_dMissingValue);

/// The levels in per cent of a density grid, from its smallest to its largest node. Empty without records.
GKBASECORE_EXPORT std::vector<double> contourLevels(const DensityGrid& oGrid, double dInterval = g_dMissingValue);

/// What the contours of a grid draw at one level.
struct DensityContour
{
    double m_dLevel = 0.0; ///< per cent
    /// The isoline on the net, joined: closed lines end in their first point, the others on the rim. Higher values
    /// lie on its left (x east, y north).
    std::vector<NetPolyline> m_vLines;
    /// Outlines of the part of the square around the net at or above the level, to be clipped by the rim when they are
    /// filled; no point repeats the first. The area lies on their left, so that holes turn the other way; the odd-even
    /// and the winding rule fill the same.
    std::vector<NetPolyline> m_vOutlines;
};

/// Isolines and areas of the percentages of a density grid. Each cell is cut into four triangles about its centre,
/// which has the mean of the corners, and the surface is level or inclined on each (triangleIsoline()). Areas of a
/// level hold those of the higher ones: filled one after the other they show the bands, the band from one level to the
/// next is their difference, and all bands together tile the square when the first level is the smallest node. Each
/// triangle is visited for the levels in its range only. Levels must rise. Empty for an empty grid or one without
/// records.
GKBASECORE_EXPORT std::vector<DensityContour> densityContours(const DensityGrid& oGrid,
                                                              std::span<const double> vdLevels);

/// A label of an isoline.
struct ContourLabel
{
    NetPoint m_oPoint;
    double m_dLevel; ///< per cent
};

/// Label positions: the middle of every segment of an isoline is a candidate, from the highest level down,
/// and is kept when no kept one lies within dDistance (in units of the radius of the net: 50 pixels are 50 / radius)
/// and fnFits, asked last, has room for it; what it refuses keeps no other label away. Found through buckets of that
/// size: linear in the number of segments. Empty for a distance not above 0.
GKBASECORE_EXPORT std::vector<ContourLabel> contourLabels(std::span<const DensityContour> vContours, double dDistance,
                                                          const std::function<bool(const ContourLabel&)>& fnFits = {});

} // namespace gkBase

#pragma once

#include "gkBaseQtExport.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace gkBase {

class MatrixData;
class UnitManager;
class UnitRegistry;

/// Degrees in one model unit of an attribute: 180/π for radians, 0.9 for gon. 1 for values without a unit, which are
/// taken as degrees, and for units of anything but angles.
GKBASEQT_EXPORT double degreesPerUnit(const MatrixData& attribute);

/// Whether the attribute's unit is one of something else than angles. A text of a unit that nobody knows is not held
/// against the values.
GKBASEQT_EXPORT bool isOtherThanAngle(const MatrixData& attribute);

/// The first column in degrees, NaN where missing, whatever angles it is stored in; see degreesPerUnit(). Empty for
/// texts and colours.
GKBASEQT_EXPORT std::vector<double> numbersInDegrees(const MatrixData& attribute);

/// Numbers of the attribute's model unit in degrees, in place; those that are degrees are not touched.
GKBASEQT_EXPORT void convertToDegrees(const MatrixData& attribute, std::vector<double>& vdNumbers);

/// The unit of angles in degrees: that of the registry when it has one in degrees, else the standard one. Null: the
/// standard one.
GKBASEQT_EXPORT boost::shared_ptr<UnitManager> degreeUnit(const UnitRegistry* poRegistry = nullptr);

} // namespace gkBase

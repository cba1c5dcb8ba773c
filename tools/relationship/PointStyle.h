#pragma once

namespace gkBase {

/// The sixteen point symbols of the charts, in the order of their stored values. symbolFill() tells which of them are
/// filled, and symbolPath() what they look like.
enum PointStyle : int
{
    Circle = 0,
    Cross = 1,
    Square = 2,
    Triangle1 = 3, ///< apex up
    Triangle2 = 4, ///< apex down
    Diamond = 5,
    BigCross1 = 6, ///< plus with broad arms
    BigCross2 = 7, ///< the same, turned by 45 degrees
    Square1 = 8,
    Triangle3 = 9,
    Triangle4 = 10,
    Diamond1 = 11,
    Ring = 12,
    Pixel = 13,
    BigCross3 = 14,
    BigCross4 = 15
};

} // namespace gkBase

#pragma once

#include "NetProjection.h"

#include <cstddef>
#include <vector>

namespace gkBase {

/// Gives the pixels of a net away, each once: of many curves that share a place only one needs to be drawn.
class TakenPixels
{
public:
    /// The pixels of the square about a net, whose radius is in pixels, that reaches so many radii from the centre.
    TakenPixels(double dRadius, double dReach);

    /// True for the first that asks for the pixel of a position. Always true outside the square, and when it has more
    /// pixels than can be kept in mind.
    bool take(NetPoint oPoint);

private:
    double m_dRadius;
    double m_dReach;
    std::size_t m_iSide;
    std::vector<bool> m_vbTaken; ///< row by row; empty: too many
};

} // namespace gkBase

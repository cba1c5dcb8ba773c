#pragma once

#include <cstddef>
#include <span>

namespace gkBase {

/// Which records a computation takes: one byte per record, 0 leaves it out. An empty mask takes all records; records
/// beyond the end of a mask are left out.
inline bool isTaken(std::span<const unsigned char> vbMask, std::size_t iRecord)
{
    return vbMask.empty() || (iRecord < vbMask.size() && vbMask[iRecord] != 0);
}

} // namespace gkBase

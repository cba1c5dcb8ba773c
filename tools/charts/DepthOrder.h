#pragma once

#include "gkBaseToolsExport.h"

#include <span>
#include <vector>

namespace gkBase {

/// The records of a well in the order of their depths, to find the one at a depth. Holds no depths itself.
class GKBASETOOLS_EXPORT DepthOrder
{
public:
    DepthOrder() = default;
    /// Linear when the depths rise or fall already, n log n otherwise. Records without depth are left out.
    explicit DepthOrder(std::span<const double> vdDepth);

    /// The record whose depth lies nearest, the shallower of two; −1 when there is none, or when the depth lies more
    /// than dTolerance above or below all records. vdDepth are the depths that the order was made for.
    int recordAt(std::span<const double> vdDepth, double dDepth, double dTolerance) const;

private:
    std::vector<int> m_viRecords; ///< with depth, by rising depth
};

} // namespace gkBase

#pragma once

#include "NetProjection.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QPointer>

#include <span>
#include <vector>

namespace gkBase {

class QRelationshipItemModel;

/// The positions of a model's records on the net of radius 1. Kept until the points, the projection or the kind of the
/// records change, so that zooming and selecting project nothing again.
class GKBASETOOLS_EXPORT ProjectedRecords
{
public:
    /// bPoles: the records are planes, shown by their poles; otherwise lines. NaN where there is no point. Empty
    /// without a model.
    std::span<const NetPoint> update(const QRelationshipItemModel* pModel, const NetProjection& oProjection,
                                     bool bPoles);

private:
    QPointer<const QRelationshipItemModel> m_pModel; ///< not owned
    quint64 m_iRevision = 0;
    NetProjection m_oProjection;
    bool m_bPoles = true;
    std::vector<NetPoint> m_vPoints;
};

/// Positions on a net in pixels. Beyond the rim, where nothing is drawn, there is no point: NaN.
GKBASETOOLS_EXPORT void netPointsInPixels(const NetFrame& oFrame, std::span<const NetPoint> vPoints,
                                          std::vector<QPointF>& voPixels);

} // namespace gkBase

#include "ProjectedRecords.h"

#include "MissingValue.h"
#include "QRelationshipItemModel.h"

namespace gkBase {

std::span<const NetPoint> ProjectedRecords::update(const QRelationshipItemModel* pModel,
                                                   const NetProjection& oProjection, bool bPoles)
{
    if (!pModel) {
        m_pModel = nullptr;
        m_vPoints.clear();
        return {};
    }
    const bool bSame = m_pModel == pModel && m_iRevision == pModel->pointsRevision() && m_bPoles == bPoles &&
                       m_oProjection.layout() == oProjection.layout() &&
                       m_oProjection.maximumAngle() == oProjection.maximumAngle() &&
                       m_vPoints.size() == pModel->x().size();
    if (!bSame) {
        m_pModel = pModel;
        m_iRevision = pModel->pointsRevision();
        m_bPoles = bPoles;
        m_oProjection = oProjection;
        m_vPoints.resize(pModel->x().size());
        (bPoles ? projectPoles : projectLines)(oProjection, pModel->x(), pModel->y(), m_vPoints);
    }
    return m_vPoints;
}

void netPointsInPixels(const NetFrame& oFrame, std::span<const NetPoint> vPoints, std::vector<QPointF>& voPixels)
{
    constexpr double dLimit = (1.0 + NetProjection::s_dRimTolerance) * (1.0 + NetProjection::s_dRimTolerance);
    voPixels.resize(vPoints.size());
    for (std::size_t i = 0; i < vPoints.size(); ++i) {
        const NetPoint oPoint = vPoints[i];
        const NetPoint oPixel = oFrame.toPixel(oPoint);
        // Written so that NaN fails.
        const bool bOnNet = oPoint.m_dX * oPoint.m_dX + oPoint.m_dY * oPoint.m_dY <= dLimit;
        voPixels[i] = bOnNet ? QPointF(oPixel.m_dX, oPixel.m_dY) : QPointF(g_dEmptyCell, g_dEmptyCell);
    }
}

} // namespace gkBase

#include "KMdata.h"

#include "KMtree.h"

KMdata::KMdata(int iDim, int iPoints)
    : m_iDim(iDim > 0 ? iDim : 0)
    , m_iPoints(iDim > 0 && iPoints > 0 ? iPoints : 0)
    , m_vdCoordinates(static_cast<std::size_t>(m_iDim) * static_cast<std::size_t>(m_iPoints), 0.0)
{
}

KMdata::~KMdata() = default;

void KMdata::buildKcTree()
{
    m_poTree.reset();
    if (m_iPoints > 0) {
        m_poTree = std::make_unique<KMtree>(m_iDim, m_vdCoordinates);
    }
}

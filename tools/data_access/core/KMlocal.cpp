#include "KMlocal.h"

namespace {
constexpr std::uint64_t g_iSeed = 20020701;
/// The final approach ends when a stage gains no more than this share, or after so many stages. Small sets are taken
/// to where no point changes its cluster; in large ones the last digits would take hundreds of stages.
constexpr double g_dConvergedSmall = 1e-14;
constexpr double g_dConvergedLarge = 1e-6;
constexpr int g_iLargeSet = 100000;
constexpr int g_iMaxFinalStages = 200;

double relativeLoss(double dBefore, double dAfter)
{
    return dBefore > 0.0 ? (dBefore - dAfter) / dBefore : 0.0;
}
} // namespace

KMlocal::KMlocal(const KMfilterCenters& oCenters, const KMterm& oTerm)
    : m_oCurrent(oCenters)
    , m_oTerm(oTerm)
    , m_oBest(oCenters)
    , m_oRandom(g_iSeed)
{
}

KMfilterCenters KMlocal::execute()
{
    m_iTotalStages = 0;
    m_iRuns = 0;
    if (m_oCurrent.centerCount() < 1) {
        return m_oCurrent;
    }
    m_oBest.computeDistortion();
    const int iMaxStages = m_oTerm.maxTotalStages(m_oCurrent.centerCount(), m_oCurrent.pointCount());
    while (m_iTotalStages < iMaxStages && m_oBest.distortion() > 0.0) {
        beginRun();
        const double dStart = m_oCurrent.computeDistortion();
        int iRunStages = 0;
        bool bDone = false;
        while (!bDone && m_iTotalStages < iMaxStages) {
            const double dBefore = m_oCurrent.distortion();
            runStage();
            ++iRunStages;
            ++m_iTotalStages;
            const double dAfter = m_oCurrent.distortion();
            bDone = isRunDone(iRunStages, relativeLoss(dBefore, dAfter), relativeLoss(dStart, dAfter));
        }
        ++m_iRuns;
        keepBest();
    }
    approachOptimum();
    return m_oBest;
}

void KMlocal::keepBest()
{
    if (m_oCurrent.distortion() < m_oBest.distortion()) {
        m_oBest = m_oCurrent;
    }
}

/// The rule above ends runs early; only the best start is worth the way to its optimum.
void KMlocal::approachOptimum()
{
    const double dConverged = m_oBest.pointCount() < g_iLargeSet ? g_dConvergedSmall : g_dConvergedLarge;
    m_oCurrent = m_oBest;
    for (int iStage = 0; iStage < g_iMaxFinalStages && m_oBest.distortion() > 0.0; ++iStage) {
        m_oCurrent.moveToCentroids();
        m_oCurrent.computeDistortion();
        const double dLoss = relativeLoss(m_oBest.distortion(), m_oCurrent.distortion());
        keepBest();
        if (dLoss <= dConverged) {
            return;
        }
    }
}

#include "KMlocal.h"

#include <algorithm>

namespace {
constexpr std::uint64_t g_iSeed = 20020701;
/// The final approach ends when a stage gains no more than this share, or after so many stages. Small sets are taken
/// to where no point changes its cluster; in large ones the last digits would take hundreds of stages.
constexpr double g_dConvergedSmall = 1e-14;
constexpr double g_dConvergedLarge = 1e-6;
constexpr int g_iLargeSet = 100000;
constexpr int g_iMaxFinalStages = 200;
/// Limits of the swaps: their number, the stages after each and the loss at which those end, and the point-centre
/// pairs of all their stages, which keeps a million points within a second.
constexpr int g_iSwapsPerCenter = 40;
constexpr int g_iMaxSwapStages = 20;
constexpr double g_dSettled = 1e-3;
constexpr double g_dSwapWork = 4e8;

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
    swapCenters();
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
    m_oCurrent = m_oBest;
    const double dConverged = m_oBest.pointCount() < g_iLargeSet ? g_dConvergedSmall : g_dConvergedLarge;
    runStages(dConverged, g_iMaxFinalStages);
    keepBest();
}

/// Leaves the local optimum where a start alone ends up: a centre that splits a natural cluster moves to where one is
/// missing. Random swap (Fränti and Kivijärvi 2000): put a centre drawn at random on a point drawn at random, let the
/// centres settle, and keep them when they are better.
void KMlocal::swapCenters()
{
    const double dWorkOfStage = static_cast<double>(m_oBest.pointCount()) * m_oBest.centerCount();
    int iStages = static_cast<int>(std::min(g_dSwapWork / dWorkOfStage, 1e6));
    const int iSwaps = m_oBest.centerCount() > 1 ? g_iSwapsPerCenter * m_oBest.centerCount() : 0;
    for (int i = 0; i < iSwaps && iStages > 0 && m_oBest.distortion() > 0.0; ++i) {
        m_oCurrent = m_oBest;
        m_oCurrent.swapCenter(m_oRandom);
        m_oCurrent.computeDistortion();
        iStages -= runStages(g_dSettled, std::min(iStages, g_iMaxSwapStages));
        if (m_oCurrent.distortion() < m_oBest.distortion()) {
            keepBest();
            approachOptimum();
        }
    }
}

/// Moves the current centres until a stage gains no more than a share of the distortion; returns how many stages
/// that took.
int KMlocal::runStages(double dConverged, int iMaxStages)
{
    for (int iStage = 0; iStage < iMaxStages; ++iStage) {
        const double dBefore = m_oCurrent.distortion();
        m_oCurrent.moveToCentroids();
        if (relativeLoss(dBefore, m_oCurrent.computeDistortion()) <= dConverged) {
            return iStage + 1;
        }
    }
    return iMaxStages;
}

#include "KMlocalLloyds.h"

void KMlocalLloyds::beginRun()
{
    if (m_iRuns > 0) {
        m_oCurrent.drawCenters(random());
    }
}

void KMlocalLloyds::runStage()
{
    m_oCurrent.moveToCentroids();
    m_oCurrent.computeDistortion();
}

bool KMlocalLloyds::isRunDone(int iRunStages, double dLastLoss, double dRunLoss) const
{
    return iRunStages >= term().maxRunStages() || dLastLoss < term().minConsecutiveLoss() ||
           dRunLoss < term().minAccumulatedLoss();
}

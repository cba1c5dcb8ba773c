#pragma once

#include "KMlocal.h"

/// Lloyd's iteration: every stage moves each centre to the centroid of its points; every run but the first begins
/// with newly drawn centres.
class GKBASECORE_EXPORT KMlocalLloyds : public KMlocal
{
public:
    using KMlocal::KMlocal;

protected:
    void beginRun() override;
    void runStage() override;
    bool isRunDone(int iRunStages, double dLastLoss, double dRunLoss) const override;
};

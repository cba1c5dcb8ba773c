#pragma once

#include "KMfilterCenters.h"
#include "KMterm.h"
#include "gkBaseCoreExport.h"

#include <random>

/// A local search for k-means centres: runs of stages from changing starts, of which the best is kept. Derived
/// classes say what a stage and a run are. The random numbers have a fixed seed, so that equal input gives equal
/// clusters on every run and machine.
class GKBASECORE_EXPORT KMlocal
{
public:
    KMlocal(const KMfilterCenters& oCenters, const KMterm& oTerm);
    virtual ~KMlocal() = default;

    /// Searches from the given centres within the termination rule, then moves the best centres found to the local
    /// optimum that they lead to, tries to leave it for a better one by moving single centres elsewhere, and returns
    /// the centres with their distortion computed.
    KMfilterCenters execute();

    /// Stages that the last execute() took before the final approach.
    int totalStages() const { return m_iTotalStages; }

protected:
    /// Sets m_oCurrent to the start of a new run.
    virtual void beginRun() = 0;
    /// Moves the centres once and computes their distortion.
    virtual void runStage() = 0;
    /// dLastLoss is the relative distortion loss of the stage just done, dRunLoss that since the run began.
    virtual bool isRunDone(int iRunStages, double dLastLoss, double dRunLoss) const = 0;

    const KMterm& term() const { return m_oTerm; }
    std::mt19937_64& random() { return m_oRandom; }

    KMfilterCenters m_oCurrent;
    int m_iRuns = 0; ///< runs completed

private:
    void keepBest();
    void approachOptimum();
    void swapCenters();
    int runStages(double dConverged, int iMaxStages);

    KMterm m_oTerm;
    KMfilterCenters m_oBest;
    std::mt19937_64 m_oRandom;
    int m_iTotalStages = 0;
};

#pragma once

#include "gkBaseCoreExport.h"

/// When a k-means search ends, and when each of its runs does.
///
/// A *stage* is one move of all centres. A *run* is a sequence of stages from random centres; the best centres of
/// all runs win. The relative distortion loss of a stage is (before − after) / before.
class GKBASECORE_EXPORT KMterm
{
public:
    /// The search has dMaxTotal0 + dMaxTotalK · k + dMaxTotalN · n + dMaxTotalKN · k · n stages at most. A run ends
    /// after iMaxRunStages stages, or when the loss of a stage falls below dMinConsecutiveLoss, or the loss since
    /// the run began below dMinAccumulatedLoss. The last three describe simulated annealing (first probability of
    /// accepting a worse run, runs at one temperature, factor of each cooling); Lloyd's strategy does not use them.
    KMterm(double dMaxTotal0, double dMaxTotalK, double dMaxTotalN, double dMaxTotalKN, double dMinConsecutiveLoss,
           double dMinAccumulatedLoss, int iMaxRunStages, double dInitialAcceptance, int iTemperatureRunLength,
           double dTemperatureFactor);

    /// Stages of a search for k centres of n points, at least 1.
    int maxTotalStages(int k, int n) const;
    double minConsecutiveLoss() const { return m_dMinConsecutiveLoss; }
    double minAccumulatedLoss() const { return m_dMinAccumulatedLoss; }
    /// At least 1.
    int maxRunStages() const { return m_iMaxRunStages < 1 ? 1 : m_iMaxRunStages; }
    double initialAcceptance() const { return m_dInitialAcceptance; }
    int temperatureRunLength() const { return m_iTemperatureRunLength; }
    double temperatureFactor() const { return m_dTemperatureFactor; }

private:
    double m_dMaxTotal0;
    double m_dMaxTotalK;
    double m_dMaxTotalN;
    double m_dMaxTotalKN;
    double m_dMinConsecutiveLoss;
    double m_dMinAccumulatedLoss;
    int m_iMaxRunStages;
    double m_dInitialAcceptance;
    int m_iTemperatureRunLength;
    double m_dTemperatureFactor;
};

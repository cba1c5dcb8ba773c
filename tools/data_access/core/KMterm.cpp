#include "KMterm.h"

#include <algorithm>

KMterm::KMterm(double dMaxTotal0, double dMaxTotalK, double dMaxTotalN, double dMaxTotalKN, double dMinConsecutiveLoss,
               double dMinAccumulatedLoss, int iMaxRunStages, double dInitialAcceptance, int iTemperatureRunLength,
               double dTemperatureFactor)
    : m_dMaxTotal0(dMaxTotal0)
    , m_dMaxTotalK(dMaxTotalK)
    , m_dMaxTotalN(dMaxTotalN)
    , m_dMaxTotalKN(dMaxTotalKN)
    , m_dMinConsecutiveLoss(dMinConsecutiveLoss)
    , m_dMinAccumulatedLoss(dMinAccumulatedLoss)
    , m_iMaxRunStages(iMaxRunStages)
    , m_dInitialAcceptance(dInitialAcceptance)
    , m_iTemperatureRunLength(iTemperatureRunLength)
    , m_dTemperatureFactor(dTemperatureFactor)
{
}

int KMterm::maxTotalStages(int k, int n) const
{
    const double dStages = m_dMaxTotal0 + m_dMaxTotalK * k + m_dMaxTotalN * n + m_dMaxTotalKN * k * n;
    constexpr double dLargest = 1e6;
    return dStages > 1.0 ? static_cast<int>(std::min(dStages, dLargest)) : 1;
}

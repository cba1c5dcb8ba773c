#pragma once

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

/// Random numbers spread evenly over [dMin, dMax), the same for a seed on every run.
inline std::vector<double> evenValues(int iCount, double dMin, double dMax, unsigned iSeed)
{
    std::mt19937_64 oRandom(iSeed);
    std::uniform_real_distribution<double> oEven(dMin, dMax);
    std::vector<double> vdValues(static_cast<std::size_t>(iCount));
    std::generate(vdValues.begin(), vdValues.end(), [&] { return oEven(oRandom); });
    return vdValues;
}

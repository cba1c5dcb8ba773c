#include "SampleRandom.h"

#include <cmath>

namespace gkSamples {

namespace {

constexpr double g_dPi = 3.14159265358979323846;

double radians(double dDegrees)
{
    return dDegrees * g_dPi / 180;
}

double degrees(double dRadians)
{
    return dRadians * 180 / g_dPi;
}

} // namespace

Vector lineVector(const Angles& line)
{
    const double dPlunge = radians(line.m_dAngle);
    const double dAzimuth = radians(line.m_dAzimuth);
    return {std::cos(dPlunge) * std::cos(dAzimuth), std::cos(dPlunge) * std::sin(dAzimuth), std::sin(dPlunge)};
}

Angles lineAngles(Vector line)
{
    if (line[2] < 0) {
        line = {-line[0], -line[1], -line[2]};
    }
    const double dAzimuth = degrees(std::atan2(line[1], line[0]));
    return {degrees(std::atan2(line[2], std::hypot(line[0], line[1]))), dAzimuth < 0 ? dAzimuth + 360 : dAzimuth};
}

Angles planeAngles(const Vector& pole)
{
    const Angles oPole = lineAngles(pole);
    return {90 - oPole.m_dAngle, std::fmod(oPole.m_dAzimuth + 180, 360)};
}

Vector planePole(const Angles& plane)
{
    return lineVector({90 - plane.m_dAngle, plane.m_dAzimuth + 180});
}

double SampleRandom::uniform(double dLow, double dHigh)
{
    const double dUnit = static_cast<double>(m_oEngine() >> 11) * 0x1.0p-53;
    return dLow + (dHigh - dLow) * dUnit;
}

int SampleRandom::whole(int iLow, int iHigh)
{
    return iLow + static_cast<int>(uniform(0, 1) * (iHigh - iLow + 1));
}

double SampleRandom::normal(double dMean, double dDeviation)
{
    const double dRadius = std::sqrt(-2 * std::log(1 - uniform(0, 1)));
    return dMean + dDeviation * dRadius * std::cos(uniform(0, 2 * g_dPi));
}

Vector SampleRandom::fisher(const Vector& mean, double dKappa)
{
    const double dLambda = std::exp(-2 * dKappa);
    const double dUniform = uniform(0, 1);
    const double dColatitude = 2 * std::asin(std::sqrt(-std::log(dUniform * (1 - dLambda) + dLambda) / (2 * dKappa)));
    const double dLongitude = uniform(0, 2 * g_dPi);
    // Two directions across the mean complete its frame.
    const double dHorizontal = std::hypot(mean[0], mean[1]);
    const Vector across =
        dHorizontal < 1e-9 ? Vector{0, 1, 0} : Vector{-mean[1] / dHorizontal, mean[0] / dHorizontal, 0};
    const Vector third = {mean[1] * across[2] - mean[2] * across[1], mean[2] * across[0] - mean[0] * across[2],
                          mean[0] * across[1] - mean[1] * across[0]};
    Vector result{};
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = std::cos(dColatitude) * mean[i] +
                    std::sin(dColatitude) * (std::cos(dLongitude) * across[i] + std::sin(dLongitude) * third[i]);
    }
    return result;
}

} // namespace gkSamples

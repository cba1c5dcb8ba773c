#pragma once

#include <array>
#include <cstdint>
#include <random>

namespace gkSamples {

/// A unit vector: x north, y east, z down.
using Vector = std::array<double, 3>;

/// An angle below the horizontal and its azimuth, in degrees: a line, or the dip and dip azimuth of a plane.
struct Angles
{
    double m_dAngle;
    double m_dAzimuth;
};

Vector lineVector(const Angles& line);
/// The lower end of the line; azimuth in [0, 360).
Angles lineAngles(Vector line);
/// The plane across a pole, whichever way the pole points.
Angles planeAngles(const Vector& pole);
/// The pole of a plane, pointing down.
Vector planePole(const Angles& plane);

/// Random numbers that are the same everywhere: the standard fixes the engine but not its distributions, so these
/// are made here.
class SampleRandom
{
public:
    explicit SampleRandom(std::uint64_t iSeed)
        : m_oEngine(iSeed)
    {
    }

    double uniform(double dLow, double dHigh);
    int whole(int iLow, int iHigh);
    /// Box and Muller 1958.
    double normal(double dMean, double dDeviation);
    bool chance(double dProbability) { return uniform(0, 1) < dProbability; }
    /// A direction around a mean one: Fisher distribution of concentration kappa (Fisher, Lewis and Embleton 1987,
    /// section 3.6.2).
    Vector fisher(const Vector& mean, double dKappa);

private:
    std::mt19937_64 m_oEngine;
};

} // namespace gkSamples

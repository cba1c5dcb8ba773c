#include "gdfVertex.h"

#include <cmath>

void gdfVertex::set(double x, double y, double z)
{
    m_dX = x;
    m_dY = y;
    m_dZ = z;
}

double gdfVertex::length() const
{
    return std::hypot(m_dX, m_dY, m_dZ);
}

bool gdfVertex::normalize()
{
    const double dLength = length();
    if (!(dLength > 0.0) || !std::isfinite(dLength)) {
        return false;
    }
    // Division, not multiplication by 1 / length, which overflows for denormal lengths.
    m_dX /= dLength;
    m_dY /= dLength;
    m_dZ /= dLength;
    return true;
}

gdfVertex& gdfVertex::operator*=(double dFactor)
{
    m_dX *= dFactor;
    m_dY *= dFactor;
    m_dZ *= dFactor;
    return *this;
}

gdfVertex& gdfVertex::operator+=(const gdfVertex& other)
{
    m_dX += other.m_dX;
    m_dY += other.m_dY;
    m_dZ += other.m_dZ;
    return *this;
}

gdfVertex& gdfVertex::operator-=(const gdfVertex& other)
{
    m_dX -= other.m_dX;
    m_dY -= other.m_dY;
    m_dZ -= other.m_dZ;
    return *this;
}

gdfVertex gdfVertex::operator^(const gdfVertex& other) const
{
    return {m_dY * other.m_dZ - m_dZ * other.m_dY, m_dZ * other.m_dX - m_dX * other.m_dZ,
            m_dX * other.m_dY - m_dY * other.m_dX};
}

#include "gdfVertex.h"

gdfVertex& gdfVertex::operator*=(double dFactor)
{
    m_dX *= dFactor;
    m_dY *= dFactor;
    m_dZ *= dFactor;
    return *this;
}

gdfVertex gdfVertex::operator^(const gdfVertex& other) const
{
    return {m_dY * other.m_dZ - m_dZ * other.m_dY, m_dZ * other.m_dX - m_dX * other.m_dZ,
            m_dX * other.m_dY - m_dY * other.m_dX};
}

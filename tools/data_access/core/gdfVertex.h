#pragma once

#include "gkBaseCoreExport.h"

/// A vector of three doubles. In the frame of orientation data x points north, y east and z down.
class GKBASECORE_EXPORT gdfVertex
{
public:
    gdfVertex() = default;
    gdfVertex(double x, double y, double z)
        : m_dX(x)
        , m_dY(y)
        , m_dZ(z)
    {
    }

    double x() const { return m_dX; }
    double y() const { return m_dY; }
    double z() const { return m_dZ; }
    void set(double x, double y, double z);

    /// Euclidean length; no overflow for large components.
    double length() const;
    /// Scales to length 1. A null vector, or one with a component that is not finite, stays as it is: false.
    bool normalize();
    /// Dot product.
    double dot(const gdfVertex& other) const { return m_dX * other.m_dX + m_dY * other.m_dY + m_dZ * other.m_dZ; }

    /// Scales the vector.
    gdfVertex& operator*=(double dFactor);
    gdfVertex& operator+=(const gdfVertex& other);
    gdfVertex& operator-=(const gdfVertex& other);
    gdfVertex operator-() const { return {-m_dX, -m_dY, -m_dZ}; }
    /// Cross product.
    gdfVertex operator^(const gdfVertex& other) const;
    bool operator==(const gdfVertex& other) const = default;

private:
    double m_dX = 0.0;
    double m_dY = 0.0;
    double m_dZ = 0.0;
};

inline gdfVertex operator+(gdfVertex left, const gdfVertex& right)
{
    return left += right;
}

inline gdfVertex operator-(gdfVertex left, const gdfVertex& right)
{
    return left -= right;
}

inline gdfVertex operator*(gdfVertex vertex, double dFactor)
{
    return vertex *= dFactor;
}

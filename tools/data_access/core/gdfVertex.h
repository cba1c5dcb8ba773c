#pragma once

#include "gkBaseCoreExport.h"

/// A vector of three doubles. In the frame of orientation data x points north, y east and z down.
class GKBASECORE_EXPORT gdfVertex
{
public:
    gdfVertex() = default;
    gdfVertex(double x, double y, double z) : m_dX(x), m_dY(y), m_dZ(z) {}

    double x() const { return m_dX; }
    double y() const { return m_dY; }
    double z() const { return m_dZ; }

    /// Scales the vector.
    gdfVertex& operator*=(double dFactor);
    /// Cross product.
    gdfVertex operator^(const gdfVertex& other) const;

private:
    double m_dX = 0.0;
    double m_dY = 0.0;
    double m_dZ = 0.0;
};

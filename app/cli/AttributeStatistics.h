#pragma once

#include <QString>

#include <vector>

class QJsonObject;

namespace gkBase {
class MatrixData;
}

namespace gkHost {

/// One class of a frequency table in model units; relative and cumulative are per cent, cumulative at the right edge.
struct AttributeClass
{
    double m_dFrom = 0.0;
    double m_dTo = 0.0;
    double m_dCount = 0.0;
    double m_dRelative = 0.0;
    double m_dCumulative = 0.0;
};

/// The statistics of one attribute as the histogram shows them, in model units. Undefined numbers are 99999.0.
struct AttributeStatistics
{
    QString m_sAttribute;
    QString m_sUnit;
    int m_iValues = 0;
    int m_iMissing = 0;
    double m_dMinimum = 0.0;
    double m_dMaximum = 0.0;
    double m_dMean = 0.0;
    double m_dStandardDeviation = 0.0; ///< of the sample, n − 1
    double m_dP10 = 0.0;               ///< percentiles are read from the cumulative curve
    double m_dP50 = 0.0;
    double m_dP90 = 0.0;
    double m_dInterval = 0.0;
    std::vector<AttributeClass> m_vClasses;

    /// Undefined numbers become null.
    QJsonObject toJson() const;
    QString toText() const;
};

/// dInterval is the class size; 99999.0 chooses one.
AttributeStatistics attributeStatistics(const gkBase::MatrixData& attribute, double dInterval);

} // namespace gkHost

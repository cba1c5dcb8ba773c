#pragma once

#include <gkBase/Regression.h>

#include <QString>

class QJsonObject;

namespace gkBase {
class MatrixData;
}

namespace gkHost {

/// The regression of one attribute on another in model units, by the rule of the charts and by least squares.
struct RegressionReport
{
    QString m_sX;
    QString m_sY;
    gkBase::RegressionLine m_oChart;
    gkBase::RegressionLine m_oLeastSquares;

    /// Slope and intercept of a least-squares line that does not exist become null; the rule of the charts says
    /// 99999.0 for the slope of points above each other.
    QJsonObject toJson() const;
    QString toText() const;
};

RegressionReport regressionReport(const gkBase::MatrixData& x, const gkBase::MatrixData& y);

} // namespace gkHost

#include "RegressionReport.h"

#include "CommandText.h"
#include "ReportText.h"

#include <gkBase/MatrixData.h>

#include <QJsonObject>

namespace gkHost {

namespace {

QJsonObject lineToJson(const QJsonValue& slope, const QJsonValue& intercept, double dCorrelation)
{
    return {{QStringLiteral("slope"), slope},
            {QStringLiteral("intercept"), intercept},
            {QStringLiteral("correlation"), dCorrelation}};
}

QString lineText(const gkBase::RegressionLine& oLine)
{
    if (!oLine.m_bIsFunction) {
        return text("The regression is not a function");
    }
    return QStringLiteral("y = %1 x %2 %3, R = %4")
        .arg(oLine.m_dSlope, 0, 'g', 10)
        .arg(QLatin1Char(oLine.m_dIntercept < 0.0 ? '-' : '+'))
        .arg(qAbs(oLine.m_dIntercept), 0, 'g', 10)
        .arg(oLine.m_dCorrelation, 0, 'g', 10);
}

} // namespace

RegressionReport regressionReport(const gkBase::MatrixData& x, const gkBase::MatrixData& y)
{
    const std::vector<double> vdX = x.column().numbers();
    const std::vector<double> vdY = y.column().numbers();
    return {x.name(), y.name(), gkBase::chartRegression(vdX, vdY), gkBase::leastSquares(vdX, vdY)};
}

QJsonObject RegressionReport::toJson() const
{
    const auto defined = [this](double dValue) {
        return m_oLeastSquares.m_bIsFunction ? QJsonValue(dValue) : QJsonValue(QJsonValue::Null);
    };
    return {
        {QStringLiteral("n"), static_cast<qint64>(m_oChart.m_iPoints)},
        {QStringLiteral("regression"), lineToJson(m_oChart.m_dSlope, m_oChart.m_dIntercept, m_oChart.m_dCorrelation)},
        {QStringLiteral("leastSquares"),
         lineToJson(defined(m_oLeastSquares.m_dSlope), defined(m_oLeastSquares.m_dIntercept),
                    m_oLeastSquares.m_dCorrelation)}};
}

QString RegressionReport::toText() const
{
    ReportText report(text("%1 on %2").arg(m_sY, m_sX));
    report.addLine(text("points"), QString::number(m_oChart.m_iPoints));
    report.addLine(text("regression"), lineText(m_oChart));
    report.addLine(text("least squares"), lineText(m_oLeastSquares));
    return report.toString();
}

} // namespace gkHost

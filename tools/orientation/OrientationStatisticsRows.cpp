#include "OrientationStatisticsRows.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

/// Decimals of angles: hundredths of a degree, well below what a compass reads and above what rounding hides.
constexpr int g_iAngleDecimals = 2;
constexpr int g_iRatioDecimals = 6;

/// The value of a row, or why there is none.
struct Value
{
    QString m_sText;
    QString m_sReason; ///< empty for a defined one
};

class Rows
{
    Q_DECLARE_TR_FUNCTIONS(gkBase::OrientationStatisticsRows)

public:
    Rows(const OrientationStatistics& oStatistics, bool bWeighted, OrientationConvention eConvention)
        : m_oStatistics(oStatistics)
        , m_bWeighted(bWeighted)
        , m_eConvention(eConvention)
        , m_bPlanes(oStatistics.m_eType == OrientationType::Planes)
        , m_bEmpty(oStatistics.m_oSums.m_iCount == 0)
    {
    }

    std::vector<OrientationStatisticsRow> all()
    {
        addRecords();
        addFisher();
        addMeans();
        addFoldAndSection();
        addShape();
        addEigenvalues();
        addEigenvectors();
        return std::move(m_vRows);
    }

private:
    void addRecords();
    void addOutOfRange();
    void addFisher();
    void addMeans();
    void addWarning();
    void addFoldAndSection();
    void addShape();
    void addEigenvalues();
    void addEigenvectors();

    void add(const QString& sLabel, const Value& value, const QString& sToolTip);
    Value undefined(const QString& sReason) const;
    Value number(double dValue, const QString& sReason, int iDecimals = g_iRatioDecimals) const;
    Value kappa() const;
    Value alpha95() const;
    Value logRatio(double dValue, int iNumerator, int iDenominator) const;
    Value shapeParameter() const;
    Value axisLine(int iAxis) const;
    Value axisPlane(int iAxis) const;
    Value sectionPlane() const;
    Value meanText(bool bPlane) const;
    QString reasonOfAxis(int iAxis) const;
    double eigenvalue(int iAxis) const { return m_oStatistics.m_oAxes.m_adValues[static_cast<std::size_t>(iAxis)]; }
    bool areEqual(int iFirst, int iSecond) const;
    QString noRecords() const { return tr("There is no record with both angles."); }
    QString inPlaneNotation(const QString& sText) const
    {
        return tr("%1 [%2, degrees]").arg(sText, planeHeader(m_eConvention));
    }
    QString inLineNotation(const QString& sText) const { return tr("%1 [%2, degrees]").arg(sText, lineHeader()); }

    const OrientationStatistics& m_oStatistics;
    const bool m_bWeighted;
    const OrientationConvention m_eConvention;
    const bool m_bPlanes;
    const bool m_bEmpty;
    QString m_sGroup;
    std::vector<OrientationStatisticsRow> m_vRows;
};

void Rows::add(const QString& sLabel, const Value& value, const QString& sToolTip)
{
    const QString sTip = value.m_sReason.isEmpty() ? sToolTip : sToolTip + QLatin1Char('\n') + value.m_sReason;
    m_vRows.push_back({m_sGroup, sLabel, value.m_sText, sTip, false, value.m_sReason});
}

Value Rows::undefined(const QString& sReason) const
{
    return {undefinedText(), m_bEmpty ? noRecords() : sReason};
}

Value Rows::number(double dValue, const QString& sReason, int iDecimals) const
{
    if (isMissing(dValue))
        return undefined(sReason);
    return {QString::number(dValue, 'f', iDecimals), {}};
}

// ---- records and Fisher statistics ---------------------------------------------------------------------------------

/// What a null code, or a column that was mixed up with another, leads to: said only where there is such a record.
void Rows::addOutOfRange()
{
    if (m_oStatistics.m_oSums.m_iOutOfRange == 0)
        return;
    add(tr("Out of range"), {QString::number(m_oStatistics.m_oSums.m_iOutOfRange), {}},
        m_bPlanes ? tr("Records whose dip is not from 0° to 90°. They are taken all the same: dips above 90° count as "
                       "overturned planes, negative ones as dips to the opposite side.")
                  : tr("Records whose angle is not from −90° to 90°. They are taken all the same, as lines that were "
                       "turned past the vertical; negative plunges from −90° are in range and count as upward lines."));
}

void Rows::addRecords()
{
    m_sGroup = tr("Records");
    const OrientationSums& oSums = m_oStatistics.m_oSums;
    add(tr("N"), {QString::number(oSums.m_iCount), {}}, tr("Number of records that the statistics take"));
    add(tr("Left out"), {QString::number(oSums.m_iMissing), {}},
        tr("Records without one of their angles, or without a weight"));
    addOutOfRange();
    if (m_bWeighted) {
        add(tr("Effective N"),
            m_bEmpty ? undefined({}) : Value{QString::number(oSums.m_dEffectiveCount, 'f', g_iAngleDecimals), {}},
            tr("Number of equally weighted records that are worth as much: (Σw)² / Σw² of the bias weights w"));
    }
    add(tr("Planes as"), {planeHeader(m_eConvention), {}}, tr("How planes are written below, in degrees"));
    add(tr("Lines as"), {lineHeader(), {}}, tr("How lines and poles are written below, in degrees"));
}

Value Rows::kappa() const
{
    const FisherStatistics& oFisher = m_oStatistics.m_oFisher;
    if (oFisher.m_iCount == 1)
        return undefined(tr("One record has no scatter: κ needs two at least."));
    if (oFisher.m_bKappaUnbounded)
        return {tr("unbounded"), tr("The records coincide: N − R is below 0.0005.")};
    return number(oFisher.m_dKappa, {}, 3);
}

Value Rows::alpha95() const
{
    const FisherStatistics& oFisher = m_oStatistics.m_oFisher;
    Value value = number(oFisher.m_dAlpha95,
                         oFisher.m_iCount < 2 ? tr("A cone of confidence needs two records at least.")
                                              : tr("The records scatter too much for a cone of confidence."),
                         3);
    if (m_bWeighted && value.m_sReason.isEmpty())
        value.m_sReason = tr("It knows nothing of the weights: it takes N where the effective N counts, and is too "
                             "small.");
    return value;
}

void Rows::addFisher()
{
    m_sGroup = tr("Mean Direction (Fisher)");
    const FisherStatistics& oFisher = m_oStatistics.m_oFisher;
    add(tr("Resultant length R"), number(oFisher.m_dResultantLength, {}),
        tr("Length of the sum of the unit vectors, 0 … N"));
    add(tr("Mean resultant length"), number(oFisher.m_dMeanResultantLength, {}),
        tr("R / N: 1 where all directions are the same, 0 where they cancel"));
    add(tr("Spherical variance"), number(oFisher.m_dSphericalVariance, {}), tr("1 − R / N"));
    add(tr("κ"), kappa(), tr("Precision parameter (N − 1) / (N − R): the larger, the closer together"));
    add(tr("α95 [°]"), alpha95(),
        tr("Half the opening angle of the cone that holds the mean with a confidence of 95 %, in degrees"));
    addWarning();
}

// ---- means ---------------------------------------------------------------------------------------------------------

Value Rows::meanText(bool bPlane) const
{
    const FisherStatistics& oFisher = m_oStatistics.m_oFisher;
    if (isMissing(oFisher.m_oMeanLine.m_dPlunge))
        return undefined(tr("The unit vectors cancel: the resultant has no direction."));
    return {bPlane ? planeText(oFisher.m_oMeanPlane, m_eConvention, g_iAngleDecimals)
                   : lineText(oFisher.m_oMeanLine, g_iAngleDecimals),
            {}};
}

void Rows::addWarning()
{
    if (!m_oStatistics.m_bMeanMisleads)
        return;
    const Value mean = m_bPlanes ? axisPlane(2) : axisLine(2);
    QString sText = tr("The vector mean misleads: the mean resultant length is only %1 although the largest eigenvalue "
                       "has %2 of the total. Axes that lie "
                       "close together cancel as vectors where they point to opposite sides.")
                        .arg(m_oStatistics.m_oFisher.m_dMeanResultantLength, 0, 'f', 2)
                        .arg(eigenvalueShare(m_oStatistics.m_oAxes, 2), 0, 'f', 2);
    if (mean.m_sReason.isEmpty()) {
        const QString sUse = m_bPlanes ? tr("Use the mean principal plane, %1, instead.")
                                       : tr("Use the mean principal line, %1, instead.");
        sText += QLatin1Char(' ') + sUse.arg(mean.m_sText);
    }
    const QString sToolTip = m_bPlanes ? tr("Typical of steep planes that dip both ways")
                                       : tr("Typical of flat lines that plunge both ways");
    m_vRows.push_back({m_sGroup, tr("Warning"), sText, sToolTip, true, {}});
}

void Rows::addMeans()
{
    m_sGroup = tr("Means");
    const QString sResultant = tr("Direction of the sum of the unit vectors");
    const QString sPrincipal = tr("Axis of the largest eigenvalue: right for axes, also where vectors cancel");
    if (!m_bPlanes) {
        add(tr("Mean resultant line"), meanText(false), inLineNotation(sResultant));
        add(tr("Mean principal line"), axisLine(2), inLineNotation(sPrincipal));
        return;
    }
    add(tr("Mean resultant plane"), meanText(true), inPlaneNotation(sResultant));
    add(tr("Mean principal plane"), axisPlane(2), inPlaneNotation(sPrincipal));
    add(tr("Mean resultant pole"), meanText(false), inLineNotation(sResultant));
    add(tr("Mean principal pole"), axisLine(2), inLineNotation(sPrincipal));
}

// ---- axes ----------------------------------------------------------------------------------------------------------

bool Rows::areEqual(int iFirst, int iSecond) const
{
    return areEigenvaluesEqual(m_oStatistics.m_oAxes, iFirst, iSecond);
}

/// Empty for an axis that the records define.
QString Rows::reasonOfAxis(int iAxis) const
{
    if (!m_oStatistics.m_oAxes.isDefined())
        return m_bEmpty ? noRecords() : tr("The orientation matrix has no eigenvalues.");
    const bool bBelow = iAxis > 0 && areEqual(iAxis - 1, iAxis);
    const bool bAbove = iAxis < 2 && areEqual(iAxis, iAxis + 1);
    if (bBelow && bAbove)
        return tr("All eigenvalues are equal: the records favour no axis.");
    if (bBelow || bAbove)
        return tr("Two eigenvalues are equal: any axis at right angles to the third fits as well.");
    return {};
}

Value Rows::axisLine(int iAxis) const
{
    const QString sReason = reasonOfAxis(iAxis);
    if (!sReason.isEmpty())
        return undefined(sReason);
    return {lineText(m_oStatistics.m_oAxes.m_aoLines[static_cast<std::size_t>(iAxis)], g_iAngleDecimals), {}};
}

Value Rows::axisPlane(int iAxis) const
{
    const QString sReason = reasonOfAxis(iAxis);
    if (!sReason.isEmpty())
        return undefined(sReason);
    const PlaneOrientation& oPlane = m_oStatistics.m_oAxes.m_aoPlanes[static_cast<std::size_t>(iAxis)];
    return {planeText(oPlane, m_eConvention, g_iAngleDecimals), {}};
}

Value Rows::sectionPlane() const
{
    const QString sReason = reasonOfAxis(1);
    if (!sReason.isEmpty())
        return undefined(sReason);
    if (isMissing(m_oStatistics.m_oSectionPlane.m_dDip))
        return undefined(tr("The resultant mean is undefined, so that the records cannot be turned to it."));
    return {planeText(m_oStatistics.m_oSectionPlane, m_eConvention, g_iAngleDecimals), {}};
}

void Rows::addFoldAndSection()
{
    m_sGroup = m_bPlanes ? tr("Fold and Section") : tr("Girdle and Section");
    add(tr("Best-fit girdle"), axisPlane(0),
        inPlaneNotation(m_bPlanes ? tr("The plane that holds the poles best")
                                  : tr("The plane that holds the lines best")));
    add(m_bPlanes ? tr("Fold axis") : tr("Pole of girdle"), axisLine(0),
        inLineNotation(tr("The pole of the girdle, the axis of the smallest eigenvalue")));
    const QString sT = tr("T: direction of most change of dip, the axis of the middle eigenvalue");
    const QString sL = tr("L: direction of least change of dip, the axis of the smallest eigenvalue");
    add(tr("T azimuth"), axisLine(1), inLineNotation(sT));
    if (m_bPlanes)
        add(tr("T plane"), axisPlane(1), inPlaneNotation(sT + tr("; the plane with this pole")));
    add(tr("L azimuth"), axisLine(0), inLineNotation(sL));
    if (m_bPlanes)
        add(tr("L plane"), axisPlane(0), inPlaneNotation(sL + tr("; the plane with this pole")));
    add(tr("Suggested section"), sectionPlane(),
        inPlaneNotation(tr("The plane at right angles to the middle axis, once the records were turned so that their "
                           "resultant mean lies in the centre of the net")));
}

// ---- shape ---------------------------------------------------------------------------------------------------------

/// ln of the ratio of two eigenvalues, which Woodcock's formulas write as 0 where it is unbounded.
Value Rows::logRatio(double dValue, int iNumerator, int iDenominator) const
{
    if (!m_oStatistics.m_oAxes.isDefined() || eigenvalue(iNumerator) <= 0.0)
        return undefined(tr("Both eigenvalues are 0."));
    if (eigenvalue(iDenominator) <= 0.0) {
        return {tr("unbounded"), iDenominator == 0 ? tr("The smallest eigenvalue is 0: the records lie in one plane.")
                                                   : tr("Two eigenvalues are 0: the records coincide.")};
    }
    return number(dValue, {});
}

Value Rows::shapeParameter() const
{
    const WoodcockParameters& oWoodcock = m_oStatistics.m_oWoodcock;
    if (!m_oStatistics.m_oAxes.isDefined())
        return undefined({});
    if (eigenvalue(0) <= 0.0)
        return undefined(tr("ln(S2/S3) is unbounded or undefined, because the smallest eigenvalue is 0."));
    if (areEqual(0, 1))
        return undefined(tr("ln(S2/S3) is 0: the two smaller eigenvalues are equal."));
    return number(oWoodcock.m_dK, {});
}

void Rows::addShape()
{
    m_sGroup = tr("Shape (Woodcock, Mardia)");
    const WoodcockParameters& oWoodcock = m_oStatistics.m_oWoodcock;
    add(tr("ln(S1/S2)"), logRatio(oWoodcock.m_dLnS1S2, 2, 1), tr("Largest to middle eigenvalue"));
    add(tr("ln(S2/S3)"), logRatio(oWoodcock.m_dLnS2S3, 1, 0), tr("Middle to smallest eigenvalue"));
    add(tr("K"), shapeParameter(), tr("Shape ln(S1/S2) / ln(S2/S3): above 1 a cluster, below 1 a girdle"));
    add(tr("C"), logRatio(oWoodcock.m_dC, 2, 0),
        tr("Strength ln(S1/S3) of the preferred orientation: 0 for a uniform distribution"));
    const QString sShape = QString::fromStdString(m_oStatistics.m_oShape.m_sText).trimmed();
    add(tr("Classification"), sShape.isEmpty() ? undefined(noRecords()) : Value{sShape, {}},
        tr("After Mardia, by the shares of the eigenvalues and R / N"));
    add(tr("Unimodal"), m_bEmpty ? undefined({}) : Value{m_oStatistics.m_oShape.m_bUnimodal ? tr("yes") : tr("no"), {}},
        tr("The classification found one preferred direction: R / N of 0.9 or more"));
}

void Rows::addEigenvalues()
{
    m_sGroup = tr("Eigenvalues");
    const QString asLabels[] = {tr("e1 = S3"), tr("e2 = S2"), tr("e3 = S1")};
    for (int i = 0; i < 3; ++i) {
        add(asLabels[i], number(eigenvalue(i), {}),
            tr("Eigenvalue of the orientation matrix, whose trace is N; e1 ≤ e2 ≤ e3"));
    }
    const QString asShares[] = {tr("e1 / N"), tr("e2 / N"), tr("e3 / N")};
    for (int i = 0; i < 3; ++i)
        add(asShares[i], number(eigenvalueShare(m_oStatistics.m_oAxes, i), {}), tr("Share of the eigenvalue in N"));
}

void Rows::addEigenvectors()
{
    m_sGroup = tr("Eigenvectors");
    const QString asLabels[] = {tr("v1 (smallest)"), tr("v2 (middle)"), tr("v3 (largest)")};
    for (int i = 0; i < 3; ++i)
        add(asLabels[i], axisLine(i), inLineNotation(tr("Axis of the eigenvalue e%1").arg(i + 1)));
}

} // namespace

QString orientationStatisticsTitle(const OrientationStatistics& oStatistics, bool bOfPlanes)
{
    if (oStatistics.m_eType == OrientationType::Planes)
        return QCoreApplication::translate("gkBase::OrientationStatisticsRows", "Poles of Planes");
    return bOfPlanes ? QCoreApplication::translate("gkBase::OrientationStatisticsRows", "Dip Lines")
                     : QCoreApplication::translate("gkBase::OrientationStatisticsRows", "Lines");
}

std::vector<OrientationStatisticsRow> orientationStatisticsRows(const OrientationStatistics& oStatistics,
                                                                bool bWeighted, OrientationConvention eConvention)
{
    return Rows(oStatistics, bWeighted, eConvention).all();
}

QString tabSeparatedText(const std::vector<OrientationStatisticsRow>& vRows)
{
    QStringList lLines;
    QString sGroup;
    for (const OrientationStatisticsRow& row : vRows) {
        if (row.m_sGroup != sGroup)
            lLines << row.m_sGroup;
        sGroup = row.m_sGroup;
        QString sValue = row.m_sValue;
        lLines << row.m_sLabel + QLatin1Char('\t') + sValue.replace(QLatin1Char('\n'), QLatin1Char(' '));
    }
    return lLines.isEmpty() ? QString() : lLines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

} // namespace gkBase

#include "AxisTicks.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Powers of ten up to 22 are exact doubles; further ones are as exact as the library makes them.
double powerOfTen(int iExponent)
{
    return std::pow(10.0, iExponent);
}

/// How far beyond a bound, in steps, a tick still counts as standing on it: bounds that came through a unit conversion
/// miss their round value by a few rounding errors.
constexpr double g_dBoundTolerance = 1e-7;

double firstIndex(double dMin, const NiceStep& oStep)
{
    return std::ceil(dMin / oStep.value() - g_dBoundTolerance);
}

double lastIndex(double dMax, const NiceStep& oStep)
{
    return std::floor(dMax / oStep.value() + g_dBoundTolerance);
}

/// Multiples of the step from index dFirst to dLast. Stops at a limit that no axis reaches, so that no input can ask
/// for an absurd list, and drops neighbours that are the same double.
QList<double> multiples(const NiceStep& oStep, double dFirst, double dLast, int iLimit)
{
    QList<double> vValues;
    if (!(dLast - dFirst < iLimit))
        return vValues;
    const int nValues = std::max(0, static_cast<int>(dLast - dFirst) + 1);
    vValues.reserve(nValues);
    for (int i = 0; i < nValues; ++i) {
        const double dIndex = dFirst + i;
        const double dValue = dIndex == 0.0 ? 0.0 : oStep.multiple(dIndex);
        if (vValues.isEmpty() || dValue > vValues.last())
            vValues.append(dValue);
    }
    return vValues;
}

/// 1 is divided into fifths, 2 into quarters and 5 into fifths, which are 1-2-5 steps again.
NiceStep minorStep(const NiceStep& oStep)
{
    switch (oStep.m_iMantissa) {
    case 1:
        return {2, oStep.m_iExponent - 1};
    case 2:
        return {5, oStep.m_iExponent - 1};
    default:
        return {1, oStep.m_iExponent};
    }
}

QString groupedByThrees(QString sNumber)
{
    constexpr QChar narrowNoBreakSpace(0x202F);
    const qsizetype iPoint = sNumber.indexOf(QLatin1Char('.'));
    const qsizetype iFirst = sNumber.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (qsizetype iPos = (iPoint < 0 ? sNumber.size() : iPoint) - 3; iPos > iFirst; iPos -= 3)
        sNumber.insert(iPos, narrowNoBreakSpace);
    return sNumber;
}

/// "1.25e+07" becomes "1.25e7", "1e-07" becomes "1e-7".
QString scientific(double dValue, int iMantissaDecimals)
{
    const QString sNumber = QString::number(dValue, 'e', iMantissaDecimals);
    const qsizetype iExponent = sNumber.indexOf(QLatin1Char('e'));
    return sNumber.left(iExponent + 1) + QString::number(sNumber.mid(iExponent + 1).toInt());
}

int decimalExponent(double dValue)
{
    return static_cast<int>(std::floor(std::log10(dValue)));
}

} // namespace

double NiceStep::multiple(double dIndex) const
{
    const double dFactor = dIndex * m_iMantissa;
    return m_iExponent < 0 ? dFactor / powerOfTen(-m_iExponent) : dFactor * powerOfTen(m_iExponent);
}

NiceStep NiceStep::next() const
{
    switch (m_iMantissa) {
    case 1:
        return {2, m_iExponent};
    case 2:
        return {5, m_iExponent};
    case 5:
        return {1, m_iExponent + 1};
    default:
        return {};
    }
}

bool isTickableRange(double dMin, double dMax)
{
    constexpr double dSmallestWidth = 1e-280;
    constexpr double dDistinguishable = 1e-11; // leaves every index of a minor tick a whole number below 2^53
    const double dWidth = dMax - dMin;
    return std::isfinite(dWidth) && dWidth > dSmallestWidth &&
           dWidth > dDistinguishable * std::max(std::abs(dMin), std::abs(dMax));
}

NiceStep niceStep(double dMin, double dMax, int iMaxSteps)
{
    if (!isTickableRange(dMin, dMax))
        return {};
    const double dLeast = (dMax - dMin) / std::clamp(iMaxSteps, 1, g_iMaxMajorTicks);
    // log10 may be off by one in the last place at powers of ten: start one decade below and walk up.
    NiceStep oStep{1, decimalExponent(dLeast) - 1};
    while (oStep.value() < dLeast * (1.0 - 1e-9))
        oStep = oStep.next();
    return oStep;
}

void niceRange(double& dMin, double& dMax, int iMaxSteps)
{
    if (dMin > dMax)
        std::swap(dMin, dMax);
    const NiceStep oStep = niceStep(dMin, dMax, iMaxSteps);
    if (!oStep.isValid())
        return;
    const double dNewMin = oStep.multiple(std::floor(dMin / oStep.value() + g_dBoundTolerance));
    const double dNewMax = oStep.multiple(std::ceil(dMax / oStep.value() - g_dBoundTolerance));
    // The bounds only ever widen; the tolerance must not cut off a value that lies just outside a multiple.
    dMin = std::min(dMin, dNewMin == 0.0 ? 0.0 : dNewMin);
    dMax = std::max(dMax, dNewMax == 0.0 ? 0.0 : dNewMax);
}

AxisTicks axisTicks(double dMin, double dMax, const NiceStep& oStep)
{
    AxisTicks oTicks;
    if (!std::isfinite(dMin) || !std::isfinite(dMax))
        return oTicks;
    if (!oStep.isValid() || !isTickableRange(dMin, dMax)) {
        const double dValue = dMin / 2 + dMax / 2;
        oTicks.m_vMajor = {dValue};
        oTicks.m_lLabels = {QString::number(dValue, 'g', 6)};
        return oTicks;
    }
    oTicks.m_oStep = oStep;
    oTicks.m_vMajor = multiples(oStep, firstIndex(dMin, oStep), lastIndex(dMax, oStep), 2 * g_iMaxMajorTicks);
    oTicks.m_lLabels = axisLabels(oTicks.m_vMajor, oStep);

    const NiceStep oMinor = minorStep(oStep);
    const QList<double> vMinor =
        multiples(oMinor, firstIndex(dMin, oMinor), lastIndex(dMax, oMinor), 12 * g_iMaxMajorTicks);
    const double dSame = 0.1 * oMinor.value();
    qsizetype iMajor = 0;
    for (const double dValue : vMinor) {
        while (iMajor < oTicks.m_vMajor.size() && oTicks.m_vMajor[iMajor] < dValue - dSame)
            ++iMajor;
        if (iMajor == oTicks.m_vMajor.size() || oTicks.m_vMajor[iMajor] > dValue + dSame)
            oTicks.m_vMinor.append(dValue);
    }
    return oTicks;
}

AxisTicks fittedAxisTicks(const AxisScale& oScale, const LabelExtent& labelExtent, double dGap, double dMinSpacing,
                          double dSmallestStep)
{
    const double dMin = oScale.minValue();
    const double dMax = oScale.maxValue();
    if (!oScale.isValid() || !isTickableRange(dMin, dMax))
        return axisTicks(dMin, dMax, {});

    const double dPixelsPerUnit = std::abs(oScale.map().pixelsPerUnit());
    const double dLength = oScale.chartLength();
    NiceStep oStep = niceStep(dMin, dMax, static_cast<int>(std::clamp(dLength / dMinSpacing, 1.0, 1.0e6)));
    while (oStep.m_iMantissa != 0 && oStep.value() < dSmallestStep)
        oStep = oStep.next();
    for (;;) {
        const AxisTicks oTicks = axisTicks(dMin, dMax, oStep);
        if (oTicks.m_vMajor.size() <= 1) {
            // Nothing left to thin out. One number is no scale: a short axis may have its ticks closer.
            return dMinSpacing > dGap ? fittedAxisTicks(oScale, labelExtent, dGap, dGap, dSmallestStep) : oTicks;
        }
        double dLongest = 0.0;
        for (const QString& sLabel : oTicks.m_lLabels)
            dLongest = std::max(dLongest, labelExtent(sLabel));
        // A label that is pushed inside at an end may lie on its neighbour even where the ticks stand apart.
        const bool bApart = oStep.value() * dPixelsPerUnit >= dLongest + dGap;
        if (bApart &&
            placeLabels(oScale, oTicks, labelExtent, 0, oScale.chartLength()).size() == oTicks.m_vMajor.size())
            return oTicks;
        oStep = oStep.next();
    }
}

QStringList axisLabels(const QList<double>& vValues, const NiceStep& oStep)
{
    QStringList lLabels;
    double dLargest = 0.0;
    for (const double dValue : vValues)
        dLargest = std::max(dLargest, std::abs(dValue));
    const bool bGrouped = dLargest >= 1e5;
    // Very small steps have more decimals than a double can hold; the exponent form is shorter then.
    const int iDecimals = std::min(oStep.decimals(), 300);
    const int iMantissaDecimals = dLargest > 0.0 ? std::clamp(decimalExponent(dLargest) - oStep.m_iExponent, 0, 16) : 0;

    const auto fixed = [&](double dValue) {
        const QString sNumber = QString::number(dValue, 'f', iDecimals);
        return bGrouped ? groupedByThrees(sNumber) : sNumber;
    };
    const bool bMayNeedExponent = dLargest >= 1e7 || iDecimals > 4;
    const bool bScientific =
        bMayNeedExponent && scientific(dLargest, iMantissaDecimals).size() < fixed(dLargest).size();
    lLabels.reserve(vValues.size());
    for (const double dValue : vValues) {
        if (dValue == 0.0)
            lLabels.append(bScientific ? QStringLiteral("0") : fixed(0.0));
        else
            lLabels.append(bScientific ? scientific(dValue, iMantissaDecimals) : fixed(dValue));
    }
    return lLabels;
}

QList<AxisLabelPlace> placeLabels(const AxisScale& oScale, const AxisTicks& oTicks, const LabelExtent& labelExtent,
                                  int iOffset, int iLength)
{
    QList<AxisLabelPlace> vPlaces;
    for (int iTick = 0; iTick < oTicks.m_vMajor.size(); ++iTick) {
        const double dTick = oScale.toPixel(oTicks.m_vMajor[iTick]) - iOffset;
        if (!(dTick > -1.0 && dTick < iLength + 1.0))
            continue;
        const double dExtent = labelExtent(oTicks.m_lLabels[iTick]);
        if (dExtent > iLength)
            continue;
        vPlaces.append({iTick, std::clamp(dTick - dExtent / 2, 0.0, iLength - dExtent), dExtent});
    }
    if (vPlaces.size() > 1 && vPlaces.first().m_dStart > vPlaces.last().m_dStart)
        std::reverse(vPlaces.begin(), vPlaces.end());

    // Labels that were pushed inside at an end may touch their neighbour; the ones at the ends stay.
    QList<AxisLabelPlace> vKept;
    for (qsizetype i = 0; i < vPlaces.size(); ++i) {
        const AxisLabelPlace& oPlace = vPlaces[i];
        const bool bAfterLast = vKept.isEmpty() || oPlace.m_dStart >= vKept.last().m_dStart + vKept.last().m_dLength;
        if (bAfterLast)
            vKept.append(oPlace);
        else if (i == vPlaces.size() - 1 && vKept.size() > 1)
            vKept.last() = oPlace;
    }
    return vKept;
}

} // namespace gkBase

#pragma once

#include "AxisScale.h"
#include "gkBaseQtExport.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace gkBase {

/// A step of an axis: 1, 2 or 5 times a power of ten, kept as two integers so that its multiples are the decimal
/// numbers that their labels show (3 × 0.1 is 0.3, not 0.30000000000000004).
struct GKBASEQT_EXPORT NiceStep
{
    int m_iMantissa = 0; ///< 1, 2 or 5; 0 means that there is no step
    int m_iExponent = 0;

    bool isValid() const { return m_iMantissa != 0; }
    double value() const { return multiple(1.0); }
    /// dIndex is a whole number.
    double multiple(double dIndex) const;
    /// The next larger step.
    NiceStep next() const;
    /// Decimals that a multiple of the step needs in fixed notation.
    int decimals() const { return m_iExponent < 0 ? -m_iExponent : 0; }
};

/// What an axis shows, in the units of the scale that it was made for, values rising.
struct GKBASEQT_EXPORT AxisTicks
{
    NiceStep m_oStep;
    QList<double> m_vMajor;
    QStringList m_lLabels;  ///< one for each major tick
    QList<double> m_vMinor; ///< between the major ticks, and before the first and after the last one
};

/// Where one label stands along the axis, in pixels of the visible area.
struct AxisLabelPlace
{
    int m_iTick = 0; ///< index into the major ticks
    double m_dStart = 0.0;
    double m_dLength = 0.0;
};

/// No axis has more major ticks than this, however long the chart picture is.
inline constexpr int g_iMaxMajorTicks = 2000;

/// Length of a label along the axis, in pixels.
using LabelExtent = std::function<double(const QString&)>;

/// True when steps inside the range can be told apart as doubles: finite bounds of a width that is neither vanishing
/// against the values nor below 1e-280.
GKBASEQT_EXPORT bool isTickableRange(double dMin, double dMax);

/// The smallest 1-2-5 step of which at most iMaxSteps (1 … g_iMaxMajorTicks, clamped) fit into the range; no step for a
/// range that isTickableRange() refuses.
GKBASEQT_EXPORT NiceStep niceStep(double dMin, double dMax, int iMaxSteps);

/// Widens a range to whole multiples of the 1-2-5 step that divides it into at most iMaxSteps parts. Bounds in the
/// wrong order are exchanged; a range without width or with bounds that are not finite stays as it is.
GKBASEQT_EXPORT void niceRange(double& dMin, double& dMax, int iMaxSteps = 10);

/// Ticks at the multiples of the step that lie in the range. A range without width but with a finite value gets one
/// tick, at that value; a range that is not finite gets none.
GKBASEQT_EXPORT AxisTicks axisTicks(double dMin, double dMax, const NiceStep& oStep);

/// Ticks of the finest step whose labels stand at least dGap pixels apart along the axis, with ticks at least
/// dMinSpacing apart unless that leaves a single one; all labels have room on the whole chart picture. No step is
/// smaller than dSmallestStep (1 for counts).
GKBASEQT_EXPORT AxisTicks fittedAxisTicks(const AxisScale& oScale, const LabelExtent& labelExtent, double dGap,
                                          double dMinSpacing, double dSmallestStep = 0.0);

/// The labels of multiples of a step: as many decimals as the step needs, digits grouped by threes from 100 000 on, and
/// an exponent where that is shorter. All labels of one axis have the same form.
GKBASEQT_EXPORT QStringList axisLabels(const QList<double>& vValues, const NiceStep& oStep);

/// The labels that are seen when iOffset pixels of the chart picture lie before the visible area of iLength pixels:
/// centred at their ticks, pushed inside at the ends, none upon another, none outside. Ordered along the axis.
GKBASEQT_EXPORT QList<AxisLabelPlace> placeLabels(const AxisScale& oScale, const AxisTicks& oTicks,
                                                  const LabelExtent& labelExtent, int iOffset, int iLength);

} // namespace gkBase

#include "DepthTrack.h"

#include "AngleUnits.h"
#include "AxisTicks.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "UnitManager.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

namespace {

constexpr double g_dSteepestDip = 90.0;
constexpr double g_dFullCircle = 360.0;
/// Round limits of a track lie at most this many round steps apart; its grid has as many columns.
constexpr int g_iLimitSteps = 5;
/// A curve of one value stands in the middle of this share of it to each side.
constexpr double g_dMarginOfOneValue = 0.1;

bool isAzimuth(const MatrixData& node)
{
    const MatrixData* poDataSet = node.owner();
    return poDataSet && poDataSet->azimuthAttribute() == &node;
}

/// bRoomForSymbols: no value lies on a limit, where half of its symbol would be cut.
DepthTrackLimits rangeOf(const MatrixData& node, bool bRoomForSymbols)
{
    double dMin = g_dMissingValue;
    double dMax = g_dMissingValue;
    node.getMinMax(dMin, dMax);
    if (isMissing(dMin) || isMissing(dMax))
        return {};
    const boost::shared_ptr<UnitManager> poUnit = node.unitManager();
    dMin = poUnit->convertModelToDisplay(dMin);
    dMax = poUnit->convertModelToDisplay(dMax);
    if (dMin > dMax) // a unit may turn the order of values round
        std::swap(dMin, dMax);
    if (!(dMin < dMax)) {
        const double dMargin = dMin == 0.0 ? 1.0 : std::abs(dMin) * g_dMarginOfOneValue;
        dMin -= dMargin;
        dMax += dMargin;
    }
    const double dLeast = dMin;
    const double dGreatest = dMax;
    niceRange(dMin, dMax, g_iLimitSteps);
    if (bRoomForSymbols) {
        const double dStep = niceStep(dMin, dMax, g_iLimitSteps).value();
        dMin -= dMin == dLeast ? dStep : 0.0;
        dMax += dMax == dGreatest ? dStep : 0.0;
    }
    return {poUnit->convertDisplayToModel(dMin), poUnit->convertDisplayToModel(dMax)};
}

DepthTrackLimits automaticLimits(const DepthTrack& track)
{
    if (track.m_eKind == DepthTrack::Tadpoles)
        return {0.0, g_dSteepestDip};
    const MatrixData* poNode = track.m_poValues.get();
    if (!poNode)
        return {};
    if (isAzimuth(*poNode))
        return {0.0, g_dFullCircle};
    return rangeOf(*poNode, track.m_oStyle.m_bPoints);
}

} // namespace

DepthTrack DepthTrack::curve(MatrixData* poValues)
{
    DepthTrack track;
    track.m_poValues = MatrixDataPointer(poValues);
    return track;
}

DepthTrack DepthTrack::tadpoles(MatrixData* poDip, MatrixData* poAzimuth)
{
    DepthTrack track = curve(poDip);
    track.m_eKind = Tadpoles;
    track.m_poAzimuth = MatrixDataPointer(poAzimuth);
    track.m_oStyle.m_bLine = false;
    track.m_oStyle.m_bPoints = true;
    track.m_oStyle.m_iPointSize = 3;
    return track;
}

bool DepthTrack::uses(const MatrixData* poBranch) const
{
    return MatrixDataNotifier::contains(poBranch, m_poValues.get()) ||
           MatrixDataNotifier::contains(poBranch, m_poAzimuth.get()) ||
           MatrixDataNotifier::contains(poBranch, m_poQuality.get());
}

QString DepthTrack::name() const
{
    const MatrixData* poNode = m_poValues.get();
    if (!poNode)
        return {};
    if (!m_sTitle.isEmpty())
        return m_sTitle;
    const MatrixData* poAzimuth = m_poAzimuth.get();
    return m_eKind == Tadpoles && poAzimuth ? poNode->name() + QLatin1String(" / ") + poAzimuth->name()
                                            : poNode->name();
}

QString DepthTrack::unitTag() const
{
    const MatrixData* poNode = m_poValues.get();
    return poNode ? poNode->unitManager()->getDisplayUnitTag() : QString();
}

QColor DepthTrack::color() const
{
    if (m_oStyle.m_oColor.isValid())
        return m_oStyle.m_oColor;
    const MatrixData* poNode = m_poValues.get();
    return poNode ? poNode->color() : QColor(Qt::gray);
}

QColor DepthTrack::pointColor() const
{
    return m_oStyle.m_oPointColor.isValid() ? m_oStyle.m_oPointColor : color();
}

double DepthTrack::fullTurn() const
{
    const MatrixData* poNode = m_poValues.get();
    const bool bDirections = poNode && m_eKind == Curve && (m_bDirections || isAzimuth(*poNode));
    return bDirections ? g_dFullCircle / degreesPerUnit(*poNode) : g_dMissingValue;
}

QString DepthTrack::displayText(double dValue) const
{
    const MatrixData* poNode = m_poValues.get();
    if (!poNode || isMissing(dValue))
        return {};
    return QString::number(poNode->unitManager()->convertModelToDisplay(dValue), 'g', 6);
}

DepthTrackLimits DepthTrack::limits() const
{
    DepthTrackLimits limits{m_oStyle.m_dMinimum, m_oStyle.m_dMaximum};
    const bool bUsable = !isMissing(limits.m_dLeft) && !isMissing(limits.m_dRight) && limits.m_dLeft != limits.m_dRight;
    if (m_oStyle.m_bAutomaticLimits || !bUsable)
        limits = automaticLimits(*this);
    if (m_oStyle.m_bReversed)
        std::swap(limits.m_dLeft, limits.m_dRight);
    return limits;
}

} // namespace gkBase

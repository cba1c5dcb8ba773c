#include "StereoResults.h"

#include "DirectionCosines.h"
#include "QRelationshipItemModel.h"

#include <QCoreApplication>

namespace gkBase {

namespace {

StereoResultItem::Kind kindOf(StereoResult eResult)
{
    if (eResult == StereoResult::ConfidenceCone) {
        return StereoResultItem::Kind::SmallCircle;
    }
    if (isStereoCircle(eResult)) {
        return StereoResultItem::Kind::GreatCircle;
    }
    return eResult < StereoResult::MeanResultantAzimuth ? StereoResultItem::Kind::Pole : StereoResultItem::Kind::Line;
}

/// The plane across a line.
QPointF planeAcross(const QPointF& oLine)
{
    const PlaneOrientation oPlane = planeOfPole(LineOrientation{oLine.x(), oLine.y()});
    return {oPlane.m_dDip, oPlane.m_dDipAzimuth};
}

QPointF orientationOf(const QRelationshipItemModel& model, StereoResult eResult)
{
    const bool bLines = model.linesAreShown();
    switch (eResult) {
    case StereoResult::MeanResultantPole:
    case StereoResult::MeanResultantPlane:
        return model.meanResultantPole();
    case StereoResult::MeanPrincipalPole:
    case StereoResult::MeanPrincipalPlane:
        return model.meanPrincipalPlane();
    case StereoResult::TPole:
        return model.TdirectionPlane();
    case StereoResult::LPole:
        return model.LdirectionPlane();
    case StereoResult::MeanResultantAzimuth:
        return model.meanResultantDipDirection();
    case StereoResult::MeanPrincipalAzimuth:
        return model.meanPrincipalDipDirection();
    case StereoResult::TAzimuth:
        return model.TdirectionDipDirection();
    case StereoResult::LAzimuth:
        return model.LdirectionDipDirection();
    case StereoResult::SuggestedSectionPlane:
        return bLines ? planeAcross(model.suggestedSectionDipDirection()) : model.suggestedSectionPlane();
    case StereoResult::BestFitGirdle:
        return bLines ? planeAcross(model.LdirectionDipDirection()) : model.LdirectionPlane();
    case StereoResult::ConfidenceCone:
        break; // needs an angle besides
    }
    return {g_dMissingValue, g_dMissingValue};
}

QString labelOf(StereoResult eResult)
{
    return QCoreApplication::translate("StereoResult", stereoResultName(eResult));
}

void addCone(std::vector<StereoResultItem>& vItems, const QRelationshipItemModel& model,
             const StereoNetSettings& settings)
{
    const bool bPoles = settings.m_iProjectionTarget == 0 && !model.linesAreShown();
    const FisherStatistics oFisher = model.orientationStatistics(bPoles, model.partSelection()).m_oFisher;
    if (isMissing(oFisher.m_dAlpha95) || isMissing(oFisher.m_oMeanLine.m_dPlunge)) {
        return;
    }
    constexpr StereoResult eResult = StereoResult::ConfidenceCone;
    vItems.push_back({eResult,
                      kindOf(eResult),
                      {oFisher.m_oMeanLine.m_dPlunge, oFisher.m_oMeanLine.m_dAzimuth},
                      settings.result(eResult),
                      labelOf(eResult),
                      oFisher.m_dAlpha95});
}

} // namespace

std::vector<StereoResultItem> stereoResults(const QRelationshipItemModel& model, const StereoNetSettings& settings)
{
    std::vector<StereoResultItem> vItems;
    for (std::size_t i = 0; i < g_iStereoResults; ++i) {
        const auto eResult = static_cast<StereoResult>(i);
        const StereoResultStyle& style = settings.result(eResult);
        if (eResult == StereoResult::ConfidenceCone) {
            if (style.m_bShow) {
                addCone(vItems, model, settings);
            }
            continue;
        }
        const QPointF oOrientation = style.m_bShow ? orientationOf(model, eResult) : QPointF(g_dMissingValue, 0.0);
        if (!isMissing(oOrientation.x()) && !isMissing(oOrientation.y())) {
            vItems.push_back({eResult, kindOf(eResult), oOrientation, style, labelOf(eResult)});
        }
    }
    return vItems;
}

} // namespace gkBase

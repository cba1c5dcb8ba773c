#pragma once

#include "StereoNetSettings.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QString>

#include <vector>

namespace gkBase {

class QRelationshipItemModel;

/// A result of a model as a stereonet draws it.
struct StereoResultItem
{
    enum class Kind
    {
        Pole,        ///< of a plane
        Line,        ///< a line
        GreatCircle, ///< of a plane
        SmallCircle  ///< about a line
    };

    StereoResult m_eResult = StereoResult::MeanResultantPole;
    Kind m_eKind = Kind::Pole;
    QPointF m_oOrientation; ///< (dip, dip azimuth) or, of a line or a small circle, (plunge, azimuth), degrees
    StereoResultStyle m_oStyle;
    QString m_sLabel;      ///< translated
    double m_dAngle = 0.0; ///< between a small circle and its axis, degrees

    bool isCircle() const { return m_eKind == Kind::GreatCircle || m_eKind == Kind::SmallCircle; }
};

/// The results of the model that the settings show, in their order; undefined ones are left out. Planes: the best-fit
/// girdle is the plane whose pole is the smallest eigenvector. Lines have no mean planes; their girdle and their
/// section are the planes across the lines that the model found. The cone of confidence is that of the mean resultant
/// of what is drawn as points: poles or lines.
GKBASETOOLS_EXPORT std::vector<StereoResultItem> stereoResults(const QRelationshipItemModel& model,
                                                               const StereoNetSettings& settings);

} // namespace gkBase

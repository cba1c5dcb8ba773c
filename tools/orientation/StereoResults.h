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
        Pole,       ///< of a plane
        Line,       ///< a line
        GreatCircle ///< of a plane
    };

    StereoResult m_eResult = StereoResult::MeanResultantPole;
    Kind m_eKind = Kind::Pole;
    QPointF m_oOrientation; ///< (dip, dip azimuth) or, of a line, (plunge, azimuth), degrees
    StereoResultStyle m_oStyle;
    QString m_sLabel; ///< translated
};

/// The results of the model that the settings show, in their order; undefined ones are left out. Planes: the best-fit
/// girdle is the plane whose pole is the smallest eigenvector. Lines have no mean planes; their girdle and their
/// section are the planes across the lines that the model found.
GKBASETOOLS_EXPORT std::vector<StereoResultItem> stereoResults(const QRelationshipItemModel& model,
                                                               const StereoNetSettings& settings);

} // namespace gkBase

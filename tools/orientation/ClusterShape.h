#pragma once

#include "PointStyle.h"
#include "WoodcockParameters.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QString>

#include <cstddef>

namespace gkBase {

/// A subset of orientation records and the shape of its distribution, as Woodcock diagram, its table and the report
/// show it.
struct ClusterShape
{
    QString m_sName;          ///< "1", "All"
    std::size_t m_iCount = 0; ///< records
    WoodcockParameters m_oParameters;
    QColor m_oColor;
    int m_iSymbol = PointStyle::Circle;
};

/// False without records and where a ratio is unbounded because an eigenvalue is 0, for which the parameters say 0.
GKBASETOOLS_EXPORT bool shapeIsDefined(const ClusterShape& shape);

/// The parameters as they are shown, "---" for what is undefined.
struct ShapeTexts
{
    QString m_sLnS1S2;
    QString m_sLnS2S3;
    QString m_sK;
    QString m_sC;
    QString m_sReason; ///< why some of them are undefined; empty when all are defined
};

GKBASETOOLS_EXPORT ShapeTexts shapeTexts(const ClusterShape& shape, int iDecimals);

} // namespace gkBase

#pragma once

#include "PointStyle.h"
#include "WoodcockParameters.h"

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

} // namespace gkBase

#include "ScatLineDefaults.h"

#include "MatrixData.h"

namespace gkBase {

void ScatLineDefaults::restart()
{
    m_iHorizons = 0;
    m_iFaults = 0;
}

QString ScatLineDefaults::nextName(DepthLineField::DataType eType)
{
    switch (eType) {
    case DepthLineField::Horizon:
        return QStringLiteral("Horizon_%1").arg(m_iHorizons++);
    case DepthLineField::Fault:
        // Without an underscore, unlike horizons: files and markers have it so.
        return QStringLiteral("Fault%1").arg(m_iFaults++);
    default:
        return QStringLiteral("Dummy");
    }
}

QColor ScatLineDefaults::nextColor(DepthLineField::DataType eType)
{
    switch (eType) {
    case DepthLineField::CrestalPlane:
        return {0, 0, 255};
    case DepthLineField::AxialPlane:
        return {0, 255, 0};
    case DepthLineField::InflectionPlane:
        return {255, 0, 0};
    case DepthLineField::Fault:
        return {120, 120, 120};
    default:
        return MatrixData::getDefaultColor();
    }
}

} // namespace gkBase

#include "ScatLineDefaults.h"

#include "MatrixData.h"

#include <algorithm>

namespace gkBase {

void ScatLineDefaults::restart()
{
    m_iHorizons = 0;
    m_iFaults = 0;
}

QString ScatLineDefaults::nextFree(const QString& sPattern, int& iNumber, const DepthLineField* pLines)
{
    const auto isTaken = [pLines](const QString& sName) {
        return pLines &&
               std::find(pLines->lineNames().begin(), pLines->lineNames().end(), sName) != pLines->lineNames().end();
    };
    QString sName;
    do {
        sName = sPattern.arg(iNumber++);
    } while (isTaken(sName));
    return sName;
}

QString ScatLineDefaults::nextName(DepthLineField::DataType eType, const DepthLineField* pLines)
{
    switch (eType) {
    case DepthLineField::Horizon:
        return nextFree(QStringLiteral("Horizon_%1"), m_iHorizons, pLines);
    case DepthLineField::Fault:
        // Without an underscore, unlike horizons: files and markers have it so.
        return nextFree(QStringLiteral("Fault%1"), m_iFaults, pLines);
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

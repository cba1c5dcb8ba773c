#include "SectorOption.h"

#include "CommandText.h"

#include <gkBase/RoseBins.h>

namespace gkHost {

namespace {

constexpr int g_iFullCircle = 360;

} // namespace

QCommandLineOption sectorOption()
{
    return {QStringLiteral("sector"), text("Size of the sectors, whole degrees; 20 when absent."), QStringLiteral("N")};
}

int sectorSize(const CommandInput& input, std::optional<CommandResult>& oError)
{
    const int iDefault = static_cast<int>(gkBase::RoseSettings().m_dSectorSize);
    const int iSize = input.wholeNumber(QStringLiteral("sector"), oError).value_or(iDefault);
    if (iSize <= g_iFullCircle) {
        return iSize;
    }
    if (!oError) {
        oError = CommandResult::badUsage(text("--sector: %1 degrees are more than a circle").arg(iSize));
    }
    return iDefault;
}

} // namespace gkHost

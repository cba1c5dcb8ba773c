#include "ChartOptions.h"

#include "CommandText.h"

#include <gkBase/MatrixData.h>

namespace gkHost {

bool blackBackground(const CommandInput& input, std::optional<CommandResult>& oError)
{
    return input.choice(QStringLiteral("background"), {QStringLiteral("white"), QStringLiteral("black")}, oError) == 1;
}

gkBase::MatrixData* loadedAttribute(CommandInput& input, bool bNumeric, std::optional<CommandResult>& oError)
{
    if (!oError)
        oError = input.load();
    if (oError)
        return nullptr;
    const QString sName = input.value(QStringLiteral("attribute"));
    return bNumeric ? input.numericAttribute(sName, oError) : input.attribute(sName, oError);
}

gkBase::MatrixData* classAttribute(const CommandInput& input, const QString& sOption, const gkBase::MatrixData& points,
                                   std::optional<CommandResult>& oError)
{
    if (oError || !input.isSet(sOption))
        return nullptr;
    const QString sName = input.value(sOption);
    // The same name in several data sets means the one that the points are from.
    const QString sBesidePoints = points.owner()->name() + QLatin1String(": ") + sName;
    std::optional<CommandResult> oNotThere;
    gkBase::MatrixData* poAttribute = input.attribute(sBesidePoints, oNotThere);
    if (!poAttribute)
        poAttribute = input.attribute(sName, oError);
    if (!poAttribute || poAttribute->recordCount() == points.recordCount())
        return poAttribute;
    oError = CommandResult::badInput(text("%1: \"%2\" and \"%3\" belong to data sets of different length")
                                         .arg(input.filePath(), points.name(), sName));
    return nullptr;
}

} // namespace gkHost

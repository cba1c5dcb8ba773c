#include "RoseRenderer.h"

#include "ChartOptions.h"
#include "CommandText.h"
#include "OrientationInput.h"
#include "SectorOption.h"

#include <gkBase/QRoseChartWidget.h>

namespace gkHost {

namespace {

void addRoseOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{QStringLiteral("direction"), text("The attribute of azimuths."), QStringLiteral("NAME")},
         sectorOption(),
         {QStringLiteral("scaling"), text("area or linear: what goes with the counts, area or radius of the petals."),
          QStringLiteral("WORD")},
         {QStringLiteral("axial"), text("The directions are axes: opposite ones are the same.")},
         {QStringLiteral("color-by"), text("The attribute whose classes cut the petals."), QStringLiteral("NAME")}});
}

std::optional<CommandResult> renderRose(CommandInput& input, const QString& sPath, const QSize& oSize)
{
    std::optional<CommandResult> oError = input.require(QStringLiteral("direction"));
    const int iSectorSize = sectorSize(input, oError);
    const int iScaling =
        input.choice(QStringLiteral("scaling"), {QStringLiteral("area"), QStringLiteral("linear")}, oError);
    const bool bBlack = blackBackground(input, oError);
    if (!oError)
        oError = input.load();
    if (oError)
        return oError;
    gkBase::MatrixData* poDirection = input.numericAttribute(input.value(QStringLiteral("direction")), oError);
    if (!poDirection)
        return oError;
    requireAngles(input, *poDirection, oError);
    gkBase::MatrixData* poColor = classAttribute(input, QStringLiteral("color-by"), *poDirection, oError);
    if (oError)
        return oError;

    gkBase::QRoseChartWidget panel;
    panel.setDataRoot(&input.root());
    panel.setSectorSize(iSectorSize);
    panel.setBidirectional(input.isSet(QStringLiteral("axial")));
    panel.setEqualAreaScaling(iScaling == 0);
    panel.setDataSet(poDirection);
    panel.setColorAttribute(poColor);
    panel.setBlackBackground(bBlack);
    return exported(panel, sPath, oSize);
}

} // namespace

ChartRenderer roseRenderer()
{
    return {QStringLiteral("rose"), addRoseOptions, renderRose};
}

} // namespace gkHost

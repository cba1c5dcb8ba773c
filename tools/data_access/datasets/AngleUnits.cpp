#include "AngleUnits.h"

#include "MatrixData.h"
#include "UnitManager.h"
#include "UnitRegistry.h"

#include <cmath>

namespace gkBase {

namespace {

constexpr char g_orientation[] = "orientation";
/// A conversion between two names of the degree may be off 1 by its rounding.
constexpr double g_dRounding = 1e-12;

double degreesPer(const UnitManager& unit)
{
    if (unit.category() != QLatin1String(g_orientation))
        return 1.0;
    const double dDegrees =
        UnitRegistry::standard().find_category(QLatin1String(g_orientation))->second->convertFromModelOf(unit, 1.0);
    return std::abs(dDegrees - 1.0) < g_dRounding ? 1.0 : dDegrees;
}

} // namespace

double degreesPerUnit(const MatrixData& attribute)
{
    return degreesPer(*attribute.unitManager());
}

bool isOtherThanAngle(const MatrixData& attribute)
{
    const QString sCategory = attribute.unitCategory();
    return sCategory != QLatin1String(g_orientation) && sCategory != UnitRegistry::dimensionless()->category();
}

std::vector<double> numbersInDegrees(const MatrixData& attribute)
{
    std::vector<double> vdDegrees = attribute.column().numbers();
    convertToDegrees(attribute, vdDegrees);
    return vdDegrees;
}

void convertToDegrees(const MatrixData& attribute, std::vector<double>& vdNumbers)
{
    const double dFactor = degreesPerUnit(attribute);
    if (dFactor == 1.0)
        return;
    for (double& dNumber : vdNumbers)
        dNumber *= dFactor;
}

boost::shared_ptr<UnitManager> degreeUnit(const UnitRegistry* poRegistry)
{
    for (const UnitRegistry* poOffer : {poRegistry, &UnitRegistry::standard()}) {
        if (!poOffer)
            continue;
        const auto it = poOffer->find_category(QLatin1String(g_orientation));
        if (it != poOffer->categories_end() && degreesPer(*it->second) == 1.0)
            return it->second;
    }
    return UnitRegistry::dimensionless();
}

} // namespace gkBase

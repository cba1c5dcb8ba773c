#include "UnitText.h"

#include "MatrixData.h"
#include "MissingValue.h"
#include "UnitManager.h"

#include <cmath>

namespace gkBase {

double displayScale(const MatrixData* poAttribute)
{
    if (!poAttribute)
        return 1.0;
    const boost::shared_ptr<UnitManager> poUnit = poAttribute->unitManager();
    const double dScale = poUnit->convertModelToDisplay(1.0) - poUnit->convertModelToDisplay(0.0);
    return std::isfinite(dScale) && dScale > 0.0 ? dScale : 1.0;
}

QString displayNumber(const MatrixData* poAttribute, double dValue, int iDecimals)
{
    if (!poAttribute || isMissing(dValue))
        return QStringLiteral("---");
    const boost::shared_ptr<UnitManager> poUnit = poAttribute->unitManager();
    return QString::number(poUnit->convertModelToDisplay(dValue), 'f', iDecimals < 0 ? poUnit->precision() : iDecimals);
}

QString displayUnit(const MatrixData* poAttribute)
{
    return poAttribute ? poAttribute->unitManager()->getDisplayUnitTag() : QString();
}

QString displayText(const MatrixData* poAttribute, double dValue, int iDecimals)
{
    const QString sNumber = displayNumber(poAttribute, dValue, iDecimals);
    return isMissing(dValue) ? sNumber : (sNumber + QLatin1Char(' ') + displayUnit(poAttribute)).trimmed();
}

} // namespace gkBase

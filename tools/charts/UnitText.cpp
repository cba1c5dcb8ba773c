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

QString displayText(const MatrixData* poAttribute, double dValue, int iDecimals)
{
    if (!poAttribute || isMissing(dValue))
        return QStringLiteral("---");
    const boost::shared_ptr<UnitManager> poUnit = poAttribute->unitManager();
    const int iShown = iDecimals < 0 ? poUnit->precision() : iDecimals;
    const QString sNumber = QString::number(poUnit->convertModelToDisplay(dValue), 'f', iShown);
    return (sNumber + QLatin1Char(' ') + poUnit->getDisplayUnitTag()).trimmed();
}

} // namespace gkBase

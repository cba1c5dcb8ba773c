#include "StoredNumber.h"

#include "MissingValue.h"

#include <cmath>

namespace gkBase {

namespace {

constexpr char g_notSet[] = "---";

} // namespace

QString storedNumber(double dValue)
{
    return isMissing(dValue) ? QString::fromLatin1(g_notSet) : QString::number(dValue, 'g', 17);
}

double numberFromSettings(const QString& sText, double dOtherwise)
{
    bool bNumber = false;
    const double dValue = sText.toDouble(&bNumber);
    if (bNumber && std::isfinite(dValue))
        return dValue;
    return sText == QLatin1String(g_notSet) ? g_dMissingValue : dOtherwise;
}

} // namespace gkBase

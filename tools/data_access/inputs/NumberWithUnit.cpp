#include "NumberWithUnit.h"

#include "UnitConverter.h"
#include "UnitManager.h"

#include <charconv>
#include <cmath>

namespace gkBase {

std::optional<NumberWithUnit> NumberWithUnit::parse(const QString& sText)
{
    // A sign that looks like a minus is one.
    QString sNumber = sText.trimmed();
    sNumber.replace(QChar(0x2212), QLatin1Char('-')).replace(QLatin1Char(','), QLatin1Char('.'));
    if (sNumber.startsWith(QLatin1String("+-")))
        return std::nullopt;
    if (sNumber.startsWith(QLatin1Char('+')))
        sNumber.remove(0, 1);
    const QByteArray aNumber = sNumber.toUtf8();

    NumberWithUnit oResult;
    const char* pcEnd = aNumber.constData() + aNumber.size();
    const std::from_chars_result parsed = std::from_chars(aNumber.constData(), pcEnd, oResult.m_dValue);
    if (parsed.ec != std::errc() || !std::isfinite(oResult.m_dValue))
        return std::nullopt;
    oResult.m_sUnit = QString::fromUtf8(parsed.ptr, pcEnd - parsed.ptr).trimmed();
    // What follows a number is a unit only when it cannot be more of a number ("1.5.2", "1 234").
    if (!oResult.m_sUnit.isEmpty() && (oResult.m_sUnit[0].isDigit() || oResult.m_sUnit[0] == QLatin1Char('.')))
        return std::nullopt;
    return oResult;
}

std::optional<double> NumberWithUnit::modelValue(const UnitManager* poUnitManager) const
{
    if (!poUnitManager)
        return m_sUnit.isEmpty() ? std::optional(m_dValue) : std::nullopt;
    if (m_sUnit.isEmpty() || m_sUnit == poUnitManager->getDisplayUnitTag())
        return poUnitManager->convertDisplayToModel(m_dValue);
    const auto poConverter = UnitConverter::create(m_sUnit, poUnitManager->modelUnit());
    return poConverter ? std::optional(poConverter->forward(m_dValue)) : std::nullopt;
}

} // namespace gkBase

#pragma once

#include <QString>

namespace gkHost {

/// True for a text that files write for a unit: "m", "g/cm3", "°", "ohm.m", "API", "%", …; case does not count.
bool isUnitWord(const QString& sText);

struct NameAndUnit
{
    QString m_sName;
    QString m_sUnit;
};

/// Splits "Depth [m]" and "Depth (m)". Brackets at the end hold a unit unless they hold an index ("GR[0]");
/// parentheses only when isUnitWord() knows what is in them. Otherwise the name is the whole text.
NameAndUnit splitNameAndUnit(const QString& sHeader);

/// sUnit without brackets or parentheses around it; empty for "-", "none", "unitless", …
QString bareUnit(const QString& sUnit);

} // namespace gkHost

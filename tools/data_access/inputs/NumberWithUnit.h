#pragma once

#include "gkBaseQtExport.h"

#include <QString>

#include <optional>

namespace gkBase {

class UnitManager;

/// A number as users type it, with a unit behind it or without one: "12.5", "12,5", "12.5 ft".
struct GKBASEQT_EXPORT NumberWithUnit
{
    double m_dValue = 0.0;
    QString m_sUnit; ///< empty when the text has none

    /// The number may have a decimal comma instead of the point, but no grouping; nothing else may stand before it.
    /// What follows is taken as the unit, known or not. Nothing for any other text.
    static std::optional<NumberWithUnit> parse(const QString& sText);

    /// In the model unit of the manager; a number without a unit is a display value. Nothing when the unit does not
    /// convert. Without a manager only numbers without a unit have a value.
    std::optional<double> modelValue(const UnitManager* poUnitManager) const;
};

} // namespace gkBase

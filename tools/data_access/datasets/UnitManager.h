#pragma once

#include "gkBaseQtExport.h"

#include <QString>
#include <QStringList>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace gkBase {

class UnitConverter;

/// The unit of an attribute: its category, the model unit in which values are stored and the display unit in which
/// they are shown. The display unit is the one chosen for the category in DisplayUnitManager when it converts,
/// otherwise the model unit itself.
class GKBASEQT_EXPORT UnitManager
{
public:
    /// sModelUnit as files write it ("m", "ft", "deg", "us/ft", "g/cm3", "API"); a text that no conversion knows is
    /// kept and shown as it is, converting to itself only. iPrecision is the number of decimals to show, −1 the
    /// category's default.
    UnitManager(const QString& sCategory, const QString& sModelUnit, int iPrecision = -1);
    ~UnitManager();

    QString category() const { return m_sCategory; }
    QString modelUnit() const { return m_sModelUnit; }

    /// Missing values (NaN, 99999.0) are returned unchanged.
    double convertModelToDisplay(double dValue) const;
    double convertDisplayToModel(double dValue) const;
    /// A value in the model unit of another manager, in this one's; unchanged when they do not convert. Makes a
    /// converter each time: for many values, take two and their straight line.
    double convertFromModelOf(const UnitManager& other, double dValue) const;
    /// Decimals to show: the ones set for this manager, otherwise those usual for the current display unit.
    int precision() const;
    void setPrecision(int iPrecision) { m_iPrecision = iPrecision; }

    /// Readable name of the display unit ("metre", "degree"); empty for a dimensionless value.
    QString getDisplayUnitName() const;
    /// Its sign as shown behind numbers ("m", "°", "µs/ft"); empty for a dimensionless value.
    QString getDisplayUnitTag() const;
    /// Chooses the display unit for this manager's category (process-wide); false when it does not convert. An
    /// empty text goes back to the model units.
    bool displayUnit(const QString& sUnit);
    /// Display units that this model unit converts to, the model unit first.
    QStringList possibleDisplayUnits() const;

    /// Same category, same model unit as written, same precision.
    bool operator==(const UnitManager& other) const;

private:
    const UnitConverter* converter() const;
    QString displayUnitText() const;

    QString m_sCategory;
    QString m_sModelUnit;
    int m_iPrecision;
    mutable std::unique_ptr<UnitConverter> m_poConverter; ///< null: values are shown in the model unit
    mutable QString m_sDisplayUnit;                       ///< in which values are shown
    mutable int m_iGeneration = -1;                       ///< of the display units for which both were made
};

} // namespace gkBase

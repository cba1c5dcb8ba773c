#pragma once

#include "gkBaseQtExport.h"

#include <QObject>
#include <QString>

#include <map>

namespace gkBase {

/// The display unit that the user chose for each unit category; one for the process. A category without an entry
/// shows its model units.
class GKBASEQT_EXPORT DisplayUnitManager : public QObject
{
    Q_OBJECT
public:
    using UnitMap = std::map<QString, QString>;
    using const_iterator = UnitMap::const_iterator;

    static DisplayUnitManager& instance();

    const_iterator find(const QString& sCategory) const { return m_units.find(sCategory); }
    const_iterator begin() const { return m_units.begin(); }
    const_iterator end() const { return m_units.end(); }

    /// An empty unit goes back to the model units. Emits displayChanged() when the choice changes.
    void setDisplayUnit(const QString& sCategory, const QString& sUnit);
    /// The chosen unit of a category; empty when it shows its model units.
    QString displayUnit(const QString& sCategory) const;
    /// Changes with every choice; equal numbers mean that no display unit has changed.
    int generation() const { return m_iGeneration; }

signals:
    void displayChanged(const QString& sCategory);

private:
    DisplayUnitManager() = default;
    UnitMap m_units;
    int m_iGeneration = 0;
};

} // namespace gkBase

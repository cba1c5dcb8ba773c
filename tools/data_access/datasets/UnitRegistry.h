#pragma once

#include "UnitManager.h"
#include "gkBaseQtExport.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <map>

namespace gkBase {

/// The unit categories by name, each with a shared unit manager in the category's default model unit.
class GKBASEQT_EXPORT UnitRegistry
{
public:
    using CategoryMap = std::map<QString, boost::shared_ptr<UnitManager>>;
    using const_iterator = CategoryMap::const_iterator;

    /// Holds the standard categories: dimensionless, orientation (degree), fraction, length, depth, time,
    /// temperature, pressure, density, velocity, slowness, resistivity, conductivity, gamma ray, electric potential.
    UnitRegistry();

    const_iterator find_category(const QString& sCategory) const { return m_categories.find(sCategory); }
    const_iterator categories_begin() const { return m_categories.begin(); }
    const_iterator categories_end() const { return m_categories.end(); }
    /// Replaces a manager of that category.
    void addCategory(const boost::shared_ptr<UnitManager>& poManager);

    /// A manager for values in a unit as a file writes it: the category follows from the unit ("ft" → length), or is
    /// dimensionless for a unit that no category knows (the text is kept). An empty text gives the dimensionless one.
    boost::shared_ptr<UnitManager> managerForUnit(const QString& sUnit) const;
    /// As above for a known category: "m" is a length, or a depth when sCategory says so. Falls back to
    /// managerForUnit() when the unit does not fit the category.
    boost::shared_ptr<UnitManager> managerForUnit(const QString& sUnit, const QString& sCategory) const;

    /// The manager that an attribute's name and unit suggest: as managerForUnit(), but a length of an attribute that
    /// is called a depth (isDepthName()) is a depth.
    boost::shared_ptr<UnitManager> managerForAttribute(const QString& sName, const QString& sUnit) const;
    /// True for the usual names of depths: depth, dept, md, tvd, tvdss, measured depth, … whatever their case.
    static bool isDepthName(const QString& sName);

    /// The standard registry, for nodes that have been given none.
    static const UnitRegistry& standard();
    /// The shared manager of values without a unit.
    static boost::shared_ptr<UnitManager> dimensionless();

private:
    CategoryMap m_categories;
};

} // namespace gkBase

#include "DisplayUnitManager.h"

namespace gkBase {

DisplayUnitManager& DisplayUnitManager::instance()
{
    static DisplayUnitManager theManager;
    return theManager;
}

void DisplayUnitManager::setDisplayUnit(const QString& sCategory, const QString& sUnit)
{
    if (displayUnit(sCategory) == sUnit)
        return;
    if (sUnit.isEmpty())
        m_units.erase(sCategory);
    else
        m_units[sCategory] = sUnit;
    ++m_iGeneration;
    emit displayChanged(sCategory);
}

QString DisplayUnitManager::displayUnit(const QString& sCategory) const
{
    const const_iterator it = find(sCategory);
    return it == end() ? QString() : it->second;
}

} // namespace gkBase

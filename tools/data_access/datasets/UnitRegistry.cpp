#include "UnitRegistry.h"

#include "UnitCatalogue.h"
#include "UnitConverter.h"

#include <QRegularExpression>
#include <QSet>

#include <boost/make_shared.hpp>

namespace gkBase {

UnitRegistry::UnitRegistry()
{
    addCategory(dimensionless());
    const QStringList lCategories = UnitCatalogue::categories();
    for (const QString& sCategory : lCategories)
        if (!m_categories.count(sCategory))
            addCategory(boost::make_shared<UnitManager>(sCategory, UnitCatalogue::defaultUnit(sCategory)));
}

void UnitRegistry::addCategory(const boost::shared_ptr<UnitManager>& poManager)
{
    if (poManager)
        m_categories[poManager->category()] = poManager;
}

boost::shared_ptr<UnitManager> UnitRegistry::managerForUnit(const QString& sUnit) const
{
    const QString sText = sUnit.trimmed();
    if (sText.isEmpty())
        return dimensionless();
    const QString sKind = UnitConverter::kind(sText);
    if (sKind.isEmpty())
        return boost::make_shared<UnitManager>(dimensionless()->category(), sText);
    return managerForUnit(sText, sKind);
}

boost::shared_ptr<UnitManager> UnitRegistry::managerForUnit(const QString& sUnit, const QString& sCategory) const
{
    const QString sText = sUnit.trimmed();
    const const_iterator it = find_category(sCategory);
    if (it != categories_end() && it->second->modelUnit() == sText)
        return it->second;
    const QString sKind = UnitConverter::kind(sText);
    const QString sWanted = it != categories_end() ? UnitConverter::kind(it->second->modelUnit())
                                                   : UnitCatalogue::kindOfCategory(sCategory);
    if (!sKind.isEmpty() && (sKind == sWanted || sKind == sCategory))
        return boost::make_shared<UnitManager>(sCategory, sText);
    return managerForUnit(sText);
}

boost::shared_ptr<UnitManager> UnitRegistry::managerForAttribute(const QString& sName, const QString& sUnit) const
{
    boost::shared_ptr<UnitManager> poManager = managerForUnit(sUnit);
    if (poManager->category() == QLatin1String("length") && isDepthName(sName))
        return managerForUnit(sUnit, QStringLiteral("depth"));
    return poManager;
}

bool UnitRegistry::isDepthName(const QString& sName)
{
    static const QSet<QString> theNames{QStringLiteral("depth"), QStringLiteral("dept"),  QStringLiteral("dep"),
                                        QStringLiteral("md"),    QStringLiteral("tvd"),   QStringLiteral("tvdss"),
                                        QStringLiteral("mdrt"),  QStringLiteral("mdkb"),  QStringLiteral("tvdkb"),
                                        QStringLiteral("tvdrt"), QStringLiteral("tvdbml")};
    static const QRegularExpression theSeparators(QStringLiteral("[^\\p{L}]+"));
    const QStringList lWords = sName.toLower().split(theSeparators, Qt::SkipEmptyParts);
    if (lWords.isEmpty())
        return false;
    // "Measured Depth", "MD_1", "depth (ft)": a depth word at the beginning or the end.
    return theNames.contains(lWords.first()) || theNames.contains(lWords.last());
}

const UnitRegistry& UnitRegistry::standard()
{
    static const UnitRegistry theRegistry;
    return theRegistry;
}

boost::shared_ptr<UnitManager> UnitRegistry::dimensionless()
{
    static const boost::shared_ptr<UnitManager> theManager =
        boost::make_shared<UnitManager>(QStringLiteral("dimensionless"), QString());
    return theManager;
}

} // namespace gkBase

#include "UnitManager.h"

#include "DisplayUnitManager.h"
#include "UnitCatalogue.h"
#include "UnitConverter.h"

#include <cmath>

namespace gkBase {

namespace {

constexpr double dMissing = 99999.0;
constexpr int iDimensionlessPrecision = 3;

bool isMissing(double dValue)
{
    return std::isnan(dValue) || dValue == dMissing;
}

} // namespace

UnitManager::UnitManager(const QString& sCategory, const QString& sModelUnit, int iPrecision)
    : m_sCategory(sCategory)
    , m_sModelUnit(sModelUnit)
    , m_iPrecision(iPrecision)
{
}

UnitManager::~UnitManager() = default;

const UnitConverter* UnitManager::converter() const
{
    const DisplayUnitManager& displayUnits = DisplayUnitManager::instance();
    if (m_iGeneration == displayUnits.generation())
        return m_poConverter.get();
    m_iGeneration = displayUnits.generation();
    m_poConverter.reset();
    m_sDisplayUnit = m_sModelUnit;
    const QString sChosen = displayUnits.displayUnit(m_sCategory);
    if (sChosen.isEmpty() || m_sModelUnit.isEmpty())
        return nullptr;
    m_poConverter = UnitConverter::create(m_sModelUnit, sChosen);
    if (m_poConverter)
        m_sDisplayUnit = sChosen;
    if (m_poConverter && m_poConverter->isIdentity())
        m_poConverter.reset();
    return m_poConverter.get();
}

double UnitManager::convertModelToDisplay(double dValue) const
{
    const UnitConverter* poConverter = converter();
    return poConverter && !isMissing(dValue) ? poConverter->forward(dValue) : dValue;
}

double UnitManager::convertDisplayToModel(double dValue) const
{
    const UnitConverter* poConverter = converter();
    return poConverter && !isMissing(dValue) ? poConverter->backward(dValue) : dValue;
}

QString UnitManager::displayUnitText() const
{
    converter();
    return m_sDisplayUnit;
}

double UnitManager::convertFromModelOf(const UnitManager& other, double dValue) const
{
    if (isMissing(dValue) || other.m_sModelUnit == m_sModelUnit)
        return dValue;
    const std::unique_ptr<UnitConverter> poToThis = UnitConverter::create(other.m_sModelUnit, m_sModelUnit);
    return poToThis ? poToThis->forward(dValue) : dValue;
}

int UnitManager::precision() const
{
    if (m_iPrecision >= 0)
        return m_iPrecision;
    const UnitEntry* pEntry = UnitCatalogue::find(displayUnitText());
    if (!pEntry)
        pEntry = UnitCatalogue::find(UnitCatalogue::defaultUnit(m_sCategory));
    return pEntry ? pEntry->iPrecision : iDimensionlessPrecision;
}

QString UnitManager::getDisplayUnitName() const
{
    const QString sUnit = displayUnitText();
    const UnitEntry* pEntry = UnitCatalogue::find(sUnit);
    return pEntry ? pEntry->sName : sUnit;
}

QString UnitManager::getDisplayUnitTag() const
{
    const QString sUnit = displayUnitText();
    const UnitEntry* pEntry = UnitCatalogue::find(sUnit);
    return pEntry ? pEntry->sTag : sUnit;
}

bool UnitManager::displayUnit(const QString& sUnit)
{
    if (!sUnit.isEmpty()) {
        // Values of the dimensionless category have nothing in common that one display unit could fit.
        const bool bConverts = UnitConverter::create(m_sModelUnit, sUnit) != nullptr;
        if (!bConverts || UnitConverter::kind(m_sModelUnit).isEmpty())
            return bConverts;
    }
    DisplayUnitManager::instance().setDisplayUnit(m_sCategory, sUnit);
    return true;
}

QStringList UnitManager::possibleDisplayUnits() const
{
    QStringList lUnits;
    if (m_sModelUnit.isEmpty())
        return lUnits;
    lUnits << m_sModelUnit;
    const QStringList lTags = UnitCatalogue::tagsOfKind(UnitConverter::kind(m_sModelUnit));
    for (const QString& sTag : lTags) {
        const auto poConverter = UnitConverter::create(m_sModelUnit, sTag);
        if (poConverter && !poConverter->isIdentity())
            lUnits << sTag;
    }
    return lUnits;
}

bool UnitManager::operator==(const UnitManager& other) const
{
    return m_sCategory == other.m_sCategory && m_sModelUnit == other.m_sModelUnit && m_iPrecision == other.m_iPrecision;
}

} // namespace gkBase

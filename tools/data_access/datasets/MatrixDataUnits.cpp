// Units of attributes, and the choosers that find attributes by unit and name.

#include "MatrixData.h"

#include "UnitManager.h"
#include "UnitRegistry.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace gkBase {

namespace {

constexpr double dMissing = 99999.0;

// ---- names ------------------------------------------------------------------------------------------------------

/// A name as words in lower case: "Dip_Azimuth (1)" → "dip azimuth".
QString wordsOf(const QString& sName)
{
    static const QRegularExpression theSeparators(QStringLiteral("[^\\p{L}]+"));
    return sName.toLower().split(theSeparators, Qt::SkipEmptyParts).join(u' ');
}

bool hasWord(const QString& sWords, const char* pcWord)
{
    return sWords.split(u' ').contains(QLatin1String(pcWord));
}

// The better a name says what the attribute is, the further in front it stands.
constexpr std::array aDipNames{"dip", "true dip", "dip angle", "dip magnitude", "dipmag", "plunge", "inclination"};
constexpr std::array aAzimuthNames{"dip azimuth",    "dip direction", "dipdir",   "dip dir", "dipazimuth",
                                   "dipaz",          "dip azi",       "dip azim", "dazi",    "azimuth",
                                   "plunge azimuth", "trend",         "azim",     "azi",     "direction"};
constexpr std::array aAzimuthWords{"azimuth", "azim", "azi", "trend", "direction", "dipdir", "bearing", "dir"};
constexpr std::array aDipWords{"dip", "plunge", "inclination", "incl", "dipmag"};

template <std::size_t N>
int rankOf(const QString& sWords, const std::array<const char*, N>& aNames)
{
    const auto it = std::find_if(aNames.begin(), aNames.end(),
                                 [&sWords](const char* pcName) { return sWords == QLatin1String(pcName); });
    return static_cast<int>(it - aNames.begin());
}

template <std::size_t N>
bool hasAnyWord(const QString& sWords, const std::array<const char*, N>& aNames)
{
    return std::any_of(aNames.begin(), aNames.end(), [&sWords](const char* pcName) { return hasWord(sWords, pcName); });
}

constexpr int iNoRank = 1000;

/// 0 is the best name for the part; iNoRank says that the name means something else.
int dipRank(const QString& sName)
{
    const QString sWords = wordsOf(sName);
    const int iRank = rankOf(sWords, aDipNames);
    if (iRank < static_cast<int>(aDipNames.size()))
        return iRank;
    return hasAnyWord(sWords, aDipWords) && !hasAnyWord(sWords, aAzimuthWords) && !hasWord(sWords, "strike") ? iRank
                                                                                                             : iNoRank;
}

int azimuthRank(const QString& sName)
{
    const QString sWords = wordsOf(sName);
    const int iRank = rankOf(sWords, aAzimuthNames);
    if (iRank < static_cast<int>(aAzimuthNames.size()))
        return iRank;
    return hasAnyWord(sWords, aAzimuthWords) ? iRank : iNoRank;
}

// ---- attributes ---------------------------------------------------------------------------------------------------

bool isNumeric(const MatrixData& node)
{
    return node.type() == QMetaType::Double || node.type() == QMetaType::Int || node.type() == QMetaType::Bool;
}

bool isOrientation(const MatrixData& node)
{
    return isNumeric(node) && node.unitCategory() == QLatin1String("orientation");
}

/// Attributes are unlike records: a tree has few of them, so that asking each costs nothing.
std::vector<MatrixData*> attributesOf(const MatrixData& dataSet)
{
    std::vector<MatrixData*> vpAttributes;
    for (int i = 0; i < dataSet.childCount(); ++i)
        if (dataSet.child(i)->isAttribute())
            vpAttributes.push_back(dataSet.child(i));
    return vpAttributes;
}

/// The attribute with the lowest rank, the first of equals; null when none has one.
template <typename Rank>
MatrixData* bestAttribute(const std::vector<MatrixData*>& vpAttributes, Rank rank)
{
    MatrixData* poBest = nullptr;
    int iBest = iNoRank;
    for (MatrixData* poAttribute : vpAttributes)
        if (const int iRank = rank(*poAttribute); iRank < iBest) {
            iBest = iRank;
            poBest = poAttribute;
        }
    return poBest;
}

MatrixData* dipOf(const std::vector<MatrixData*>& vpAttributes)
{
    return bestAttribute(vpAttributes, [](const MatrixData& attribute) {
        return isOrientation(attribute) ? dipRank(attribute.name()) : iNoRank;
    });
}

MatrixData* azimuthOf(const std::vector<MatrixData*>& vpAttributes)
{
    return bestAttribute(vpAttributes, [](const MatrixData& attribute) {
        return isOrientation(attribute) ? azimuthRank(attribute.name()) : iNoRank;
    });
}

/// A named depth before an unnamed attribute of the category, then a length that is called a depth, then a number
/// without a unit that is called one.
int depthRank(const MatrixData& attribute)
{
    if (!isNumeric(attribute))
        return iNoRank;
    const bool bNamed = UnitRegistry::isDepthName(attribute.name());
    const QString sCategory = attribute.unitCategory();
    if (sCategory == QLatin1String("depth"))
        return bNamed ? 0 : 1;
    if (!bNamed)
        return iNoRank;
    if (sCategory == QLatin1String("length"))
        return 2;
    return attribute.unitManager()->modelUnit().isEmpty() ? 3 : iNoRank;
}

MatrixData* depthOf(const std::vector<MatrixData*>& vpAttributes)
{
    return bestAttribute(vpAttributes, depthRank);
}

bool isDirection(const MatrixData& attribute)
{
    return isOrientation(attribute) &&
           (azimuthRank(attribute.name()) < iNoRank || hasWord(wordsOf(attribute.name()), "strike"));
}

/// Whether a data set with these attributes is an entry of its own.
bool offersDataSet(const std::vector<MatrixData*>& vpAttributes, MatrixData::AttributeCollection eCollection)
{
    const auto iNumeric =
        std::count_if(vpAttributes.begin(), vpAttributes.end(), [](const MatrixData* p) { return isNumeric(*p); });
    switch (eCollection) {
    case MatrixData::AnyAttribute:
        return !vpAttributes.empty();
    case MatrixData::NumericPair:
        return iNumeric >= 2;
    case MatrixData::DepthAndNumeric:
        return iNumeric >= 2 && depthOf(vpAttributes);
    case MatrixData::DipAndAzimuth:
        return dipOf(vpAttributes) && azimuthOf(vpAttributes);
    case MatrixData::NumericAttribute:
    case MatrixData::Direction:
        break;
    }
    return false;
}

/// Whether an attribute is an entry of its own.
bool offersAttribute(const MatrixData& attribute, MatrixData::AttributeCollection eCollection)
{
    return (eCollection == MatrixData::NumericAttribute && isNumeric(attribute)) ||
           (eCollection == MatrixData::Direction && isDirection(attribute));
}

/// The data sets at and below a node in tree order.
void collectDataSets(const MatrixData& node, std::vector<const MatrixData*>& vpDataSets)
{
    bool bDataSet = false;
    for (int i = 0; i < node.childCount() && !bDataSet; ++i)
        bDataSet = node.child(i)->isAttribute();
    if (bDataSet)
        vpDataSets.push_back(&node);
    for (int i = 0; i < node.childCount(); ++i)
        if (!node.child(i)->isAttribute())
            collectDataSets(*node.child(i), vpDataSets);
}

} // namespace

// ---- units --------------------------------------------------------------------------------------------------------

UnitRegistry* MatrixData::registry() const
{
    for (const MatrixData* poNode = this; poNode; poNode = poNode->m_poParent)
        if (poNode->m_poRegistry)
            return poNode->m_poRegistry;
    return nullptr;
}

void MatrixData::setUnitManager(const QString& sCategory)
{
    const UnitRegistry* poRegistry = registry();
    if (!poRegistry)
        poRegistry = &UnitRegistry::standard();
    const UnitRegistry::const_iterator it = poRegistry->find_category(sCategory);
    if (it == poRegistry->categories_end())
        return;
    // Values keep their unit where the category allows it: a length in feet becomes a depth in feet.
    const boost::shared_ptr<UnitManager> poKept = poRegistry->managerForUnit(unitManager()->modelUnit(), sCategory);
    setUnitManager(poKept->category() == sCategory && !poKept->modelUnit().isEmpty() ? poKept : it->second);
}

void MatrixData::setUnitManager(boost::shared_ptr<UnitManager> poUnitManager)
{
    m_poUnitManager = std::move(poUnitManager);
    valuesChanged();
}

boost::shared_ptr<UnitManager> MatrixData::unitManager() const
{
    return m_poUnitManager ? m_poUnitManager : UnitRegistry::dimensionless();
}

QString MatrixData::unitCategory() const
{
    return unitManager()->category();
}

double MatrixData::toDisplayDouble(const QVariant& qValue) const
{
    bool bOk = false;
    const double dValue = qValue.toDouble(&bOk);
    return bOk ? unitManager()->convertModelToDisplay(dValue) : dMissing;
}

// ---- choosers -----------------------------------------------------------------------------------------------------

void MatrixData::getDataSetSelectionBoxItems(QList<QString>& lNames, QList<int>& liIds, QList<QColor>& lColors,
                                             AttributeCollection eCollection, bool bSelectedOnly) const
{
    lNames.clear();
    liIds.clear();
    lColors.clear();
    const auto append = [&](const QString& sName, const MatrixData& node) {
        lNames << sName;
        liIds << node.globalID();
        lColors << node.color();
    };
    std::vector<const MatrixData*> vpDataSets;
    collectDataSets(*this, vpDataSets);
    for (const MatrixData* poDataSet : vpDataSets) {
        std::vector<MatrixData*> vpAttributes = attributesOf(*poDataSet);
        if (bSelectedOnly)
            std::erase_if(vpAttributes, [](const MatrixData* poAttribute) { return !poAttribute->isSelected(); });
        if (offersDataSet(vpAttributes, eCollection))
            append(poDataSet->name(), *poDataSet);
        for (const MatrixData* poAttribute : vpAttributes)
            if (offersAttribute(*poAttribute, eCollection))
                append(poDataSet->name() + QStringLiteral(": ") + poAttribute->name(), *poAttribute);
    }
}

MatrixData* MatrixData::dipAttribute() const
{
    return dipOf(attributesOf(*this));
}

MatrixData* MatrixData::azimuthAttribute() const
{
    return azimuthOf(attributesOf(*this));
}

MatrixData* MatrixData::depthAttribute() const
{
    return depthOf(attributesOf(*this));
}

} // namespace gkBase

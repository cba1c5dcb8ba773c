#include "WellDataSets.h"

#include "MarkerColumns.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"

#include <QRegularExpression>
#include <QVariant>

#include <algorithm>
#include <unordered_set>

namespace gkBase {

namespace {

constexpr int g_iUnknown = -1;
constexpr int g_iMaxLinks = 64; ///< data sets that were derived from each other in a circle

QByteArray sourceKey(const MatrixData& dataSet)
{
    return "sourceOfDataSet" + QByteArray::number(dataSet.globalID());
}

bool hasAttributes(const MatrixData& node)
{
    for (int i = 0; i < node.childCount(); ++i)
        if (node.child(i)->isAttribute())
            return true;
    return false;
}

bool isDecimation(const MatrixData& dataSet)
{
    for (int i = 0; i < dataSet.childCount(); ++i)
        if (dataSet.child(i)->name().startsWith(QLatin1String("Decimated:"), Qt::CaseInsensitive))
            return true;
    return false;
}

/// Numbers that are no depths and no "$V".
bool hasMeasurements(const MatrixData& dataSet)
{
    const MatrixData* poDepth = dataSet.depthAttribute();
    for (int i = 0; i < dataSet.childCount(); ++i) {
        const MatrixData* poChild = dataSet.child(i);
        const QString sCategory = poChild->unitCategory();
        const bool bPlace = poChild == poDepth || sCategory == QLatin1String("depth") ||
                            sCategory == QLatin1String("length") || poChild->name() == QLatin1String("$V");
        if (poChild->isAttribute() && poChild->column().isNumeric() && !bPlace)
            return true;
    }
    return false;
}

} // namespace

std::vector<MatrixData*> dataSetsBelow(const MatrixData& node)
{
    std::vector<MatrixData*> vpDataSets;
    std::unordered_set<const MatrixData*> known;
    for (const MatrixData* poLeaf : node.leafs()) {
        MatrixData* poDataSet = poLeaf->parentNode();
        if (poDataSet && known.insert(poDataSet).second)
            vpDataSets.push_back(poDataSet);
    }
    return vpDataSets;
}

int recordsOf(const MatrixData& dataSet)
{
    int iRecords = 0;
    for (int i = 0; i < dataSet.childCount(); ++i)
        if (dataSet.child(i)->isAttribute())
            iRecords = std::max(iRecords, dataSet.child(i)->recordCount());
    return iRecords;
}

MatrixData* attributeNamed(const MatrixData& dataSet, const QString& sName, Qt::CaseSensitivity eCase)
{
    for (int i = 0; i < dataSet.childCount(); ++i) {
        MatrixData* poChild = dataSet.child(i);
        if (poChild->isAttribute() && poChild->name().compare(sName, eCase) == 0)
            return poChild;
    }
    return nullptr;
}

void noteSource(MatrixData& dataSet, const MatrixData& source)
{
    dataSet.notifier()->setProperty(sourceKey(dataSet).constData(), source.globalID());
}

int sourceID(MatrixData& dataSet)
{
    const QVariant qSource = dataSet.notifier()->property(sourceKey(dataSet).constData());
    return qSource.isValid() ? qSource.toInt() : g_iUnknown;
}

bool isMarkerTable(const MatrixData& dataSet)
{
    if (isDecimation(dataSet))
        return true;
    if (MarkerColumns(dataSet).isEmpty())
        return false;
    const auto has = [&dataSet](const char* pcName) {
        return attributeNamed(dataSet, QLatin1String(pcName)) != nullptr;
    };
    return !hasMeasurements(dataSet) || (has("Type") && (has("$V") || has("Origin")));
}

MatrixData* wellOf(MatrixData& dataSet)
{
    return WellFinder().wellOf(dataSet);
}

const WellFinder::Kind& WellFinder::kindOf(const MatrixData& dataSet)
{
    const auto [it, bNew] = m_kinds.try_emplace(&dataSet);
    if (bNew) {
        it->second.m_bDepth = dataSet.depthAttribute() != nullptr;
        it->second.m_bMarkers = isMarkerTable(dataSet);
        it->second.m_bWell = it->second.m_bDepth && !it->second.m_bMarkers && hasMeasurements(dataSet);
    }
    return it->second;
}

const std::vector<MatrixData*>& WellFinder::wellsBelow(const MatrixData& branch)
{
    const auto [it, bNew] = m_wellsBelow.try_emplace(&branch);
    if (bNew) {
        it->second = dataSetsBelow(branch);
        std::erase_if(it->second, [this](const MatrixData* poDataSet) {
            const MatrixData* poParent = poDataSet->parentNode();
            return (poParent && hasAttributes(*poParent)) || !kindOf(*poDataSet).m_bWell;
        });
    }
    return it->second;
}

MatrixData* WellFinder::namesake(const MatrixData& dataSet, const MatrixData& parent)
{
    static const QRegularExpression number(QStringLiteral("_\\d+$"));
    const QString sName = dataSet.name();
    const QString sNumber = number.match(sName).captured();
    MatrixData* poBest = nullptr;
    const auto nameLength = [](const MatrixData* poSet) { return poSet ? poSet->name().size() : 0; };
    for (int i = 0; i < parent.childCount(); ++i) {
        MatrixData* poOther = parent.child(i);
        QString sOther = poOther->name();
        // A second file of the same name: its data sets have the same number.
        if (!sNumber.isEmpty() && sOther.endsWith(sNumber))
            sOther.chop(sNumber.size());
        const bool bBegins =
            sName.startsWith(sOther + QLatin1Char(' ')) || sName.startsWith(poOther->name() + QLatin1Char(' '));
        if (poOther == &dataSet || !bBegins || nameLength(poOther) <= nameLength(poBest))
            continue;
        if (kindOf(*poOther).m_bDepth && !kindOf(*poOther).m_bMarkers)
            poBest = poOther;
    }
    return poBest;
}

MatrixData* WellFinder::onlyWellAround(const MatrixData& dataSet)
{
    for (const MatrixData* poBranch = dataSet.parentNode(); poBranch; poBranch = poBranch->parentNode()) {
        const std::vector<MatrixData*>& vpWells = wellsBelow(*poBranch);
        if (!vpWells.empty())
            return vpWells.size() == 1 ? vpWells.front() : nullptr;
    }
    return nullptr;
}

MatrixData* WellFinder::nextTowardsWell(MatrixData& dataSet)
{
    if (const int iSource = sourceID(dataSet); iSource != g_iUnknown) {
        MatrixData* poSource = dataSet.root()->nodeFromID(iSource);
        if (poSource && poSource != &dataSet)
            return poSource;
    }
    MatrixData* poParent = dataSet.parentNode();
    if (poParent && hasAttributes(*poParent))
        return poParent;
    if (!poParent || !kindOf(dataSet).m_bMarkers)
        return &dataSet;
    MatrixData* poNamesake = namesake(dataSet, *poParent);
    return poNamesake ? poNamesake : onlyWellAround(dataSet);
}

MatrixData* WellFinder::wellOf(MatrixData& dataSet)
{
    MatrixData* poSet = &dataSet;
    for (int i = 0; i < g_iMaxLinks; ++i) {
        MatrixData* poNext = nextTowardsWell(*poSet);
        if (!poNext || poNext == poSet)
            return poNext;
        poSet = poNext;
    }
    return poSet;
}

} // namespace gkBase

#include "WellDataSets.h"

#include "MarkerColumns.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"

#include <QRegularExpression>
#include <QVariant>

#include <algorithm>

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

bool isWell(const MatrixData& dataSet)
{
    return dataSet.depthAttribute() && hasMeasurements(dataSet) && !isMarkerTable(dataSet);
}

/// What the data set's name begins with; null for none.
MatrixData* namesake(const MatrixData& dataSet, const MatrixData& parent)
{
    static const QRegularExpression number(QStringLiteral("_\\d+$"));
    const QString sName = dataSet.name();
    const QString sNumber = number.match(sName).captured();
    MatrixData* poBest = nullptr;
    const auto nameLength = [](const MatrixData* poSet) { return poSet ? poSet->name().size() : 0; };
    for (int i = 0; i < parent.childCount(); ++i) {
        MatrixData* poOther = parent.child(i);
        if (poOther == &dataSet || !poOther->depthAttribute() || isMarkerTable(*poOther))
            continue;
        QString sOther = poOther->name();
        // A second file of the same name: its data sets have the same number.
        if (!sNumber.isEmpty() && sOther.endsWith(sNumber))
            sOther.chop(sNumber.size());
        const bool bBegins =
            sName.startsWith(sOther + QLatin1Char(' ')) || sName.startsWith(poOther->name() + QLatin1Char(' '));
        if (bBegins && nameLength(poOther) > nameLength(poBest))
            poBest = poOther;
    }
    return poBest;
}

/// The well below the nearest node above that has one; null when there are several.
MatrixData* onlyWellAround(const MatrixData& dataSet)
{
    for (const MatrixData* poBranch = dataSet.parentNode(); poBranch; poBranch = poBranch->parentNode()) {
        MatrixData* poFound = nullptr;
        for (MatrixData* poOther : dataSetsBelow(*poBranch)) {
            const bool bPart = poOther->parentNode() && hasAttributes(*poOther->parentNode());
            if (bPart || !isWell(*poOther))
                continue;
            if (poFound)
                return nullptr;
            poFound = poOther;
        }
        if (poFound)
            return poFound;
    }
    return nullptr;
}

/// One step towards the well; the data set itself when it is one.
MatrixData* nextTowardsWell(MatrixData& dataSet)
{
    if (const int iSource = sourceID(dataSet); iSource != g_iUnknown) {
        MatrixData* poSource = dataSet.root()->nodeFromID(iSource);
        if (poSource && poSource != &dataSet)
            return poSource;
    }
    MatrixData* poParent = dataSet.parentNode();
    if (poParent && hasAttributes(*poParent))
        return poParent;
    if (!poParent || !isMarkerTable(dataSet))
        return &dataSet;
    MatrixData* poNamesake = namesake(dataSet, *poParent);
    return poNamesake ? poNamesake : onlyWellAround(dataSet);
}

} // namespace

std::vector<MatrixData*> dataSetsBelow(const MatrixData& node)
{
    std::vector<MatrixData*> vpDataSets;
    for (const MatrixData* poLeaf : node.leafs()) {
        MatrixData* poDataSet = poLeaf->parentNode();
        if (poDataSet && std::find(vpDataSets.begin(), vpDataSets.end(), poDataSet) == vpDataSets.end())
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

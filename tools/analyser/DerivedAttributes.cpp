#include "DerivedAttributes.h"

#include "AngleUnits.h"
#include "MatrixDataArray.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "UnitManager.h"
#include "WellDataSets.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

namespace gkBase {

namespace {

// Names of data, the same in every language.
constexpr char g_clusterGroup[] = "Cluster Distributions";
constexpr char g_decimationGroup[] = "Data Decimation";
constexpr char g_orientationGroup[] = "Orientation Data";
constexpr char g_rotatedDip[] = "Rotated:Dip";
constexpr char g_rotatedAzimuth[] = "Rotated:Dip Azimuth";
constexpr char g_decimatedPrefix[] = "Decimated:";
constexpr char g_countSuffix[] = "_Count";
constexpr char g_dimensionless[] = "dimensionless";
constexpr char g_fraction[] = "fraction";

MatrixColumn column(std::span<const double> vdValues)
{
    std::vector<double> vdCells(vdValues.size());
    std::transform(vdValues.begin(), vdValues.end(), vdCells.begin(),
                   [](double dValue) { return isMissing(dValue) ? g_dEmptyCell : dValue; });
    return MatrixColumn::fromDoubles(std::move(vdCells));
}

/// The decimation of a model, bin by bin.
struct DecimatedColumns
{
    std::vector<double> m_vdDepths;
    std::vector<double> m_vdValues;   ///< of orientations their dips, in degrees
    std::vector<double> m_vdAzimuths; ///< degrees
    std::vector<double> m_vdCounts;
};

DecimatedColumns decimatedColumns(const QRelationshipItemModel& model, bool bBinAverage)
{
    const MatrixDataArray& oBins = *model.decimationData();
    const bool bOrientations = !model.decimationAngle().empty();
    const double dDegrees = bOrientations && model.nodeX() ? degreesPerUnit(*model.nodeX()) : 1.0;
    DecimatedColumns columns;
    for (int i = 0; i < oBins.arrayRows(); ++i) {
        const auto n = static_cast<std::size_t>(i);
        const int iRecord = model.decimationTableRows()[n];
        const double dLower = model.decimationBoundaries()[n];
        columns.m_vdDepths.push_back((dLower + model.decimationBoundaries()[n + 1]) * 0.5);
        columns.m_vdCounts.push_back(model.decimationCount()->recordNumber(i));
        double dValue = bOrientations ? model.decimationAngle()[n].x() : oBins.cell(i, 1);
        double dAzimuth = bOrientations ? model.decimationAngle()[n].y() : g_dMissingValue;
        if (!bBinAverage) {
            dValue = iRecord < 0 ? g_dMissingValue : dDegrees * model.x()[static_cast<std::size_t>(iRecord)];
            dAzimuth = iRecord < 0 ? g_dMissingValue : model.azimuthTadPole(iRecord);
        }
        columns.m_vdValues.push_back(dValue);
        columns.m_vdAzimuths.push_back(dAzimuth);
    }
    return columns;
}

constexpr int g_iUnknown = -1; ///< no source was noted

/// The data set of the points of a model.
const MatrixData* sourceOf(const QRelationshipItemModel& model)
{
    return model.nodeX() ? model.nodeX()->owner() : nullptr;
}

} // namespace

DerivedAttributes::DerivedAttributes(MatrixData& root, const QString& sUndoText, bool bNewStep)
    : m_root(root)
    , m_sUndoText(sUndoText)
    , m_bNewStep(bNewStep)
{
}

MatrixDataRestore& DerivedAttributes::addRecord(MatrixData& node, bool bRemoval)
{
    auto poRestore = std::make_unique<MatrixDataRestore>(&node, m_sUndoText, bRemoval);
    MatrixDataRestore& restore = *poRestore;
    m_root.appendUndoAction(poRestore.release(), m_bNewStep);
    m_bNewStep = false;
    return restore;
}

bool DerivedAttributes::isGroupName(const QString& sName, const QString& sGroup)
{
    if (sName == sGroup)
        return true;
    if (!sName.startsWith(sGroup + QLatin1Char('_')))
        return false;
    bool bNumber = false;
    sName.mid(sGroup.size() + 1).toUInt(&bNumber);
    return bNumber;
}

MatrixData* DerivedAttributes::newDataSet(const QString& sName, const MatrixData* poSource)
{
    QString sUnique = sName;
    m_root.createUniqueName(sUnique);
    auto poDataSet = std::make_unique<MatrixData>(sUnique, -1, -1, QMetaType::Double, m_root.rowOffSet());
    MatrixData* poNew = poDataSet.get();
    m_root.appendChild(poDataSet.release(), false);
    addRecord(*poNew).storeInsertion(poNew);
    if (poSource)
        noteSource(*poNew, *poSource);
    return poNew;
}

void DerivedAttributes::remove(MatrixData& node)
{
    addRecord(node, true);
    m_root.removeChild(&node);
}

MatrixData* DerivedAttributes::dataSet(const QString& sGroup, int iRecords, const MatrixData* poSource)
{
    const int iSource = poSource ? poSource->globalID() : g_iUnknown;
    MatrixData* poFound = nullptr;
    for (int i = 0; i < m_root.childCount(); ++i) {
        MatrixData* poDataSet = m_root.child(i);
        if (poDataSet->isAttribute() || !isGroupName(poDataSet->name(), sGroup) || poDataSet->childCount() == 0 ||
            poDataSet->child(0)->recordCount() != iRecords)
            continue;
        const int iKnown = sourceID(*poDataSet);
        if (poDataSet == poSource || (iSource != g_iUnknown && iKnown == iSource))
            return poDataSet;
        if (!poFound && (iKnown == g_iUnknown || iSource == g_iUnknown))
            poFound = poDataSet;
    }
    if (!poFound)
        poFound = newDataSet(sGroup, poSource);
    else if (poSource)
        noteSource(*poFound, *poSource);
    return poFound;
}

MatrixData* DerivedAttributes::dataSetAt(const QString& sGroup, const QString& sDepthName, const MatrixColumn& oDepths,
                                         boost::shared_ptr<UnitManager> poUnit, bool bReplace,
                                         const MatrixData* poSource)
{
    const auto isOfOther = [poSource](MatrixData& dataSet) {
        const int iKnown = sourceID(dataSet);
        return poSource && iKnown != g_iUnknown && iKnown != poSource->globalID();
    };
    MatrixData* poNamed = nullptr;
    for (int i = 0; i < m_root.childCount(); ++i) {
        MatrixData* poDataSet = m_root.child(i);
        if (poDataSet->isAttribute() || !isGroupName(poDataSet->name(), sGroup) || poDataSet->childCount() == 0 ||
            isOfOther(*poDataSet))
            continue;
        if (poDataSet->child(0)->name() == sDepthName && poDataSet->child(0)->column() == oDepths) {
            if (poSource)
                noteSource(*poDataSet, *poSource);
            return poDataSet;
        }
        if (poDataSet->name() == sGroup)
            poNamed = poDataSet;
    }
    if (bReplace && poNamed)
        remove(*poNamed);
    MatrixData* poDataSet = newDataSet(sGroup, poSource);
    setAttribute(*poDataSet, sDepthName, oDepths, std::move(poUnit));
    return poDataSet;
}

MatrixData* DerivedAttributes::setAttribute(MatrixData& dataSet, const QString& sName, MatrixColumn oValues,
                                            boost::shared_ptr<UnitManager> poUnit)
{
    for (int i = 0; i < dataSet.childCount(); ++i) {
        MatrixData* poAttribute = dataSet.child(i);
        if (poAttribute->name() == sName && !poAttribute->isDerived()) {
            addRecord(*poAttribute).storeContents(poAttribute);
            poAttribute->setColumn(0, std::move(oValues));
            if (poUnit) // the former values may have had another
                poAttribute->setUnitManager(std::move(poUnit));
            return poAttribute;
        }
    }
    QString sUnique = sName;
    dataSet.createUniqueName(sUnique);
    auto poAttribute = std::make_unique<MatrixData>(sUnique, 0, 1, oValues.type(), dataSet.rowOffSet());
    poAttribute->setColumn(0, std::move(oValues));
    if (poUnit)
        poAttribute->setUnitManager(std::move(poUnit));
    poAttribute->setColor(MatrixData::getDefaultColor());
    poAttribute->setSelected(true);
    MatrixData* poNew = poAttribute.get();
    dataSet.appendChild(poAttribute.release(), true);
    addRecord(*poNew).storeInsertion(poNew);
    return poNew;
}

MatrixData* DerivedAttributes::setAttribute(MatrixData& dataSet, const QString& sName, MatrixColumn oValues,
                                            const QString& sUnitCategory)
{
    MatrixData* poAttribute = setAttribute(dataSet, sName, std::move(oValues), boost::shared_ptr<UnitManager>());
    poAttribute->setUnitManager(sUnitCategory);
    return poAttribute;
}

MatrixData* DerivedAttributes::setAngles(MatrixData& dataSet, const QString& sName, std::span<const double> vdDegrees)
{
    return setAttribute(dataSet, sName, column(vdDegrees), degreeUnit(m_root.registry()));
}

MatrixData* addClusterAttribute(MatrixData& root, const QString& sName, const QRelationshipItemModel& model)
{
    const std::span<const int> viClusters = model.clusterIDs();
    if (viClusters.empty() || sName.isEmpty())
        return nullptr;
    const int iRecords = static_cast<int>(viClusters.size());
    MatrixColumn oIds(QMetaType::Int);
    oIds.reserve(iRecords);
    for (const int iCluster : viClusters)
        oIds.appendValue(iCluster < 0 ? QVariant() : QVariant(iCluster));

    const MatrixDataNotifier::Batch batch(&root);
    DerivedAttributes derived(root, QStringLiteral("Create Cluster Attribute: ") + sName);
    MatrixData* poDataSet = derived.dataSet(QLatin1String(g_clusterGroup), iRecords, sourceOf(model));
    return derived.setAttribute(*poDataSet, sName, std::move(oIds), QLatin1String(g_dimensionless));
}

MatrixData* addDecimationAttributes(MatrixData& root, const QRelationshipItemModel& model, bool bBinAverage,
                                    bool bReplace, const MatrixData* poOriginal, bool bNewStep)
{
    const MatrixData* poValues = poOriginal ? poOriginal : model.nodeX();
    const MatrixData* poDepth = model.nodeY();
    if (!model.decimationData() || !model.decimationCount() || !poValues || !poDepth)
        return nullptr;
    const DecimatedColumns columns = decimatedColumns(model, bBinAverage);
    if (columns.m_vdDepths.empty())
        return nullptr;

    const MatrixDataNotifier::Batch batch(&root);
    const QString sPrefix = QLatin1String(g_decimatedPrefix);
    DerivedAttributes derived(root, QStringLiteral("Create Decimated Data: ") + poValues->name(), bNewStep);
    MatrixData* poDataSet =
        derived.dataSetAt(QLatin1String(g_decimationGroup), sPrefix + poDepth->name(), column(columns.m_vdDepths),
                          poDepth->unitManager(), bReplace, poDepth->owner());
    MatrixData* poResult = nullptr;
    if (model.decimationAngle().empty()) {
        poResult = derived.setAttribute(*poDataSet, sPrefix + poValues->name(), column(columns.m_vdValues),
                                        poValues->unitManager());
    } else {
        poResult = derived.setAngles(*poDataSet, sPrefix + QStringLiteral("dip"), columns.m_vdValues);
        derived.setAngles(*poDataSet, sPrefix + QStringLiteral("azimuth"), columns.m_vdAzimuths);
    }
    derived.setAttribute(*poDataSet, poValues->name() + QLatin1String(g_countSuffix),
                         column(columns.m_vdCounts).converted(QMetaType::Int), QLatin1String(g_dimensionless));
    return poResult;
}

MatrixData* addRotatedAttributes(MatrixData& root, const QRelationshipItemModel& model)
{
    if (!model.isRotated())
        return nullptr;
    const MatrixDataNotifier::Batch batch(&root);
    DerivedAttributes derived(root, QStringLiteral("Create Rotated Attributes"));
    MatrixData* poDataSet = derived.dataSet(QLatin1String(g_orientationGroup), model.numberOfPoints(), sourceOf(model));
    MatrixData* poDip = derived.setAngles(*poDataSet, QLatin1String(g_rotatedDip), model.x());
    derived.setAngles(*poDataSet, QLatin1String(g_rotatedAzimuth), model.y());
    return poDip;
}

MatrixData* addBiasWeightAttribute(MatrixData& root, const QString& sName, const QRelationshipItemModel& model)
{
    if (!model.hasScanLine() || model.numberOfValidPoints() == 0 || sName.isEmpty())
        return nullptr;
    const MatrixDataNotifier::Batch batch(&root);
    DerivedAttributes derived(root, QStringLiteral("Create Bias Weight Attribute: ") + sName);
    MatrixData* poDataSet = derived.dataSet(QLatin1String(g_orientationGroup), model.numberOfPoints(), sourceOf(model));
    return derived.setAttribute(*poDataSet, sName, column(model.biasWeights()), QLatin1String(g_fraction));
}

} // namespace gkBase

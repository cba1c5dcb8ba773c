#include "DerivedAttributes.h"

#include "AngleUnits.h"
#include "DepthLineField.h"
#include "MatrixDataArray.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "UnitManager.h"

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

// Which data set the attributes of a group come from, by identifiers. Known as long as the root lives, which its
// notifier does; it is not saved.
constexpr int g_iUnknown = -1;

QByteArray sourceKey(const MatrixData& dataSet)
{
    return "sourceOfDataSet" + QByteArray::number(dataSet.globalID());
}

int sourceOf(MatrixData& root, const MatrixData& dataSet)
{
    const QVariant qSource = root.notifier()->property(sourceKey(dataSet).constData());
    return qSource.isValid() ? qSource.toInt() : g_iUnknown;
}

void noteSource(MatrixData& root, const MatrixData& dataSet, int iSource)
{
    root.notifier()->setProperty(sourceKey(dataSet).constData(), iSource);
}

/// The data set of the points of a model.
const MatrixData* sourceOf(const QRelationshipItemModel& model)
{
    return model.nodeX() ? model.nodeX()->owner() : nullptr;
}

bool isText(const MatrixData& attribute, int iRecord, const QString& sText)
{
    return attribute.column().text(iRecord).compare(sText, Qt::CaseInsensitive) == 0;
}

bool isStructuralPlaneName(const QString& sType)
{
    return !sType.isEmpty() && DepthLineField::isStructuralPlane(DepthLineField::type(sType));
}

MatrixData* sibling(const MatrixData& dataSet, const QString& sName)
{
    return dataSet.getNodeFromName(sName);
}

/// Whether a record of the marker data set is of the kind.
class MarkerTest
{
public:
    MarkerTest(const MatrixData& dataSet, MarkerKind eKind, const QString& sType)
        : m_eKind(eKind)
        , m_sType(sType)
        , m_poType(sibling(dataSet, QStringLiteral("Type")))
        , m_poDip(sibling(dataSet, QStringLiteral("Decimated:dip")))
        , m_poAzimuth(sibling(dataSet, QStringLiteral("Decimated:azimuth")))
        , m_poHorizon(sibling(dataSet, QStringLiteral("Horizon")))
    {
    }

    bool operator()(int iRecord) const
    {
        switch (m_eKind) {
        case MarkerKind::Scat:
            return m_poType && isStructuralPlaneName(m_poType->column().text(iRecord));
        case MarkerKind::Type:
            return m_poType && isText(*m_poType, iRecord, m_sType);
        case MarkerKind::Decimated:
            return hasValue(m_poDip, iRecord) || hasValue(m_poAzimuth, iRecord);
        case MarkerKind::Top:
            return hasValue(m_poHorizon, iRecord);
        }
        return false;
    }

private:
    static bool hasValue(const MatrixData* poAttribute, int iRecord)
    {
        return poAttribute && iRecord < poAttribute->recordCount() && !poAttribute->column().isMissing(iRecord);
    }

    MarkerKind m_eKind;
    QString m_sType;
    const MatrixData* m_poType;
    const MatrixData* m_poDip;
    const MatrixData* m_poAzimuth;
    const MatrixData* m_poHorizon;
};

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

MatrixData* DerivedAttributes::newDataSet(const QString& sGroup)
{
    QString sName = sGroup;
    m_root.createUniqueName(sName);
    auto poDataSet = std::make_unique<MatrixData>(sName, -1, -1, QMetaType::Double, m_root.rowOffSet());
    MatrixData* poNew = poDataSet.get();
    m_root.appendChild(poDataSet.release(), false);
    addRecord(*poNew).storeInsertion(poNew);
    return poNew;
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
        const int iKnown = sourceOf(m_root, *poDataSet);
        if (poDataSet == poSource || (iSource != g_iUnknown && iKnown == iSource))
            return poDataSet;
        if (!poFound && (iKnown == g_iUnknown || iSource == g_iUnknown))
            poFound = poDataSet;
    }
    if (!poFound)
        poFound = newDataSet(sGroup);
    if (iSource != g_iUnknown)
        noteSource(m_root, *poFound, iSource);
    return poFound;
}

MatrixData* DerivedAttributes::dataSetAt(const QString& sGroup, const QString& sDepthName, const MatrixColumn& oDepths,
                                         boost::shared_ptr<UnitManager> poUnit, bool bReplace)
{
    MatrixData* poNamed = nullptr;
    for (int i = 0; i < m_root.childCount(); ++i) {
        MatrixData* poDataSet = m_root.child(i);
        if (poDataSet->isAttribute() || !isGroupName(poDataSet->name(), sGroup) || poDataSet->childCount() == 0)
            continue;
        if (poDataSet->child(0)->name() == sDepthName && poDataSet->child(0)->column() == oDepths)
            return poDataSet;
        if (poDataSet->name() == sGroup)
            poNamed = poDataSet;
    }
    if (bReplace && poNamed) {
        addRecord(*poNamed, true);
        m_root.removeChild(poNamed);
    }
    MatrixData* poDataSet = newDataSet(sGroup);
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
    MatrixData* poDataSet = derived.dataSetAt(QLatin1String(g_decimationGroup), sPrefix + poDepth->name(),
                                              column(columns.m_vdDepths), poDepth->unitManager(), bReplace);
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

bool setMarkersVisible(MatrixData& root, MarkerKind eKind, const QString& sType, bool bVisible)
{
    MatrixData* poVisible = root.getNodeFromName(QStringLiteral("$V"));
    const MatrixData* poDataSet = poVisible ? poVisible->parentNode() : nullptr;
    if (!poDataSet)
        return false;
    const MarkerTest isOfKind(*poDataSet, eKind, sType);
    const QVariant qVisible = QVariant::fromValue(bVisible);
    std::vector<int> viRecords;
    for (int i = 0; i < poDataSet->child(0)->recordCount(); ++i) {
        const bool bShown = poVisible->value(i + poVisible->rowOffSet(), 0).toBool();
        const bool bSet = i < poVisible->recordCount() && !poVisible->column().isMissing(i);
        if (isOfKind(i) && (!bSet || bShown != bVisible))
            viRecords.push_back(i);
    }
    if (viRecords.empty())
        return false;
    auto poRestore = std::make_unique<MatrixDataRestore>(poVisible, QStringLiteral("Marker Visibility"));
    poRestore->storeRowCount(poVisible);
    poRestore->storeRecords(poVisible, 0, viRecords);
    root.appendUndoAction(poRestore.release(), true);
    const MatrixDataNotifier::Batch batch(&root);
    for (const int iRecord : viRecords)
        poVisible->setValue(iRecord + poVisible->rowOffSet(), 0, qVisible);
    return true;
}

} // namespace gkBase

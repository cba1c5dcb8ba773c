#include "WellMarkers.h"

#include "AngleUnits.h"
#include "DepthLineField.h"
#include "DepthMarkers.h"
#include "DerivedAttributes.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MissingValue.h"
#include "UnitManager.h"
#include "WellDataSets.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace gkBase {

namespace {

// Names of data, the same in every language.
constexpr QLatin1String g_type("Type");
constexpr QLatin1String g_name("Name");
constexpr QLatin1String g_dip("Dip");
constexpr QLatin1String g_azimuth("Azimuth");
constexpr QLatin1String g_origin("Origin");
constexpr QLatin1String g_visibility("$V");
constexpr QLatin1String g_scat("SCAT");
constexpr QLatin1String g_suffix(" Markers");
constexpr int g_iNoRow = -1;

/// What a row says of a line.
struct WellMarker
{
    double m_dDepth = 0.0; ///< model unit of the well's depth
    QString m_sType;
    QString m_sName;
    double m_dDip = g_dEmptyCell;
    double m_dAzimuth = g_dEmptyCell;
};

bool isHere(double dDepth, double dOther)
{
    return std::abs(dDepth - dOther) <= 1e-9 * std::max(1.0, std::abs(dDepth));
}

std::vector<WellMarker> markersOf(const DepthLineField& lines)
{
    std::vector<WellMarker> vMarkers;
    for (const int iLine : lines.linesByDepth()) {
        const auto n = static_cast<std::size_t>(iLine);
        if (lines.lineTypes()[n] > DepthLineField::Fault)
            continue;
        WellMarker marker{lines.lineDepths()[n], DepthLineField::type(lines.lineTypes()[n]), lines.lineNames()[n]};
        const QPointF& oOrientation = lines.lineOrientations()[n];
        if (oOrientation.x() >= 0.0 && oOrientation.y() >= 0.0) {
            marker.m_dDip = oOrientation.x();
            marker.m_dAzimuth = oOrientation.y();
        }
        vMarkers.push_back(marker);
    }
    return vMarkers;
}

/// The well whose markers are those along a depth; null when the depth stands in no data set.
MatrixData* wellOfDepth(const MatrixData& root, const MatrixData& depth)
{
    MatrixData* poData = depth.owner() ? depth.owner() : depth.parentNode();
    MatrixData* poWell = poData && poData != &root ? wellOf(*poData) : nullptr;
    return poWell ? poWell : poData;
}

bool isSent(const MatrixData* poOrigin, int iRow)
{
    return poOrigin && poOrigin->column().text(iRow) == g_scat;
}

bool hasSentRows(const MatrixData& dataSet)
{
    const MatrixData* poOrigin = attributeNamed(dataSet, g_origin);
    for (int i = 0; poOrigin && i < poOrigin->recordCount(); ++i)
        if (isSent(poOrigin, i))
            return true;
    return false;
}

/// The tables with rows that were sent before, whatever their names are; without any, the one that would hold them by
/// its name, if it is there.
std::vector<MatrixData*> tablesOfMarkers(const MatrixData& root, const MatrixData& well)
{
    static const QRegularExpression markers(QStringLiteral(" Markers(_\\d+)?$"));
    std::vector<MatrixData*> vpTables;
    MatrixData* poNamed = nullptr;
    WellFinder finder;
    for (MatrixData* poDataSet : dataSetsBelow(root)) {
        if (!attributeNamed(*poDataSet, g_origin) || !isMarkerTable(*poDataSet) || finder.wellOf(*poDataSet) != &well)
            continue;
        if (hasSentRows(*poDataSet))
            vpTables.push_back(poDataSet);
        else if (!poNamed && markers.match(poDataSet->name()).hasMatch())
            poNamed = poDataSet;
    }
    if (vpTables.empty() && poNamed)
        vpTables.push_back(poNamed);
    return vpTables;
}

/// A data set of markers (null: one that is still to be made), and what its columns mean.
class MarkerTable
{
public:
    MarkerTable(MatrixData* poSet, const MatrixData& depth)
        : m_sDepthName(depth.name())
        , m_poDepthUnit(depth.unitManager())
        , m_poSet(poSet)
    {
    }

    MatrixData* dataSet() const { return m_poSet; }
    QString depthName() const { return m_poSet && depthNode() ? depthNode()->name() : m_sDepthName; }
    boost::shared_ptr<UnitManager> depthUnit() const { return m_poDepthUnit; }

    int recordCount() const { return m_poSet ? recordsOf(*m_poSet) : 0; }
    bool isSent(int iRow) const { return gkBase::isSent(attributeNamed(*m_poSet, g_origin), iRow); }
    QString text(QLatin1String sAttribute, int iRow) const
    {
        const MatrixData* poNode = attributeNamed(*m_poSet, sAttribute);
        return poNode ? poNode->column().text(iRow) : QString();
    }
    /// In the unit of the well's depth, 99999.0 when missing.
    double depth(int iRow) const
    {
        const MatrixData* poNode = depthNode();
        const double dDepth = poNode ? poNode->recordNumber(iRow) : g_dMissingValue;
        return isMissing(dDepth) ? g_dMissingValue : m_poDepthUnit->convertFromModelOf(*poNode->unitManager(), dDepth);
    }
    /// The other way.
    double inUnitOfTable(double dDepth) const
    {
        const MatrixData* poNode = m_poSet ? depthNode() : nullptr;
        return poNode ? poNode->unitManager()->convertFromModelOf(*m_poDepthUnit, dDepth) : dDepth;
    }

private:
    MatrixData* depthNode() const { return m_poSet->depthAttribute(); }

    QString m_sDepthName;
    boost::shared_ptr<UnitManager> m_poDepthUnit;
    MatrixData* m_poSet;
};

/// For each marker the row that was its own before, g_iNoRow for a new one.
std::vector<int> rowsOfMarkers(const MarkerTable& table, const std::vector<WellMarker>& vMarkers)
{
    std::vector<int> viRows(vMarkers.size(), g_iNoRow);
    struct SentRow
    {
        int m_iRow;
        WellMarker m_oMarker;
    };
    std::vector<SentRow> vSent;
    for (int i = 0; i < table.recordCount(); ++i)
        if (table.isSent(i))
            vSent.push_back({i, {table.depth(i), table.text(g_type, i), table.text(g_name, i)}});
    // Each pass gives every marker that is left the best row that is left.
    const auto assign = [&](auto&& distance) {
        for (std::size_t n = 0; n < vMarkers.size(); ++n) {
            if (viRows[n] != g_iNoRow)
                continue;
            double dBest = std::numeric_limits<double>::max();
            auto itBest = vSent.end();
            for (auto it = vSent.begin(); it != vSent.end(); ++it) {
                const double dDistance = distance(vMarkers[n], it->m_oMarker);
                if (dDistance < dBest) {
                    dBest = dDistance;
                    itBest = it;
                }
            }
            if (itBest == vSent.end())
                continue;
            viRows[n] = itBest->m_iRow;
            vSent.erase(itBest);
        }
    };
    constexpr double dNever = std::numeric_limits<double>::infinity();
    const auto offset = [](const WellMarker& a, const WellMarker& b) { return std::abs(a.m_dDepth - b.m_dDepth); };
    const auto isNamed = [](const WellMarker& a, const WellMarker& b) {
        return a.m_sType == b.m_sType && a.m_sName == b.m_sName;
    };
    using Marker = const WellMarker&;
    assign([&](Marker a, Marker b) { return isNamed(a, b) && isHere(a.m_dDepth, b.m_dDepth) ? 0.0 : dNever; });
    assign([&](Marker a, Marker b) { return isNamed(a, b) ? offset(a, b) : dNever; });
    assign([&](Marker a, Marker b) { return a.m_sType == b.m_sType && isHere(a.m_dDepth, b.m_dDepth) ? 0.0 : dNever; });
    return viRows;
}

/// Writes the columns of a table of markers; only what differs is written.
class MarkerWriter
{
public:
    /// viRows: the row of each marker, g_iNoRow for one that goes to the end. Sent rows that no marker has go.
    MarkerWriter(MatrixData& root, const MarkerTable& table, const std::vector<int>& viRows, const QString& sUndoText,
                 bool bNewStep)
        : m_oDerived(root, sUndoText, bNewStep)
        , m_poSet(table.dataSet())
    {
        std::vector<bool> vbTaken(static_cast<std::size_t>(table.recordCount()), false);
        for (const int iRow : viRows)
            if (iRow != g_iNoRow)
                vbTaken[static_cast<std::size_t>(iRow)] = true;
        std::vector<int> viTargets(vbTaken.size(), g_iNoRow);
        for (int i = 0; i < table.recordCount(); ++i) {
            if (!vbTaken[static_cast<std::size_t>(i)] && table.isSent(i))
                continue;
            viTargets[static_cast<std::size_t>(i)] = static_cast<int>(m_viKept.size());
            m_viKept.push_back(i);
        }
        m_iRecords = static_cast<int>(m_viKept.size());
        for (const int iRow : viRows)
            m_viTargets.push_back(iRow == g_iNoRow ? m_iRecords++ : viTargets[static_cast<std::size_t>(iRow)]);
    }

    bool isEmpty() const { return m_iRecords == 0; }
    bool hasChanged() const { return m_bChanged; }
    void useDataSet(MatrixData* poSet)
    {
        m_poSet = poSet;
        m_bChanged = true;
    }
    DerivedAttributes& derived() { return m_oDerived; }
    void removeDataSet()
    {
        m_oDerived.remove(*m_poSet);
        m_bChanged = true;
    }

    /// cell(n) is the cell of marker n.
    template <typename Cell>
    void write(const QString& sName, QMetaType::Type eType, const boost::shared_ptr<UnitManager>& poUnit, Cell&& cell)
    {
        MatrixData* poNode = attributeNamed(*m_poSet, sName);
        MatrixColumn oColumn = poNode ? poNode->column().gather(m_viKept) : MatrixColumn(eType);
        oColumn.resize(m_iRecords);
        for (std::size_t n = 0; n < m_viTargets.size(); ++n)
            oColumn.setValue(m_viTargets[n], cell(n));
        if (poNode)
            replace(*poNode, std::move(oColumn));
        else
            insert(sName, std::move(oColumn), poUnit);
    }
    /// The attributes that hold nothing of the markers lose and get rows only.
    void alignOthers(const QStringList& lWritten)
    {
        for (int i = 0; i < m_poSet->childCount(); ++i) {
            MatrixData* poNode = m_poSet->child(i);
            if (!poNode->isAttribute() || poNode->isDerived() || lWritten.contains(poNode->name()))
                continue;
            MatrixColumn oColumn = poNode->column().gather(m_viKept);
            oColumn.resize(m_iRecords);
            replace(*poNode, std::move(oColumn));
        }
    }

private:
    void replace(MatrixData& node, MatrixColumn oColumn)
    {
        if (node.isDerived() || oColumn == node.column())
            return;
        m_oDerived.setAttribute(*m_poSet, node.name(), std::move(oColumn), boost::shared_ptr<UnitManager>());
        m_bChanged = true;
    }
    void insert(const QString& sName, MatrixColumn oColumn, const boost::shared_ptr<UnitManager>& poUnit)
    {
        m_oDerived.setAttribute(*m_poSet, sName, std::move(oColumn), poUnit)->setSelected(false);
        m_bChanged = true;
    }

    DerivedAttributes m_oDerived;
    MatrixData* m_poSet;
    std::vector<int> m_viKept;    ///< rows before the edit
    std::vector<int> m_viTargets; ///< of each marker: its row after it
    int m_iRecords = 0;
    bool m_bChanged = false;
};

QVariant textOrNothing(const QString& sText)
{
    return sText.isEmpty() ? QVariant() : QVariant(sText);
}

/// An angle in the unit that the attribute has.
QVariant angle(const MatrixData* poNode, double dDegrees)
{
    return isMissing(dDegrees) ? QVariant() : QVariant(poNode ? dDegrees / degreesPerUnit(*poNode) : dDegrees);
}

void writeMarkers(MarkerWriter& writer, const MarkerTable& table, MatrixData& dataSet,
                  const std::vector<WellMarker>& vMarkers)
{
    const boost::shared_ptr<UnitManager> poDegrees = degreeUnit(dataSet.registry());
    const MatrixData* poDip = attributeNamed(dataSet, g_dip);
    const MatrixData* poAzimuth = attributeNamed(dataSet, g_azimuth);
    const QString sDepth = table.depthName();
    writer.write(sDepth, QMetaType::Double, table.depthUnit(),
                 [&](std::size_t n) { return table.inUnitOfTable(vMarkers[n].m_dDepth); });
    writer.write(g_type, QMetaType::QString, {}, [&](std::size_t n) { return vMarkers[n].m_sType; });
    writer.write(g_name, QMetaType::QString, {}, [&](std::size_t n) { return textOrNothing(vMarkers[n].m_sName); });
    writer.write(g_dip, QMetaType::Double, poDegrees, [&](std::size_t n) { return angle(poDip, vMarkers[n].m_dDip); });
    writer.write(g_azimuth, QMetaType::Double, poDegrees,
                 [&](std::size_t n) { return angle(poAzimuth, vMarkers[n].m_dAzimuth); });
    writer.write(g_origin, QMetaType::QString, {}, [](std::size_t) { return QString(g_scat); });
    writer.alignOthers({sDepth, g_type, g_name, g_dip, g_azimuth, g_origin});
    if (!attributeNamed(dataSet, g_visibility)) // cells that are there belong to their rows
        writer.write(g_visibility, QMetaType::Bool, {}, [](std::size_t) { return QVariant(); });
}

/// Makes the sent rows of a table those of the markers; a table without a row goes, one that is needed comes. Tells
/// whether something changed.
bool updateTable(MatrixData& root, const MatrixData& well, const MarkerTable& table,
                 const std::vector<WellMarker>& vMarkers, const QString& sUndoText, bool bNewStep)
{
    MarkerWriter writer(root, table, rowsOfMarkers(table, vMarkers), sUndoText, bNewStep);
    MatrixData* poDataSet = table.dataSet();
    if (poDataSet && writer.isEmpty()) {
        writer.removeDataSet();
        return true;
    }
    if (!poDataSet) {
        poDataSet = writer.derived().newDataSet(well.name() + g_suffix, &well);
        writer.useDataSet(poDataSet);
    }
    writeMarkers(writer, table, *poDataSet, vMarkers);
    return writer.hasChanged();
}

/// All markers go to the first table; rows that were sent to others go.
bool updateMarkers(MatrixData& root, const MatrixData& depth, const std::vector<WellMarker>& vMarkers,
                   const QString& sUndoText)
{
    const MatrixData* poWell = wellOfDepth(root, depth);
    if (!poWell)
        return false;
    std::vector<MatrixData*> vpTables = tablesOfMarkers(root, *poWell);
    if (vpTables.empty() && !vMarkers.empty())
        vpTables.push_back(nullptr);
    const MatrixDataNotifier::Batch batch(&root);
    bool bChanged = false;
    for (std::size_t n = 0; n < vpTables.size(); ++n) {
        const std::vector<WellMarker> vOfTable = n == 0 ? vMarkers : std::vector<WellMarker>();
        bChanged |= updateTable(root, *poWell, MarkerTable(vpTables[n], depth), vOfTable, sUndoText, !bChanged);
    }
    return bChanged;
}

DepthMarker::Kind kindOf(DepthLineField::DataType eType)
{
    if (eType == DepthLineField::Horizon)
        return DepthMarker::Horizon;
    return eType == DepthLineField::Fault ? DepthMarker::Fault : DepthMarker::Scat;
}

} // namespace

bool createWellMarkers(MatrixData& root, const DepthLineField& lines, const MatrixData& depth)
{
    return updateMarkers(root, depth, markersOf(lines), QStringLiteral("Create Well Markers"));
}

bool deleteWellMarkers(MatrixData& root, const MatrixData& depth)
{
    const MatrixData* poWell = wellOfDepth(root, depth);
    if (!poWell || std::ranges::none_of(tablesOfMarkers(root, *poWell),
                                        [](const MatrixData* poTable) { return hasSentRows(*poTable); }))
        return false;
    return updateMarkers(root, depth, {}, QStringLiteral("Delete Well Markers"));
}

ShownWellMarkers shownWellMarkers(const MatrixData& root, const DepthLineField& lines, const MatrixData& depth,
                                  const DepthMarkerSwitches& switches)
{
    const std::vector<DepthMarker> vShown = collectDepthMarkers(&root, &depth, switches).m_vLines;
    ShownWellMarkers count;
    for (std::size_t n = 0; n < lines.lineDepths().size(); ++n) {
        const DepthLineField::DataType eType = lines.lineTypes()[n];
        if (eType > DepthLineField::Fault)
            continue;
        ++count.m_iLines;
        count.m_iShown += std::ranges::any_of(vShown, [&](const DepthMarker& marker) {
            return marker.m_eKind == kindOf(eType) && isHere(marker.m_dDepth, lines.lineDepths()[n]);
        });
    }
    return count;
}

} // namespace gkBase

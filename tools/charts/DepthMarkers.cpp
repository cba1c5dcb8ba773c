#include "DepthMarkers.h"

#include "MarkerColumns.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "UnitManager.h"
#include "WellDataSets.h"

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

// Names of data, the same in every language.
constexpr QLatin1String g_visibility("$V");
constexpr QLatin1String g_decimated("Decimated:");

/// Which records of a data set are shown.
class RecordVisibility
{
public:
    RecordVisibility(const MatrixData& root, const MatrixData& dataSet)
    {
        const MatrixData* poOwn = attributeNamed(dataSet, g_visibility);
        const MatrixData* poNode = poOwn ? poOwn : root.getNodeFromName(g_visibility);
        if (!poNode)
            return;
        const QVariant qDefault = poNode->defaultValue1();
        const bool bForAll = isMarkerDefaultOfAll(qDefault);
        if (bForAll || poOwn)
            m_bDefault = !qDefault.isValid() || qDefault.toBool();
        if (!bForAll && poOwn)
            m_pCells = &poOwn->column();
    }

    bool isVisible(int iRecord) const
    {
        if (!m_pCells || m_pCells->isMissing(iRecord))
            return m_bDefault;
        if (m_pCells->isNumeric()) {
            const double dFlag = m_pCells->number(iRecord);
            return isMissing(dFlag) ? m_bDefault : dFlag != 0.0;
        }
        const QString sFlag = m_pCells->text(iRecord);
        return sFlag != QLatin1String("0") && sFlag.compare(QLatin1String("false"), Qt::CaseInsensitive) != 0;
    }

private:
    const MatrixColumn* m_pCells = nullptr; ///< null: all follow the default
    bool m_bDefault = true;
};

/// The depths of a data set in the model unit of the well's depth.
class ConvertedDepths
{
public:
    ConvertedDepths(const MatrixData& dataSet, const MatrixData& depth)
        : m_poDepth(dataSet.depthAttribute())
    {
        if (!m_poDepth)
            m_poDepth = attributeNamed(dataSet, g_decimated + depth.name(), Qt::CaseInsensitive);
        if (!m_poDepth)
            return;
        // Units differ by a factor and an offset.
        const boost::shared_ptr<UnitManager> poFrom = m_poDepth->unitManager();
        const boost::shared_ptr<UnitManager> poTo = depth.unitManager();
        m_dOffset = poTo->convertFromModelOf(*poFrom, 0.0);
        m_dFactor = poTo->convertFromModelOf(*poFrom, 1.0) - m_dOffset;
    }

    bool isValid() const { return m_poDepth != nullptr; }
    /// 99999.0 for a missing depth.
    double at(int iRecord) const
    {
        const double dDepth = m_poDepth->recordNumber(iRecord);
        return isMissing(dDepth) ? g_dMissingValue : dDepth * m_dFactor + m_dOffset;
    }

private:
    const MatrixData* m_poDepth;
    double m_dFactor = 1.0;
    double m_dOffset = 0.0;
};

bool isShown(DepthMarker::Kind eKind, const DepthMarkerSwitches& switches)
{
    switch (eKind) {
    case DepthMarker::Fault:
        return switches.m_bFaults;
    case DepthMarker::Scat:
        return switches.m_bScat;
    default:
        return switches.m_bTops;
    }
}

void collectLines(const MatrixData& dataSet, const ConvertedDepths& depths, const RecordVisibility& visibility,
                  const DepthMarkerSwitches& switches, std::vector<DepthMarker>& vLines)
{
    const MarkerColumns columns(dataSet);
    if (columns.isEmpty())
        return;
    for (int i = 0; i < columns.recordCount(); ++i) {
        columns.forEachMarker(i, [&](DepthMarker::Kind eKind, const QString& sName) {
            const double dDepth = depths.at(i);
            if (!isMissing(dDepth) && isShown(eKind, switches) && visibility.isVisible(i))
                vLines.push_back({dDepth, eKind, sName});
        });
    }
}

std::pair<MatrixData*, MatrixData*> decimatedAngles(const MatrixData& dataSet)
{
    return {attributeNamed(dataSet, QLatin1String("Decimated:dip"), Qt::CaseInsensitive),
            attributeNamed(dataSet, QLatin1String("Decimated:azimuth"), Qt::CaseInsensitive)};
}

void collectTadpoles(const MatrixData& dataSet, const ConvertedDepths& depths, const RecordVisibility& visibility,
                     std::vector<DepthTadpole>& vTadpoles)
{
    const auto [poDip, poAzimuth] = decimatedAngles(dataSet);
    if (!poDip || !poAzimuth)
        return;
    const int iRecords = std::min(poDip->recordCount(), poAzimuth->recordCount());
    for (int i = 0; i < iRecords; ++i) {
        const DepthTadpole tadpole{depths.at(i), poDip->recordNumber(i), poAzimuth->recordNumber(i)};
        if (!isMissing(tadpole.m_dDepth) && !isMissing(tadpole.m_dDip) && !isMissing(tadpole.m_dAzimuth) &&
            visibility.isVisible(i))
            vTadpoles.push_back(tadpole);
    }
}

} // namespace

QVariant markerDefaultOfAll(bool bVisible)
{
    return {bVisible};
}

QVariant markerDefaultOfRows()
{
    return {0};
}

bool isMarkerDefaultOfAll(const QVariant& qDefault)
{
    return qDefault.typeId() == QMetaType::Bool;
}

DepthMarkers collectDepthMarkers(const MatrixData* poRoot, const MatrixData* poDepth,
                                 const DepthMarkerSwitches& switches)
{
    DepthMarkers markers;
    if (!poRoot || !poDepth)
        return markers;
    MatrixData* poWellData = poDepth->owner() ? poDepth->owner() : poDepth->parentNode();
    if (!poWellData)
        return markers;
    WellFinder finder;
    const MatrixData* poWell = finder.wellOf(*poWellData);
    const auto isOfTheWell = [&](MatrixData& dataSet) {
        return &dataSet == poWellData || (poWell && finder.wellOf(dataSet) == poWell);
    };
    for (MatrixData* poDataSet : dataSetsBelow(*poRoot)) {
        const ConvertedDepths depths(*poDataSet, *poDepth);
        if (!depths.isValid() || !isOfTheWell(*poDataSet))
            continue;
        const RecordVisibility visibility(*poRoot, *poDataSet);
        collectLines(*poDataSet, depths, visibility, switches, markers.m_vLines);
        if (switches.m_bDecimated)
            collectTadpoles(*poDataSet, depths, visibility, markers.m_vTadpoles);
    }
    std::stable_sort(markers.m_vLines.begin(), markers.m_vLines.end(),
                     [](const DepthMarker& a, const DepthMarker& b) { return a.m_dDepth < b.m_dDepth; });
    return markers;
}

} // namespace gkBase

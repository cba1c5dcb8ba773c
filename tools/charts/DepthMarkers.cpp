#include "DepthMarkers.h"

#include "DepthLineField.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "UnitManager.h"

#include <algorithm>
#include <array>
#include <utility>

namespace gkBase {

namespace {

// Names of data, the same in every language.
constexpr QLatin1String g_visibility("$V");
constexpr QLatin1String g_type("Type");
constexpr QLatin1String g_name("Name");
constexpr QLatin1String g_decimated("Decimated:");
constexpr int g_iNoKind = -1;

/// The attributes that name markers, by kind.
struct NamingAttribute
{
    DepthMarker::Kind m_eKind;
    QString m_sName;
};

const std::array<NamingAttribute, 3>& namingAttributes()
{
    static const std::array<NamingAttribute, 3> attributes{{{DepthMarker::Top, QStringLiteral("Top")},
                                                            {DepthMarker::Horizon, QStringLiteral("Horizon")},
                                                            {DepthMarker::Fault, QStringLiteral("Fault")}}};
    return attributes;
}

/// The kind that a text of "Type" names, −1 for none.
int kindOfType(const QString& sType)
{
    for (const NamingAttribute& attribute : namingAttributes()) {
        if (sType.compare(attribute.m_sName, Qt::CaseInsensitive) == 0)
            return attribute.m_eKind;
    }
    const bool bScat = sType.startsWith(QLatin1String("SCAT"), Qt::CaseInsensitive) ||
                       DepthLineField::isStructuralPlane(DepthLineField::type(sType));
    return bScat ? static_cast<int>(DepthMarker::Scat) : g_iNoKind;
}

/// The parents of the attributes below a node, each once, in tree order.
std::vector<MatrixData*> dataSetsOf(const MatrixData* poRoot)
{
    std::vector<MatrixData*> vpDataSets;
    if (!poRoot)
        return vpDataSets;
    for (const MatrixData* poLeaf : poRoot->leafs()) {
        MatrixData* poDataSet = poLeaf->parentNode();
        if (poDataSet && (vpDataSets.empty() || vpDataSets.back() != poDataSet))
            vpDataSets.push_back(poDataSet);
    }
    return vpDataSets;
}

MatrixData* attributeNamed(const MatrixData& dataSet, const QString& sName,
                           Qt::CaseSensitivity eCase = Qt::CaseSensitive)
{
    for (int i = 0; i < dataSet.childCount(); ++i) {
        MatrixData* poChild = dataSet.child(i);
        if (poChild->isAttribute() && poChild->name().compare(sName, eCase) == 0)
            return poChild;
    }
    return nullptr;
}

const MatrixColumn* textColumn(const MatrixData& dataSet, const QString& sName)
{
    const MatrixData* poNode = attributeNamed(dataSet, sName);
    return poNode && poNode->column().type() == QMetaType::QString ? &poNode->column() : nullptr;
}

/// Which records of a data set are shown.
class RecordVisibility
{
public:
    explicit RecordVisibility(const MatrixData& dataSet)
    {
        const MatrixData* poNode = attributeNamed(dataSet, g_visibility);
        if (!poNode)
            return;
        m_pCells = &poNode->column();
        m_bDefault = !poNode->defaultValue1().isValid() || poNode->defaultValue1().toBool();
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
    const MatrixColumn* m_pCells = nullptr;
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

/// The columns of a data set that make markers of its records.
class MarkerColumns
{
public:
    explicit MarkerColumns(const MatrixData& dataSet)
        : m_pType(textColumn(dataSet, g_type))
        , m_pName(textColumn(dataSet, g_name))
    {
        for (const NamingAttribute& attribute : namingAttributes()) {
            if (const MatrixColumn* pColumn = textColumn(dataSet, attribute.m_sName))
                m_vNaming.emplace_back(attribute.m_eKind, pColumn);
        }
        if (!m_pType)
            return;
        for (const QString& sType : m_pType->texts())
            m_viKinds.push_back(kindOfType(sType));
    }

    bool isEmpty() const { return m_vNaming.empty() && !m_pType; }
    int recordCount() const
    {
        int iRecords = m_pType ? m_pType->size() : 0;
        for (const auto& [eKind, pColumn] : m_vNaming)
            iRecords = std::max(iRecords, pColumn->size());
        return iRecords;
    }

    /// Calls fn(kind, name) for every marker of a record.
    template <typename Function>
    void forEachMarker(int iRecord, Function&& fn) const
    {
        bool bNamed = false;
        for (const auto& [eKind, pColumn] : m_vNaming) {
            if (pColumn->isMissing(iRecord) || pColumn->text(iRecord).isEmpty())
                continue;
            bNamed = true;
            fn(eKind, pColumn->text(iRecord));
        }
        if (bNamed || !m_pType || m_pType->isMissing(iRecord))
            return;
        const int iKind = m_viKinds[static_cast<std::size_t>(m_pType->textCodes()[static_cast<std::size_t>(iRecord)])];
        if (iKind == g_iNoKind)
            return;
        const bool bHasName = m_pName && !m_pName->isMissing(iRecord) && !m_pName->text(iRecord).isEmpty();
        fn(static_cast<DepthMarker::Kind>(iKind), bHasName ? m_pName->text(iRecord) : m_pType->text(iRecord));
    }

private:
    const MatrixColumn* m_pType;
    const MatrixColumn* m_pName;
    std::vector<std::pair<DepthMarker::Kind, const MatrixColumn*>> m_vNaming;
    std::vector<int> m_viKinds; ///< by code of "Type"
};

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

DepthMarkers collectDepthMarkers(const MatrixData* poRoot, const MatrixData* poDepth,
                                 const DepthMarkerSwitches& switches)
{
    DepthMarkers markers;
    if (!poRoot || !poDepth)
        return markers;
    for (const MatrixData* poDataSet : dataSetsOf(poRoot)) {
        const ConvertedDepths depths(*poDataSet, *poDepth);
        if (!depths.isValid())
            continue;
        const RecordVisibility visibility(*poDataSet);
        collectLines(*poDataSet, depths, visibility, switches, markers.m_vLines);
        if (switches.m_bDecimated)
            collectTadpoles(*poDataSet, depths, visibility, markers.m_vTadpoles);
    }
    std::stable_sort(markers.m_vLines.begin(), markers.m_vLines.end(),
                     [](const DepthMarker& a, const DepthMarker& b) { return a.m_dDepth < b.m_dDepth; });
    return markers;
}

} // namespace gkBase

#include "MarkerVisibility.h"

#include "MarkerColumns.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "WellDataSets.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace gkBase {

namespace {

std::vector<MatrixData*> visibilityAttributes(const MatrixData& root)
{
    std::vector<MatrixData*> vpAttributes = root.leafs();
    std::erase_if(vpAttributes, [](const MatrixData* poLeaf) {
        return poLeaf->name() != QLatin1String("$V") || !poLeaf->parentNode();
    });
    return vpAttributes;
}

/// The kinds to switch, each with its text.
using MarkerKinds = std::vector<std::pair<MarkerKind, QString>>;

/// Whether a record of a data set is of one of the kinds.
class MarkerTest
{
public:
    MarkerTest(const MatrixData& dataSet, const MarkerKinds& kinds)
        : m_dataSet(dataSet)
        , m_kinds(kinds)
        , m_columns(dataSet)
        , m_poDip(attributeNamed(dataSet, QStringLiteral("Decimated:dip"), Qt::CaseInsensitive))
        , m_poAzimuth(attributeNamed(dataSet, QStringLiteral("Decimated:azimuth"), Qt::CaseInsensitive))
    {
    }

    /// Records behind these are no markers.
    int recordCount() const
    {
        const int iTadpoles = m_poDip || m_poAzimuth ? recordsOf(m_dataSet) : 0;
        return std::max(m_columns.recordCount(), iTadpoles);
    }
    bool operator()(int iRecord) const
    {
        return std::any_of(m_kinds.begin(), m_kinds.end(),
                           [&](const auto& kind) { return isOf(iRecord, kind.first, kind.second); });
    }

private:
    bool isOf(int iRecord, MarkerKind eKind, const QString& sType) const
    {
        switch (eKind) {
        case MarkerKind::Scat:
            return m_columns.hasMarker(iRecord, DepthMarker::Scat);
        case MarkerKind::Type:
            return m_columns.type(iRecord).compare(sType, Qt::CaseInsensitive) == 0 ||
                   (sType == QLatin1String("Top") && m_columns.hasMarker(iRecord, DepthMarker::Top)) ||
                   (sType == QLatin1String("Fault") && m_columns.hasMarker(iRecord, DepthMarker::Fault));
        case MarkerKind::Decimated:
            return hasValue(m_poDip, iRecord) || hasValue(m_poAzimuth, iRecord);
        case MarkerKind::Top:
            return m_columns.hasMarker(iRecord, DepthMarker::Horizon);
        }
        return false;
    }
    static bool hasValue(const MatrixData* poAttribute, int iRecord)
    {
        return poAttribute && !poAttribute->column().isMissing(iRecord);
    }

    const MatrixData& m_dataSet;
    const MarkerKinds& m_kinds;
    MarkerColumns m_columns;
    const MatrixData* m_poDip;
    const MatrixData* m_poAzimuth;
};

/// The records of the kinds whose cells say something else.
std::vector<int> recordsToWrite(const MatrixData& visible, const MarkerKinds& kinds, bool bVisible)
{
    std::vector<int> viRecords;
    if (kinds.empty())
        return viRecords;
    const MatrixData& dataSet = *visible.parentNode();
    const MarkerTest isOfKind(dataSet, kinds);
    for (int i = 0; i < recordsOf(dataSet); ++i) {
        const bool bSame = !visible.column().isMissing(i) && visible.column().value(i).toBool() == bVisible;
        if (!bSame && isOfKind(i))
            viRecords.push_back(i);
    }
    return viRecords;
}

bool isSameDefault(const QVariant& qLeft, const QVariant& qRight)
{
    return qLeft.typeId() == qRight.typeId() && qLeft == qRight; // 0 is no false here
}

/// Gives every "$V" the default (none: it keeps its own) and writes the rows of the kinds.
bool changeVisibility(MatrixData& root, const std::optional<QVariant>& oqDefault, const MarkerKinds& kinds,
                      bool bVisible)
{
    const MatrixDataNotifier::Batch batch(&root);
    bool bChanged = false;
    for (MatrixData* poVisible : visibilityAttributes(root)) {
        const bool bDefault = oqDefault && !isSameDefault(poVisible->defaultValue1(), *oqDefault);
        const std::vector<int> viRecords = recordsToWrite(*poVisible, kinds, bVisible);
        if (!bDefault && viRecords.empty())
            continue;
        auto poRestore = std::make_unique<MatrixDataRestore>(poVisible, QStringLiteral("Marker Visibility"));
        poRestore->storeContents(poVisible);
        root.appendUndoAction(poRestore.release(), !std::exchange(bChanged, true));
        if (bDefault) {
            poVisible->setDefaultValue1(*oqDefault);
            poVisible->valuesChanged();
        }
        for (const int iRecord : viRecords)
            poVisible->setValue(iRecord + poVisible->rowOffSet(), 0, QVariant::fromValue(bVisible));
    }
    return bChanged;
}

} // namespace

bool hasMarkerVisibility(const MatrixData* poRoot)
{
    return poRoot && !visibilityAttributes(*poRoot).empty();
}

bool canMarkersBeHidden(const MatrixData& root, MarkerKind eKind, const QString& sType)
{
    if (!hasMarkerVisibility(&root))
        return false;
    const MarkerKinds kinds{{eKind, sType}};
    const std::vector<MatrixData*> vpDataSets = dataSetsBelow(root);
    return std::none_of(vpDataSets.begin(), vpDataSets.end(), [&kinds](const MatrixData* poDataSet) {
        if (attributeNamed(*poDataSet, QStringLiteral("$V")))
            return false;
        const MarkerTest isOfKind(*poDataSet, kinds);
        bool bFound = false;
        for (int i = 0; i < isOfKind.recordCount() && !bFound; ++i)
            bFound = isOfKind(i);
        return bFound;
    });
}

bool areMarkersHidden(const MatrixData& root)
{
    const std::vector<MatrixData*> vpAttributes = visibilityAttributes(root);
    return !vpAttributes.empty() && std::all_of(vpAttributes.begin(), vpAttributes.end(), [](const MatrixData* poNode) {
        return isSameDefault(poNode->defaultValue1(), markerDefaultOfAll(false));
    });
}

bool setMarkerVisibility(MatrixData& root, const MarkerVisibilityChoice& choice)
{
    if (choice.m_bAll)
        return changeVisibility(root, markerDefaultOfAll(choice.m_bVisible), {}, choice.m_bVisible);
    MarkerKinds kinds;
    if (choice.m_bScat)
        kinds.emplace_back(MarkerKind::Scat, QString());
    if (choice.m_bDecimated)
        kinds.emplace_back(MarkerKind::Decimated, QString());
    if (choice.m_bTops) {
        kinds.emplace_back(MarkerKind::Type, QStringLiteral("Top"));
        kinds.emplace_back(MarkerKind::Top, QString());
    }
    if (choice.m_bFaults)
        kinds.emplace_back(MarkerKind::Type, QStringLiteral("Fault"));
    return changeVisibility(root, markerDefaultOfRows(), kinds, choice.m_bVisible);
}

bool setMarkersVisible(MatrixData& root, MarkerKind eKind, const QString& sType, bool bVisible)
{
    return changeVisibility(root, std::nullopt, {{eKind, sType}}, bVisible);
}

} // namespace gkBase

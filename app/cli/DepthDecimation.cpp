#include "DepthDecimation.h"

#include <gkBase/Decimation.h>
#include <gkBase/MatrixData.h>
#include <gkBase/UnitManager.h>

#include <algorithm>

namespace gkHost {

namespace {

using Columns = std::vector<std::vector<double>>;

/// How the columns are averaged, by their numbers.
struct MeanKinds
{
    struct Pair
    {
        std::size_t m_iDip = 0; ///< or plunge
        std::size_t m_iAzimuth = 0;
        bool m_bLine = false;
    };
    std::vector<Pair> m_vPairs;
    std::vector<std::size_t> m_viDirections; ///< azimuths and strikes alone
    std::vector<std::size_t> m_viNumbers;
};

/// An attribute without records that is named and measured as another.
gkBase::MatrixData* emptyLike(const gkBase::MatrixData& attribute)
{
    auto poAttribute = std::make_unique<gkBase::MatrixData>(attribute.name(), 0, 1);
    poAttribute->setUnitManager(attribute.unitManager());
    return poAttribute.release();
}

/// Recognises dips and azimuths by unit and name, as the charts do, the best pair first.
MeanKinds meanKinds(const std::vector<gkBase::MatrixData*>& vpColumns)
{
    gkBase::MatrixData names;
    std::vector<const gkBase::MatrixData*> vpNames;
    for (const gkBase::MatrixData* poColumn : vpColumns) {
        gkBase::MatrixData* poName = emptyLike(*poColumn);
        vpNames.push_back(poName);
        names.appendChild(poName, true);
    }
    const auto takeColumn = [&](gkBase::MatrixData* poName) {
        const auto it = std::find(vpNames.begin(), vpNames.end(), poName);
        names.removeChild(poName);
        *it = nullptr;
        return static_cast<std::size_t>(it - vpNames.begin());
    };
    MeanKinds kinds;
    while (names.dipAttribute() && names.azimuthAttribute()) {
        const bool bLine = names.dipAttribute()->name().contains(QLatin1String("plunge"), Qt::CaseInsensitive);
        const std::size_t iDip = takeColumn(names.dipAttribute());
        kinds.m_vPairs.push_back({iDip, takeColumn(names.azimuthAttribute()), bLine});
    }
    QList<QString> lNames;
    QList<int> liDirections;
    QList<QColor> lColors;
    names.getDataSetSelectionBoxItems(lNames, liDirections, lColors, gkBase::MatrixData::Direction, false);
    for (std::size_t i = 0; i < vpNames.size(); ++i) {
        if (vpNames[i]) {
            (liDirections.contains(vpNames[i]->globalID()) ? kinds.m_viDirections : kinds.m_viNumbers).push_back(i);
        }
    }
    return kinds;
}

/// The bins of the records that enter at least one mean; −1 for the others.
std::vector<int> countedBins(std::vector<int> viBins, const Columns& vvdColumns, const MeanKinds& kinds)
{
    const auto hasValue = [&](std::size_t iColumn, std::size_t i) {
        return i < vvdColumns[iColumn].size() && !gkBase::isMissing(vvdColumns[iColumn][i]);
    };
    for (std::size_t i = 0; i < viBins.size(); ++i) {
        const auto isNumber = [&](std::size_t iColumn) { return hasValue(iColumn, i); };
        const auto isPair = [&](const MeanKinds::Pair& pair) {
            return hasValue(pair.m_iDip, i) && hasValue(pair.m_iAzimuth, i);
        };
        if (std::none_of(kinds.m_vPairs.begin(), kinds.m_vPairs.end(), isPair) &&
            std::none_of(kinds.m_viDirections.begin(), kinds.m_viDirections.end(), isNumber) &&
            std::none_of(kinds.m_viNumbers.begin(), kinds.m_viNumbers.end(), isNumber)) {
            viBins[i] = -1;
        }
    }
    return viBins;
}

Columns meansOf(const Columns& vvdColumns, const MeanKinds& kinds, const std::vector<int>& viBins, int nBins)
{
    Columns vvdMeans(vvdColumns.size());
    for (const MeanKinds::Pair& pair : kinds.m_vPairs) {
        const auto& vdDip = vvdColumns[pair.m_iDip];
        const auto& vdAzimuth = vvdColumns[pair.m_iAzimuth];
        for (const gkBase::BinOrientation& mean : pair.m_bLine
                                                      ? gkBase::binMeanLines(viBins, nBins, vdDip, vdAzimuth)
                                                      : gkBase::binMeanPlanes(viBins, nBins, vdDip, vdAzimuth)) {
            vvdMeans[pair.m_iDip].push_back(mean.m_dDip);
            vvdMeans[pair.m_iAzimuth].push_back(mean.m_dAzimuth);
        }
    }
    for (const std::size_t i : kinds.m_viDirections) {
        for (const gkBase::CircularMean& mean : gkBase::binMeanDirections(viBins, nBins, vvdColumns[i])) {
            vvdMeans[i].push_back(mean.m_dDirection);
        }
    }
    for (const std::size_t i : kinds.m_viNumbers) {
        vvdMeans[i] = gkBase::binMeans(viBins, nBins, vvdColumns[i]);
    }
    return vvdMeans;
}

void append(gkBase::MatrixData& dataSet, gkBase::MatrixData* poAttribute, gkBase::MatrixColumn column)
{
    QString sName = poAttribute->name();
    dataSet.createUniqueName(sName);
    poAttribute->setName(sName);
    poAttribute->setColumn(0, std::move(column));
    dataSet.appendChild(poAttribute, true);
}

/// Missing means become empty cells.
gkBase::MatrixColumn cellsOf(std::vector<double> vdValues)
{
    std::replace_if(vdValues.begin(), vdValues.end(), gkBase::isMissing, gkBase::g_dEmptyCell);
    return gkBase::MatrixColumn::fromDoubles(std::move(vdValues));
}

} // namespace

std::unique_ptr<gkBase::MatrixData> decimatedDataSet(const QString& sName, const gkBase::MatrixData& depth,
                                                     const gkBase::IntervalBins& oBins,
                                                     const std::vector<gkBase::MatrixData*>& vpColumns)
{
    const int nBins = oBins.count();
    const MeanKinds kinds = meanKinds(vpColumns);
    Columns vvdColumns;
    for (const gkBase::MatrixData* poColumn : vpColumns) {
        vvdColumns.push_back(poColumn->column().numbers());
    }
    const std::vector<int> viBins = gkBase::binsOfRecords(depth.column().numbers(), oBins);
    Columns vvdMeans = meansOf(vvdColumns, kinds, viBins, nBins);

    std::vector<double> vdCentres;
    gkBase::MatrixColumn counts(QMetaType::Int, nBins);
    const std::vector<std::size_t> viCounts = gkBase::binCounts(countedBins(viBins, vvdColumns, kinds), nBins);
    for (int i = 0; i < nBins; ++i) {
        vdCentres.push_back(oBins.centre(i));
        counts.setValue(i, static_cast<int>(viCounts[static_cast<std::size_t>(i)]));
    }
    auto poDataSet = std::make_unique<gkBase::MatrixData>(sName);
    append(*poDataSet, emptyLike(depth), cellsOf(std::move(vdCentres)));
    append(*poDataSet, new gkBase::MatrixData(QStringLiteral("Count"), 0, 1, QMetaType::Int), std::move(counts));
    for (std::size_t i = 0; i < vpColumns.size(); ++i) {
        append(*poDataSet, emptyLike(*vpColumns[i]), cellsOf(std::move(vvdMeans[i])));
    }
    return poDataSet;
}

} // namespace gkHost

#include "ClusterCommand.h"

#include "CommandInput.h"
#include "CommandText.h"
#include "CsvOutput.h"

#include <gkBase/KMeansClusters.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <numeric>

namespace gkHost {

namespace {

gkBase::KMeansClusters clustersOf(const std::vector<gkBase::MatrixData*>& vpColumns, int k)
{
    std::vector<std::vector<double>> vvdColumns;
    vvdColumns.reserve(vpColumns.size());
    for (const gkBase::MatrixData* poColumn : vpColumns) {
        vvdColumns.push_back(poColumn->column().numbers());
    }
    return gkBase::kMeansClusters({vvdColumns.begin(), vvdColumns.end()}, k);
}

/// Appends the cluster ids to a data set; records without a cluster stay empty.
void appendIds(gkBase::MatrixData& dataSet, const gkBase::KMeansClusters& oClusters)
{
    const auto iRecords = static_cast<int>(oClusters.m_viClusterOfPoint.size());
    gkBase::MatrixColumn ids(QMetaType::Int, iRecords);
    for (int i = 0; i < iRecords; ++i) {
        const int iCluster = oClusters.m_viClusterOfPoint[static_cast<std::size_t>(i)];
        if (iCluster >= 0) {
            ids.setValue(i, iCluster);
        }
    }
    QString sName = QStringLiteral("Cluster");
    dataSet.createUniqueName(sName);
    auto poIds = std::make_unique<gkBase::MatrixData>(sName, 0, 1, QMetaType::Int);
    poIds->setColumn(0, std::move(ids));
    dataSet.appendChild(poIds.release(), true);
}

std::size_t clusteredRecords(const gkBase::KMeansClusters& oClusters)
{
    return std::accumulate(oClusters.m_viSizes.begin(), oClusters.m_viSizes.end(), std::size_t(0));
}

QJsonObject toJson(const gkBase::KMeansClusters& oClusters)
{
    QJsonArray centroids;
    QJsonArray sizes;
    for (int i = 0; i < oClusters.m_iK; ++i) {
        QJsonArray centroid;
        for (int d = 0; d < oClusters.m_iDimension; ++d) {
            centroid.append(oClusters.centroid(i, d));
        }
        centroids.append(centroid);
        sizes.append(static_cast<qint64>(oClusters.m_viSizes[static_cast<std::size_t>(i)]));
    }
    return {{QStringLiteral("k"), oClusters.m_iK},
            {QStringLiteral("n"), static_cast<qint64>(clusteredRecords(oClusters))},
            {QStringLiteral("distortion"), oClusters.m_dDistortion},
            {QStringLiteral("centroids"), centroids},
            {QStringLiteral("sizes"), sizes}};
}

QString toText(const gkBase::KMeansClusters& oClusters)
{
    QString sText = text("%1 clusters of %2 records, distortion %3\n")
                        .arg(oClusters.m_iK)
                        .arg(clusteredRecords(oClusters))
                        .arg(oClusters.m_dDistortion, 0, 'g', 10);
    for (int i = 0; i < oClusters.m_iK; ++i) {
        QStringList lCentroid;
        for (int d = 0; d < oClusters.m_iDimension; ++d) {
            lCentroid << QString::number(oClusters.centroid(i, d), 'g', 10);
        }
        sText += QStringLiteral("  %1 %2  (%3)\n")
                     .arg(i, 3)
                     .arg(oClusters.m_viSizes[static_cast<std::size_t>(i)], 9)
                     .arg(lCentroid.join(QLatin1String(", ")));
    }
    return sText;
}

} // namespace

CommandResult runClusterCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(
        text("Groups the records by two or three attributes (k-means) and writes all attributes with the cluster of "
             "each record as CSV. The axes are not rescaled."));
    input.parser().addOptions({{QStringLiteral("columns"), text("Two or three attributes."), QStringLiteral("A,B,C")},
                               {QStringLiteral("k"), text("Number of clusters."), QStringLiteral("N")},
                               {QStringLiteral("out"), text("The CSV file to write."), QStringLiteral("PATH")},
                               {QStringLiteral("json"), text("Print JSON.")}});
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    std::optional<CommandResult> oError =
        input.require({QStringLiteral("columns"), QStringLiteral("k"), QStringLiteral("out")});
    const int k = input.wholeNumber(QStringLiteral("k"), oError).value_or(0);
    const QStringList lColumns = input.names(QStringLiteral("columns"));
    if (!oError && (lColumns.size() < 2 || lColumns.size() > 3)) {
        oError = CommandResult::badUsage(text("--columns: give two or three attributes"));
    }
    if (!oError) {
        oError = input.load();
    }
    if (oError) {
        return *oError;
    }
    const std::vector<gkBase::MatrixData*> vpColumns = input.numericAttributes(lColumns, oError);
    if (oError) {
        return *oError;
    }
    const gkBase::KMeansClusters oClusters = clustersOf(vpColumns, k);
    if (oClusters.m_iK == 0) {
        return CommandResult::badInput(
            text("%1: no record has a value in all of %2").arg(input.filePath(), lColumns.join(QLatin1String(", "))));
    }
    appendIds(*vpColumns.front()->parentNode(), oClusters);
    if (const auto oFailure = writeCsv(input.root(), input.value(QStringLiteral("out")))) {
        return *oFailure;
    }
    return CommandResult::ok(input.isSet(QStringLiteral("json"))
                                 ? QString::fromUtf8(QJsonDocument(toJson(oClusters)).toJson())
                                 : toText(oClusters));
}

} // namespace gkHost

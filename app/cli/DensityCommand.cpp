#include "DensityCommand.h"

#include "CommandText.h"
#include "OrientationInput.h"
#include "ReportText.h"

#include <gkBase/DensityGrid.h>
#include <gkBase/OrientationText.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

namespace gkHost {

namespace {

constexpr int g_iAngleDecimals = 1;

struct GridSize
{
    int m_iColumns = 0;
    int m_iRows = 0;
};

GridSize gridSize(const CommandInput& input, std::optional<CommandResult>& oError)
{
    constexpr int iMost = gkBase::DensityGrid::s_iMaximumNodes;
    static const QRegularExpression form(QStringLiteral("^(\\d{1,6})[xX](\\d{1,6})$"));
    const QRegularExpressionMatch match = form.match(input.value(QStringLiteral("grid")));
    const GridSize size{match.captured(1).toInt(), match.captured(2).toInt()};
    const bool bOk = match.hasMatch() && std::min(size.m_iColumns, size.m_iRows) >= 2 &&
                     std::max(size.m_iColumns, size.m_iRows) <= iMost;
    if (!bOk && !oError) {
        oError = CommandResult::badUsage(
            text("--grid: \"%1\" is no size from 2x2 to %2x%2").arg(input.value(QStringLiteral("grid"))).arg(iMost));
    }
    return size;
}

QJsonObject toJson(const gkBase::DensityGrid& oGrid)
{
    QJsonArray rows;
    for (int iRow = 0; iRow < oGrid.m_iRows; ++iRow) {
        QJsonArray counts;
        for (int i = 0; i < oGrid.m_iColumns; ++i) {
            counts.append(oGrid.count(i, iRow));
        }
        rows.append(counts);
    }
    return {{QStringLiteral("nx"), oGrid.m_iColumns},
            {QStringLiteral("ny"), oGrid.m_iRows},
            {QStringLiteral("counts"), rows}};
}

/// The line or pole at the first of the nodes with the highest count.
QString densestNode(const gkBase::DensityGrid& oGrid, const gkBase::NetProjection& projection)
{
    const auto it = std::max_element(oGrid.m_vdCounts.begin(), oGrid.m_vdCounts.end());
    const auto iNode = static_cast<int>(it - oGrid.m_vdCounts.begin());
    const gkBase::NetPoint oPoint{oGrid.x(iNode % oGrid.m_iColumns), oGrid.y(iNode / oGrid.m_iColumns)};
    return text("%1 (%2 per cent of N) at %3")
        .arg(*it)
        .arg(*it * oGrid.percentFactor(), 0, 'f', 2)
        .arg(gkBase::lineText(projection.lineAt(gkBase::pulledOntoNet(oPoint)), g_iAngleDecimals));
}

QString toText(const gkBase::DensityGrid& oGrid, const gkBase::NetProjection& projection, bool bPlanes)
{
    const bool bEqualArea = projection.layout() == gkBase::NetLayout::EqualArea;
    ReportText report((bPlanes
                           ? text("poles of planes, counted at %1 x %2 nodes of the %3 net, rows from north to south")
                           : text("lines, counted at %1 x %2 nodes of the %3 net, rows from north to south"))
                          .arg(oGrid.m_iColumns)
                          .arg(oGrid.m_iRows)
                          .arg(bEqualArea ? text("equal-area") : text("equal-angle")));
    report.addLine(text("records"), QString::number(oGrid.m_iRecords));
    report.addLine(text("missing"), QString::number(oGrid.m_iMissing));
    report.addLine(text("highest count"),
                   oGrid.m_iRecords > 0 ? densestNode(oGrid, projection) : gkBase::undefinedText());
    for (int iRow = 0; iRow < oGrid.m_iRows; ++iRow) {
        QString sRow;
        for (int i = 0; i < oGrid.m_iColumns; ++i) {
            sRow += QStringLiteral("%1 ").arg(oGrid.count(i, iRow), 3);
        }
        report.addRow(sRow.chopped(1));
    }
    return report.toString();
}

} // namespace

CommandResult runDensityCommand(const QStringList& lArguments)
{
    CommandInput input;
    input.parser().setApplicationDescription(
        text("Counts planes by their poles, or lines, at the nodes of a grid over the square around the net. Each adds "
             "1 to the four nodes about it; opposite nodes near the rim both get the sum of their counts."));
    addOrientationOptions(input.parser());
    input.parser().addOptions({{QStringLiteral("grid"), text("Nodes from west to east and from north to south."),
                                QStringLiteral("NXxNY"), QStringLiteral("50x50")},
                               projectionOption(),
                               {QStringLiteral("json"), text("Print JSON.")}});
    if (const auto oResult = input.parse(lArguments)) {
        return *oResult;
    }
    std::optional<CommandResult> oError;
    const GridSize size = gridSize(input, oError);
    const gkBase::NetProjection projection(projectionLayout(input, oError));
    const OrientationInput orientations = loadedOrientations(input, oError);
    if (oError) {
        return *oError;
    }
    const gkBase::DensityGrid oGrid = gkBase::densityGrid(projection, orientations.m_eType, orientations.m_vdAngles,
                                                          orientations.m_vdAzimuths, size.m_iColumns, size.m_iRows);
    return CommandResult::ok(input.isSet(QStringLiteral("json"))
                                 ? QString::fromUtf8(QJsonDocument(toJson(oGrid)).toJson(QJsonDocument::Compact)) +
                                       QLatin1Char('\n')
                                 : toText(oGrid, projection, orientations.isPlanes()));
}

} // namespace gkHost

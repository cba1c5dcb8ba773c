#include "RenderCommand.h"

#include "ChartRenderer.h"
#include "CommandText.h"

#include <gkBase/ChartExporter.h>

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace gkHost {

namespace {

QStringList chartNames()
{
    QStringList lNames;
    for (const ChartRenderer& renderer : chartRenderers())
        lNames << renderer.m_sName;
    return lNames;
}

/// The chart that the arguments ask for. It must be known before they are parsed, as its options differ.
const ChartRenderer* requestedChart(const QStringList& lArguments)
{
    QString sName;
    for (qsizetype i = 1; i < lArguments.size(); ++i) {
        if (lArguments[i] == QLatin1String("--chart"))
            sName = lArguments.value(i + 1);
        else if (lArguments[i].startsWith(QLatin1String("--chart=")))
            sName = lArguments[i].mid(8);
    }
    for (const ChartRenderer& renderer : chartRenderers())
        if (renderer.m_sName == sName)
            return &renderer;
    return nullptr;
}

std::optional<QSize> sizeFrom(const QString& sSize)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = form.match(sSize);
    const QSize oSize(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || std::min(oSize.width(), oSize.height()) < 50 ||
        std::max(oSize.width(), oSize.height()) > 20000)
        return std::nullopt;
    return oSize;
}

} // namespace

CommandResult runRenderCommand(const QStringList& lArguments)
{
    CommandInput input;
    QCommandLineParser& parser = input.parser();
    parser.setApplicationDescription(
        text("Draws a chart into a file. Charts: %1. With --chart NAME this help tells the options of that chart too.")
            .arg(chartNames().join(", ")));
    parser.addOptions({{QStringLiteral("chart"), text("The chart."), QStringLiteral("NAME")},
                       {QStringLiteral("out"), text("The picture: .png, .svg, .pdf or .emf."), QStringLiteral("PATH")},
                       {QStringLiteral("size"), text("Width and height in pixels."), QStringLiteral("WxH"),
                        QStringLiteral("1000x800")},
                       {QStringLiteral("background"), text("white or black."), QStringLiteral("COLOUR")}});
    const ChartRenderer* pChart = requestedChart(lArguments);
    if (pChart)
        pChart->m_fnAddOptions(parser);
    else if (!lArguments.contains(QStringLiteral("--help")) && !lArguments.contains(QStringLiteral("-h")))
        return CommandResult::badUsage(text("render: --chart takes one of %1").arg(chartNames().join(", ")));
    if (const auto oResult = input.parse(lArguments))
        return *oResult;

    if (const auto oMissing = input.require(QStringLiteral("out")))
        return *oMissing;
    const QString sPath = input.value(QStringLiteral("out"));
    if (!gkBase::ChartExporter::formats().contains(QFileInfo(sPath).suffix().toLower()))
        return CommandResult::badUsage(text("--out: \"%1\" must end in .%2")
                                           .arg(sPath, gkBase::ChartExporter::formats().join(QLatin1String(", ."))));
    const std::optional<QSize> oSize = sizeFrom(input.value(QStringLiteral("size")));
    if (!oSize)
        return CommandResult::badUsage(
            text("--size: \"%1\" is no size from 50x50 to 20000x20000").arg(input.value(QStringLiteral("size"))));

    return pChart->m_fnRender(input, sPath, *oSize).value_or(CommandResult::ok());
}

} // namespace gkHost

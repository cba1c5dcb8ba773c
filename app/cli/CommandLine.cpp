#include "CommandLine.h"

#include "ClusterCommand.h"
#include "ConvertCommand.h"
#include "DecimateCommand.h"
#include "DensityCommand.h"
#include "RenderCommand.h"
#include "RotateCommand.h"
#include "ScatCommand.h"
#include "StatsCommand.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>

namespace gkHost {

namespace {

struct NamedCommand
{
    const char* m_pName;
    bool m_bNeedsWidgets;
    CommandResult (*m_fnRun)(const QStringList&);
};

constexpr std::array<NamedCommand, 8> g_commands = {{
    {"stats", false, runStatsCommand},
    {"render", true, runRenderCommand},
    {"convert", false, runConvertCommand},
    {"cluster", false, runClusterCommand},
    {"decimate", false, runDecimateCommand},
    {"density", false, runDensityCommand},
    {"rotate", false, runRotateCommand},
    {"scat", false, runScatCommand},
}};

const NamedCommand* commandNamed(const QString& sName)
{
    for (const NamedCommand& command : g_commands)
        if (sName == QLatin1String(command.m_pName))
            return &command;
    return nullptr;
}

bool isHelp(const QString& sArgument)
{
    return sArgument == QLatin1String("--help") || sArgument == QLatin1String("-h");
}

QString unknownCommand(const QString& sName)
{
    return QCoreApplication::translate("CommandLine", "\"%1\" is neither a command nor a file").arg(sName);
}

bool isVersion(const QString& sArgument)
{
    return sArgument == QLatin1String("--version") || sArgument == QLatin1String("-v");
}

} // namespace

CommandLine::CommandLine(const QStringList& lArguments)
    : m_lArguments(lArguments.mid(1))
{
}

bool CommandLine::isCommand() const
{
    const QString sFirst = m_lArguments.value(0);
    return commandNamed(sFirst) || isHelp(sFirst) || isVersion(sFirst);
}

bool CommandLine::needsWidgets() const
{
    const NamedCommand* pCommand = commandNamed(m_lArguments.value(0));
    return pCommand && pCommand->m_bNeedsWidgets;
}

CommandResult CommandLine::run() const
{
    const QString sFirst = m_lArguments.value(0);
    if (isHelp(sFirst))
        return CommandResult::ok(helpText());
    if (isVersion(sFirst))
        return CommandResult::ok(QCoreApplication::applicationName() + QLatin1Char(' ') +
                                 QCoreApplication::applicationVersion() + QLatin1Char('\n'));
    if (const NamedCommand* pCommand = commandNamed(sFirst))
        return pCommand->m_fnRun(m_lArguments);
    return CommandResult::badUsage(unknownCommand(sFirst));
}

QStringList CommandLine::files(QString& sError) const
{
    for (const QString& sArgument : m_lArguments)
        if (sArgument.startsWith(QLatin1Char('-'))) {
            sError = QCoreApplication::translate("CommandLine", "unknown option %1").arg(sArgument);
            return {};
        }
    // A bare word that is no file was meant as a command.
    const QString sFirst = m_lArguments.value(0);
    if (!sFirst.isEmpty() && !sFirst.contains(QLatin1Char('.')) && !sFirst.contains(QLatin1Char('/')) &&
        !QFileInfo::exists(sFirst)) {
        sError = unknownCommand(sFirst);
        return {};
    }
    return m_lArguments;
}

QString CommandLine::helpText()
{
    return QCoreApplication::translate(
        "CommandLine",
        "Usage:\n"
        "  gkanalyser [FILE...]                       open files in the analyser\n"
        "  gkanalyser stats FILE --attribute NAME     print the statistics of an attribute\n"
        "  gkanalyser stats FILE --x NAME --y NAME    print the regression of one attribute on another\n"
        "  gkanalyser stats FILE --dip NAME --azimuth NAME [--lines]\n"
        "                                             print the statistics of planes or lines\n"
        "  gkanalyser stats FILE --direction NAME [--axial]\n"
        "                                             print the statistics of azimuths, or of axes\n"
        "  gkanalyser render FILE --chart NAME --out PATH.png|.svg|.pdf|.emf\n"
        "                                             draw a chart into a file\n"
        "  gkanalyser convert FILE --out PATH.csv     write all data sets as CSV\n"
        "  gkanalyser density FILE --dip NAME --azimuth NAME [--lines] [--grid NXxNY]\n"
        "                                             count poles or lines at the nodes of a grid over the net\n"
        "  gkanalyser rotate FILE --dip NAME --azimuth NAME [--lines] --axis PLUNGE/AZIMUTH --angle A --out PATH.csv\n"
        "                                             turn planes or lines about an axis\n"
        "  gkanalyser scat FILE --depth NAME --dip NAME --azimuth NAME [--t DEG --l DEG] [--out PATH.csv]\n"
        "                                             find the directions of a fold and its crests along a well\n"
        "  gkanalyser cluster FILE --columns A,B[,C] --k N --out PATH.csv\n"
        "                                             group the records by two or three attributes\n"
        "  gkanalyser decimate FILE --depth NAME --step X|--bins N --columns A,B --out PATH.csv\n"
        "                                             average attributes in intervals of depth\n"
        "  gkanalyser --version | --help\n"
        "\n"
        "Every command takes --help, --rows 1,4-9 and --where NAME=VALUE. NAME is taken from the first data set that\n"
        "has it; write \"DATA SET: NAME\" for another one. The exit status is 0, or 1 for bad input and 2 for bad\n"
        "usage.\n");
}

} // namespace gkHost

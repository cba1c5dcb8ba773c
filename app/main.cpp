#include "AnalyserApplication.h"
#include "CommandLine.h"

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>

#include <cstdio>
#include <memory>

namespace {

void print(std::FILE* pFile, const QString& sText)
{
    std::fputs(sText.toUtf8().constData(), pFile);
}

/// Commands write their one message themselves; what the toolkit remarks about its surroundings would only hide it.
void ignoreRemarks(QtMsgType eType, const QMessageLogContext&, const QString& sText)
{
    if (eType == QtCriticalMsg || eType == QtFatalMsg)
        print(stderr, sText + QLatin1Char('\n'));
}

int finish(const gkHost::CommandResult& result)
{
    print(stdout, result.m_sOutput);
    if (!result.m_sMessage.isEmpty())
        print(stderr, QStringLiteral("gkanalyser: %1\n").arg(result.m_sMessage));
    return result.m_eStatus;
}

/// Without a display the toolkit would end the program with an account of its plug-ins.
bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    for (const char* pName : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(pName))
            return true;
    return false;
#else
    return true;
#endif
}

QStringList arguments(int argc, char** argv)
{
    QStringList lArguments;
    for (int i = 0; i < argc; ++i)
        lArguments << QString::fromLocal8Bit(argv[i]);
    return lArguments;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("gkanalyser"));
    QCoreApplication::setOrganizationName(QStringLiteral("gkBaseTools"));
    QCoreApplication::setApplicationVersion(QStringLiteral(GK_VERSION));

    const gkHost::CommandLine commandLine(arguments(argc, argv));
    if (commandLine.isCommand()) {
        // Commands run without a display; they draw with the same code as the window.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(ignoreRemarks);
        std::unique_ptr<QCoreApplication> pqApplication;
        if (commandLine.needsWidgets())
            pqApplication = std::make_unique<QApplication>(argc, argv);
        else
            pqApplication = std::make_unique<QCoreApplication>(argc, argv);
        return finish(commandLine.run());
    }

    QString sError;
    const QStringList lFiles = commandLine.files(sError);
    if (!sError.isEmpty())
        return finish(gkHost::CommandResult::badUsage(sError));
    if (!hasDisplay())
        return finish(gkHost::CommandResult::badInput(QCoreApplication::translate(
            "CommandLine", "there is no display for the window; see gkanalyser --help for what works without one")));

    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/gkanalyser/gkanalyser.png")));
    gkHost::AnalyserApplication analyser;
    analyser.start(lFiles);
    return QApplication::exec();
}

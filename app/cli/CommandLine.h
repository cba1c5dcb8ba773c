#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// The command line of the program: which command it names, and running it.
class CommandLine
{
public:
    /// lArguments as the program got them, its own name first.
    explicit CommandLine(const QStringList& lArguments);

    /// True when a command, --help or --version is asked for, so that no window is opened.
    bool isCommand() const;
    /// True when the command draws and therefore needs a QApplication.
    bool needsWidgets() const;
    /// Runs the command.
    CommandResult run() const;
    /// The files to open in the window when no command is named; a message in sError for an unknown option.
    QStringList files(QString& sError) const;

    static QString helpText();

private:
    QStringList m_lArguments; ///< without the program's name
};

} // namespace gkHost

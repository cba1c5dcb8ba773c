#pragma once

#include <QString>

namespace gkHost {

/// Exit status of the program.
enum ExitStatus
{
    ExitOk = 0,
    ExitBadInput = 1,
    ExitBadUsage = 2
};

/// What a command came to: its exit status, the text for standard output and one message for standard error, why it
/// failed or what is odd about what it did; empty when it just went well.
struct CommandResult
{
    ExitStatus m_eStatus = ExitOk;
    QString m_sOutput;
    QString m_sMessage;

    static CommandResult ok(const QString& sOutput = QString()) { return {ExitOk, sOutput, QString()}; }
    static CommandResult warned(const QString& sMessage) { return {ExitOk, QString(), sMessage}; }
    static CommandResult badInput(const QString& sMessage) { return {ExitBadInput, QString(), sMessage}; }
    static CommandResult badUsage(const QString& sMessage) { return {ExitBadUsage, QString(), sMessage}; }
};

} // namespace gkHost

#pragma once

#include "CommandLine.h"

#include <QStringList>
#include <QTest>

namespace gkTest {

/// Runs a command as the program does, without its name in front.
inline gkHost::CommandResult runCommand(const QStringList& lArguments)
{
    return gkHost::CommandLine(QStringList{QStringLiteral("gkanalyser")} + lArguments).run();
}

/// A command that fails says why in one line that holds the word, and prints nothing else.
inline void verifyFailure(const QStringList& lArguments, int iStatus, const QString& sWord)
{
    const gkHost::CommandResult result = runCommand(lArguments);
    QCOMPARE(static_cast<int>(result.m_eStatus), iStatus);
    QVERIFY2(result.m_sMessage.contains(sWord), qPrintable(result.m_sMessage));
    QVERIFY(!result.m_sMessage.contains(QLatin1Char('\n')) && result.m_sOutput.isEmpty());
}

} // namespace gkTest

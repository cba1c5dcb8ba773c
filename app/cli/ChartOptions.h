#pragma once

#include "CommandInput.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace gkHost {

/// What --background says; a message for anything but white and black.
bool blackBackground(const CommandInput& input, std::optional<CommandResult>& oError);

/// Loads the file and finds --attribute, of numbers if need be; null with a message, that of an earlier error first.
gkBase::MatrixData* loadedAttribute(CommandInput& input, bool bNumeric, std::optional<CommandResult>& oError);

/// The attribute that an option names, for as many records as the points have; null when it is absent, and with a
/// message.
gkBase::MatrixData* classAttribute(const CommandInput& input, const QString& sOption, const gkBase::MatrixData& points,
                                   std::optional<CommandResult>& oError);

/// Draws the chart of a panel into a file; a message when that fails.
template <typename Panel>
std::optional<CommandResult> exported(Panel& panel, const QString& sPath, const QSize& oSize)
{
    QString sError;
    if (!panel.exportChart(sPath, oSize, &sError))
        return CommandResult::badInput(sError);
    return std::nullopt;
}

} // namespace gkHost

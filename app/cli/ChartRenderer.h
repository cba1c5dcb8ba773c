#pragma once

#include "CommandInput.h"

#include <QSize>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace gkHost {

/// A chart that the command line can draw. Each chart adds its own options and draws itself from them.
struct ChartRenderer
{
    QString m_sName;
    std::function<void(QCommandLineParser&)> m_fnAddOptions;
    /// Draws into the file of that path; a result when something is wrong or odd.
    std::function<std::optional<CommandResult>(CommandInput&, const QString& sPath, const QSize& oSize)> m_fnRender;
};

/// All charts, in the order in which help lists them.
const std::vector<ChartRenderer>& chartRenderers();

} // namespace gkHost

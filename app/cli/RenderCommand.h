#pragma once

#include "Command.h"

#include <QStringList>

namespace gkHost {

/// "render FILE --chart NAME --out PATH.png|.svg|.pdf|.emf [--size WxH] [chart options]": draws a chart into a file.
/// Needs a QApplication, but no display.
CommandResult runRenderCommand(const QStringList& lArguments);

} // namespace gkHost

#pragma once

#include <QColor>

namespace gkBase {

/// A colour that stands out from the background: the given one, or mixed with the label colour as far as needed.
QColor readableColor(const QColor& oColor, const QColor& oBackground, const QColor& oLabel);

} // namespace gkBase

#pragma once

#include <memory>

class QCartesianAxisWidget;

namespace gkBase {

/// The same axis for a whole chart of another length in pixels, never shown: for pictures of a chart.
std::unique_ptr<QCartesianAxisWidget> axisOfLength(const QCartesianAxisWidget& oAxis, int iLength);

} // namespace gkBase

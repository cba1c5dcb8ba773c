#pragma once

class QWidget;

namespace gkBase {

/// The wheel over controls below this widget scrolls their page, and changes only what has the keyboard focus: choices,
/// numbers, tabs and the zoom of diagrams. For the controls that are there now.
void keepFromWheel(QWidget& page);

} // namespace gkBase

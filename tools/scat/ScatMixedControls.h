#pragma once

#include <QString>
#include <Qt>

class QCheckBox;
class QComboBox;

namespace gkBase {

// Controls of several tracks at once, which may differ.

/// Stands where a control has no common value to show.
QString variousText();
/// Shows a switch that is the same in all tracks, or that it is not. Returns what is shown; any other state is the
/// user's.
Qt::CheckState showSwitch(QCheckBox& box, bool bCommon, bool bOn);
/// The same for a choice: none is shown where the tracks differ.
void showChoice(QComboBox& box, bool bCommon, int iIndex);

} // namespace gkBase

#include "ScatMixedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>

namespace gkBase {

QString variousText()
{
    return QCoreApplication::translate("gkBase::ScatTrackPage", "various");
}

Qt::CheckState showSwitch(QCheckBox& box, bool bCommon, bool bOn)
{
    const Qt::CheckState eState = !bCommon ? Qt::PartiallyChecked : bOn ? Qt::Checked : Qt::Unchecked;
    box.setTristate(!bCommon); // clicks lead out of the third state, not into it
    box.setCheckState(eState);
    return eState;
}

void showChoice(QComboBox& box, bool bCommon, int iIndex)
{
    box.setPlaceholderText(bCommon ? QString() : variousText());
    box.setCurrentIndex(bCommon ? iIndex : -1);
}

} // namespace gkBase

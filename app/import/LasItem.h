#pragma once

#include <QString>

namespace gkHost {

/// One line of a header section: "MNEM.UNIT  DATA : DESCRIPTION {FORMAT} | ASSOCIATION".
struct LasItem
{
    QString m_sMnemonic;
    QString m_sUnit;        ///< what follows the dot without a blank, brackets removed
    QString m_sValue;       ///< between unit and colon
    QString m_sDescription; ///< behind the colon
    QString m_sFormat;      ///< of form 3.0, "F", "S", "DD/MM/YYYY"; empty when none is given
    qint64 m_iLine = 0;
    bool m_bIrregular = false; ///< has no dot or no colon
};

/// Takes a header line apart. bCurve allows dots inside the mnemonic ("Cond..MS/M").
LasItem parseLasItem(const QString& sLine, qint64 iLine, bool bCurve);

} // namespace gkHost

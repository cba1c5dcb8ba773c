#include "LasItem.h"

#include <QRegularExpression>

namespace gkHost {

namespace {

bool isBlankAt(const QString& sText, qsizetype i)
{
    return i < 0 || i >= sText.size() || sText[i].isSpace();
}

/// The dot between mnemonic and unit, −1 when there is none. In "Cond..MS/M" and "I. Res..OHM-M" the mnemonic ends
/// with a dot of its own.
qsizetype mnemonicEnd(const QString& sLine, bool bCurve)
{
    const qsizetype iDot = sLine.indexOf(u'.');
    const qsizetype iColon = sLine.indexOf(u':');
    if (bCurve && iDot >= 0) {
        const qsizetype iDouble = sLine.indexOf(QStringLiteral(".."));
        const bool bBeforeColon = iDouble >= 0 && (iColon < 0 || iDouble < iColon);
        if (bBeforeColon && !sLine.left(iDouble).contains(QStringLiteral("  "))) {
            return iDouble + 1;
        }
    }
    return iDot;
}

/// The colon between data and description: one with a blank before it, else one with a blank behind it, else the
/// last. Times ("21:30") hold colons, too.
qsizetype descriptionColon(const QString& sRest)
{
    for (qsizetype i = sRest.indexOf(u':'); i >= 0; i = sRest.indexOf(u':', i + 1)) {
        if (isBlankAt(sRest, i - 1)) {
            return i;
        }
    }
    for (qsizetype i = sRest.indexOf(u':'); i >= 0; i = sRest.indexOf(u':', i + 1)) {
        if (isBlankAt(sRest, i + 1)) {
            return i;
        }
    }
    return sRest.lastIndexOf(u':');
}

/// Takes the unit from the front of what follows the dot.
QString takeUnit(QString& sRest)
{
    qsizetype iEnd = 0;
    while (!isBlankAt(sRest, iEnd)) {
        ++iEnd;
    }
    QString sUnit = sRest.left(iEnd);
    // "gAPI:" ends with the colon of the line; "HH:MM:SS" is followed by another one.
    const qsizetype iColon = sUnit.indexOf(u':');
    if (iColon >= 0 && (sUnit.endsWith(u':') || sRest.indexOf(u':', iEnd) < 0)) {
        sUnit = sUnit.left(sUnit.endsWith(u':') && sRest.indexOf(u':', iEnd) < 0 ? sUnit.size() - 1 : iColon);
    }
    sRest = sRest.mid(sUnit.size());
    const bool bBracketed =
        (sUnit.startsWith(u'[') && sUnit.endsWith(u']')) || (sUnit.startsWith(u'(') && sUnit.endsWith(u')'));
    return bBracketed ? sUnit.mid(1, sUnit.size() - 2) : sUnit;
}

} // namespace

LasItem parseLasItem(const QString& sLine, qint64 iLine, bool bCurve)
{
    LasItem item;
    item.m_iLine = iLine;
    const qsizetype iDot = mnemonicEnd(sLine, bCurve);
    QString sRest;
    if (iDot >= 0) {
        item.m_sMnemonic = sLine.left(iDot).trimmed();
        sRest = sLine.mid(iDot + 1);
        item.m_sUnit = takeUnit(sRest);
    } else {
        static const QRegularExpression firstWord(QStringLiteral("^\\s*([^\\s:]+)"));
        const QRegularExpressionMatch match = firstWord.match(sLine);
        item.m_sMnemonic = match.captured(1);
        sRest = sLine.mid(match.capturedEnd(1));
    }
    const qsizetype iColon = descriptionColon(sRest);
    item.m_bIrregular = iDot < 0 || (iColon < 0 && !bCurve);
    item.m_sValue = (iColon < 0 ? sRest : sRest.left(iColon)).trimmed();
    QString sDescription = iColon < 0 ? QString() : sRest.mid(iColon + 1);
    static const QRegularExpression format(QStringLiteral("\\{([^}]*)\\}\\s*(\\|.*)?$"));
    const QRegularExpressionMatch match = format.match(sDescription);
    if (match.hasMatch()) {
        item.m_sFormat = match.captured(1).trimmed();
        sDescription = sDescription.left(match.capturedStart());
    }
    item.m_sDescription = sDescription.trimmed();
    return item;
}

} // namespace gkHost

#include "MatrixDataCsv.h"

#include "UnitManager.h"
#include "UnitRegistry.h"

#include <boost/make_shared.hpp>

namespace gkBase::MatrixDataCsv {

namespace {

constexpr char16_t cEscape = u'\\';

QString escapedUnit(const QString& sText)
{
    QString sResult;
    for (const QChar c : sText) {
        if (c == cEscape || c == u'[' || c == u']' || c == u'|')
            sResult += cEscape;
        sResult += c;
    }
    return sResult;
}

/// Position of the bracket that opens the unit of a header cell; −1 when there is none. Brackets inside a unit have
/// a backslash before them, so that the last one after a blank is it.
qsizetype openingBracket(const QString& sText)
{
    if (!sText.endsWith(u']'))
        return -1;
    const qsizetype iBracket = sText.lastIndexOf(QLatin1String(" ["));
    if (iBracket >= 0)
        return iBracket + 1;
    return sText.startsWith(u'[') ? 0 : -1;
}

} // namespace

QString headerText(const QString& sName, const UnitManager& unit)
{
    const boost::shared_ptr<UnitManager> poImplied =
        UnitRegistry::standard().managerForAttribute(sName, unit.modelUnit());
    QString sInside = escapedUnit(unit.modelUnit());
    if (poImplied->category() != unit.category() || poImplied->modelUnit() != unit.modelUnit())
        sInside += u'|' + escapedUnit(unit.category());
    if (sInside.isEmpty() && !sName.endsWith(u']'))
        return sName;
    return sName + QStringLiteral(" [") + sInside + u']';
}

Header parseHeader(const QString& sText)
{
    Header header;
    const qsizetype iBracket = openingBracket(sText);
    if (iBracket < 0) {
        header.sName = sText;
        return header;
    }
    header.sName = sText.left(std::max<qsizetype>(0, iBracket - 1));
    QString* psPart = &header.sUnit;
    for (qsizetype i = iBracket + 1; i < sText.size() - 1; ++i) {
        if (sText[i] == cEscape && i + 1 < sText.size() - 1)
            *psPart += sText[++i];
        else if (sText[i] == u'|')
            psPart = &header.sCategory;
        else
            *psPart += sText[i];
    }
    return header;
}

boost::shared_ptr<UnitManager> headerUnit(const Header& header, const UnitRegistry& registry)
{
    if (header.sCategory.isEmpty())
        return registry.managerForAttribute(header.sName, header.sUnit);
    boost::shared_ptr<UnitManager> poManager = registry.managerForUnit(header.sUnit, header.sCategory);
    if (poManager->category() != header.sCategory || poManager->modelUnit() != header.sUnit)
        poManager = boost::make_shared<UnitManager>(header.sCategory, header.sUnit);
    return poManager;
}

QByteArray typeWord(QMetaType::Type eType)
{
    switch (eType) {
    case QMetaType::Double:
        return QByteArrayLiteral("double");
    case QMetaType::Int:
        return QByteArrayLiteral("int");
    case QMetaType::Bool:
        return QByteArrayLiteral("bool");
    case QMetaType::QColor:
        return QByteArrayLiteral("color");
    default:
        return QByteArrayLiteral("text");
    }
}

std::optional<ColumnType> parseTypeWord(const QByteArray& sWord)
{
    constexpr QMetaType::Type aTypes[] = {QMetaType::Double, QMetaType::Int, QMetaType::Bool, QMetaType::QString,
                                          QMetaType::QColor};
    for (const QMetaType::Type eType : aTypes)
        if (sWord == typeWord(eType))
            return ColumnType{eType, false, -1};
    if (sWord == "strike")
        return ColumnType{QMetaType::Double, true, -1};
    if (!sWord.startsWith("strike:"))
        return std::nullopt;
    bool bOk = false;
    const int iColumn = sWord.mid(7).toInt(&bOk);
    if (!bOk || iColumn < 1)
        return std::nullopt;
    return ColumnType{QMetaType::Double, true, iColumn - 1};
}

QByteArray escapedName(const QString& sName)
{
    QByteArray sText = sName.toUtf8();
    sText.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r");
    return sText;
}

QString unescapedName(const QByteArray& sText)
{
    QByteArray sResult;
    for (qsizetype i = 0; i < sText.size(); ++i) {
        char c = sText[i];
        if (c == '\\' && i + 1 < sText.size()) {
            c = sText[++i];
            c = c == 'n' ? '\n' : c == 'r' ? '\r' : c;
        }
        sResult += c;
    }
    return QString::fromUtf8(sResult);
}

} // namespace gkBase::MatrixDataCsv

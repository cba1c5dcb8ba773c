#include "CellText.h"

#include "MatrixData.h"
#include "UnitManager.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace gkBase::CellText {

namespace {

/// Decimal digits that a double holds for certain: enough for a converted value, and free of the noise behind them.
constexpr int g_iCertainDigits = 15;

QVariant toInt(double dValue)
{
    const double dRounded = std::floor(dValue + 0.5);
    if (!(dRounded >= std::numeric_limits<int>::min() && dRounded <= std::numeric_limits<int>::max()))
        return QVariant();
    return static_cast<int>(dRounded);
}

QVariant toBool(const QString& sText)
{
    if (sText.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return true;
    return number(sText).value_or(0.0) != 0.0;
}

QVariant toColor(const QString& sText)
{
    const QColor oColor(sText);
    return oColor.isValid() ? QVariant(oColor) : QVariant();
}

/// A number in display units as the column stores it.
QVariant fromDisplay(const MatrixData& oColumn, double dDisplay)
{
    if (std::isnan(dDisplay))
        return QVariant();
    switch (oColumn.type()) {
    case QMetaType::Double:
        return oColumn.unitManager()->convertDisplayToModel(dDisplay);
    case QMetaType::Int:
        return toInt(dDisplay);
    case QMetaType::Bool:
        return dDisplay != 0.0;
    default:
        return QString::number(dDisplay, 'g', QLocale::FloatingPointShortest);
    }
}

} // namespace

std::vector<QStringList> parse(const QString& sText)
{
    std::vector<QStringList> vLines;
    if (sText.isEmpty())
        return vLines;
    QString sClean = sText;
    sClean.remove(u'\r');
    const QStringList lLines = sClean.split(u'\n');
    vLines.reserve(static_cast<std::size_t>(lLines.size()));
    for (const QString& sLine : lLines)
        vLines.push_back(sLine.split(u'\t'));
    if (lLines.last().isEmpty())
        vLines.pop_back();
    return vLines;
}

std::optional<double> number(const QString& sText)
{
    bool bOk = false;
    double dValue = sText.toDouble(&bOk);
    if (!bOk && sText.count(u',') == 1 && !sText.contains(u'.')) {
        QString sPoint = sText;
        dValue = sPoint.replace(u',', u'.').toDouble(&bOk);
    }
    return bOk ? std::optional<double>(dValue) : std::nullopt;
}

QVariant toValue(const MatrixData& oColumn, const QString& sText)
{
    if (sText.isEmpty())
        return QVariant();
    switch (oColumn.type()) {
    case QMetaType::Bool:
        return toBool(sText.trimmed());
    case QMetaType::Double:
    case QMetaType::Int:
        return fromDisplay(oColumn, number(sText).value_or(0.0));
    case QMetaType::QColor:
        return toColor(sText.trimmed());
    default:
        return sText;
    }
}

QVariant toValue(const MatrixData& oColumn, const QVariant& qValue)
{
    switch (qValue.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        if (oColumn.type() != QMetaType::QColor)
            return fromDisplay(oColumn, qValue.toDouble());
        return QVariant();
    case QMetaType::QColor:
        if (oColumn.type() == QMetaType::QColor)
            return qValue.value<QColor>().isValid() ? qValue : QVariant();
        return toValue(oColumn, MatrixData::colorHexaString(qValue.value<QColor>()));
    default:
        return toValue(oColumn, qValue.toString());
    }
}

QString shown(const MatrixData& oColumn, const QVariant& qModelValue)
{
    switch (qModelValue.typeId()) {
    case QMetaType::Double: {
        const auto poUnits = oColumn.unitManager();
        return QString::number(poUnits->convertModelToDisplay(qModelValue.toDouble()), 'f', poUnits->precision());
    }
    case QMetaType::Int:
        return QString::number(qModelValue.toInt());
    case QMetaType::QString:
        return qModelValue.toString();
    default:
        return {};
    }
}

QString edited(const MatrixData& oColumn, const QVariant& qModelValue)
{
    if (qModelValue.typeId() != QMetaType::Double)
        return shown(oColumn, qModelValue);
    return QString::number(oColumn.unitManager()->convertModelToDisplay(qModelValue.toDouble()), 'g', 6);
}

QString exact(const MatrixData& oColumn, const QVariant& qModelValue)
{
    switch (qModelValue.typeId()) {
    case QMetaType::Double: {
        const double dModel = qModelValue.toDouble();
        const double dDisplay = oColumn.unitManager()->convertModelToDisplay(dModel);
        const bool bConverted = dDisplay != dModel;
        return QString::number(dDisplay, 'g', bConverted ? g_iCertainDigits : int(QLocale::FloatingPointShortest));
    }
    case QMetaType::Bool:
        return qModelValue.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::QColor:
        return MatrixData::colorHexaString(qModelValue.value<QColor>());
    default:
        return shown(oColumn, qModelValue);
    }
}

} // namespace gkBase::CellText

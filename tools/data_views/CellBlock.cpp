#include "CellBlock.h"

#include "CellText.h"
#include "MatrixData.h"
#include "UnitManager.h"

#include <QDataStream>
#include <QIODevice>

#include <boost/make_shared.hpp>

#include <cstddef>

namespace gkBase {

namespace {

// Layout, big-endian: magic number, version, rows, columns; for each column its type, unit category and model unit as
// texts; then the cells column by column, each a byte (0 missing, 1 present) and, when present, its value.
constexpr quint32 g_uMagic = 0x676b4342;
constexpr quint16 g_uVersion = 1;

enum class ColumnType : quint8
{
    Double = 0,
    Int = 1,
    Bool = 2,
    Text = 3,
    Color = 4
};

ColumnType columnType(QMetaType::Type eType)
{
    switch (eType) {
    case QMetaType::Double:
        return ColumnType::Double;
    case QMetaType::Int:
        return ColumnType::Int;
    case QMetaType::Bool:
        return ColumnType::Bool;
    case QMetaType::QColor:
        return ColumnType::Color;
    default:
        return ColumnType::Text;
    }
}

void writeValue(QDataStream& stream, ColumnType eType, const QVariant& qValue)
{
    stream << quint8(qValue.isValid() ? 1 : 0);
    if (!qValue.isValid())
        return;
    switch (eType) {
    case ColumnType::Double:
        stream << qValue.toDouble();
        break;
    case ColumnType::Int:
        stream << qint32(qValue.toInt());
        break;
    case ColumnType::Bool:
        stream << qValue.toBool();
        break;
    case ColumnType::Text:
        stream << qValue.toString();
        break;
    case ColumnType::Color:
        stream << quint32(qValue.value<QColor>().rgb());
        break;
    }
}

template <typename Value>
Value readAs(QDataStream& stream)
{
    Value value{};
    stream >> value;
    return value;
}

QVariant readValue(QDataStream& stream, ColumnType eType)
{
    if (readAs<quint8>(stream) == 0)
        return QVariant();
    switch (eType) {
    case ColumnType::Double:
        return readAs<double>(stream);
    case ColumnType::Int:
        return int(readAs<qint32>(stream));
    case ColumnType::Bool:
        return readAs<bool>(stream);
    case ColumnType::Text:
        return readAs<QString>(stream);
    case ColumnType::Color:
        return QColor(QRgb(readAs<quint32>(stream)));
    }
    return QVariant();
}

QMetaType::Type metaType(ColumnType eType)
{
    switch (eType) {
    case ColumnType::Double:
        return QMetaType::Double;
    case ColumnType::Int:
        return QMetaType::Int;
    case ColumnType::Bool:
        return QMetaType::Bool;
    case ColumnType::Color:
        return QMetaType::QColor;
    case ColumnType::Text:
        break;
    }
    return QMetaType::QString;
}

} // namespace

QString CellBlock::mimeType()
{
    return QStringLiteral("4dkastor/dragDrop.list");
}

QByteArray CellBlock::toBytes() const
{
    QByteArray oBytes;
    QDataStream stream(&oBytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << g_uMagic << g_uVersion << qint32(m_iRows) << qint32(m_vColumns.size());
    for (const Column& oColumn : m_vColumns)
        stream << quint8(columnType(oColumn.m_oValues.type())) << oColumn.m_sCategory << oColumn.m_sModelUnit;
    for (const Column& oColumn : m_vColumns) {
        const ColumnType eType = columnType(oColumn.m_oValues.type());
        for (int iRow = 0; iRow < m_iRows; ++iRow)
            writeValue(stream, eType, oColumn.m_oValues.value(iRow));
    }
    return oBytes;
}

std::optional<CellBlock> CellBlock::fromBytes(const QByteArray& oBytes)
{
    QDataStream stream(oBytes);
    stream.setVersion(QDataStream::Qt_6_4);
    if (readAs<quint32>(stream) != g_uMagic || readAs<quint16>(stream) != g_uVersion)
        return std::nullopt;
    const auto iRows = readAs<qint32>(stream);
    const auto iColumns = readAs<qint32>(stream);
    // A column takes at least nine bytes and a cell one, so that a wrong size cannot make us reserve more than that.
    const qint64 iLength = oBytes.size();
    if (stream.status() != QDataStream::Ok || iRows < 0 || iColumns < 0 || iColumns > iLength / 9 ||
        qint64(iRows) * iColumns > iLength)
        return std::nullopt;

    CellBlock oBlock;
    oBlock.m_iRows = iRows;
    oBlock.m_vColumns.resize(static_cast<std::size_t>(iColumns));
    for (Column& oColumn : oBlock.m_vColumns) {
        const auto uType = readAs<quint8>(stream);
        stream >> oColumn.m_sCategory >> oColumn.m_sModelUnit;
        if (stream.status() != QDataStream::Ok || uType > quint8(ColumnType::Color))
            return std::nullopt;
        oColumn.m_oValues = MatrixColumn(metaType(ColumnType(uType)), iRows);
        oColumn.m_poUnits = boost::make_shared<UnitManager>(oColumn.m_sCategory, oColumn.m_sModelUnit);
    }
    for (Column& oColumn : oBlock.m_vColumns) {
        const ColumnType eType = columnType(oColumn.m_oValues.type());
        for (int iRow = 0; iRow < iRows && stream.status() == QDataStream::Ok; ++iRow)
            oColumn.m_oValues.setValue(iRow, readValue(stream, eType));
    }
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    return oBlock;
}

QVariant CellBlock::valueFor(const MatrixData& oTarget, int iRow, int iColumn) const
{
    if (iColumn < 0 || iColumn >= static_cast<int>(m_vColumns.size()))
        return QVariant();
    const Column& oColumn = m_vColumns[static_cast<std::size_t>(iColumn)];
    const QVariant qValue = oColumn.m_oValues.value(iRow);
    if (!qValue.isValid())
        return QVariant();
    if (oColumn.m_oValues.type() != QMetaType::Double)
        return oColumn.m_oValues.type() == oTarget.type() ? qValue : CellText::toValue(oTarget, qValue);
    const auto poUnits = oTarget.unitManager();
    if (oTarget.type() == QMetaType::Double && poUnits->category() == oColumn.m_sCategory &&
        poUnits->modelUnit() == oColumn.m_sModelUnit)
        return qValue;
    // What the user sees at the source is what arrives at the target.
    const double dModel = qValue.toDouble();
    return CellText::toValue(oTarget,
                             QVariant(oColumn.m_poUnits ? oColumn.m_poUnits->convertModelToDisplay(dModel) : dModel));
}

} // namespace gkBase

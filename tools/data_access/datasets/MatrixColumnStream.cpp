#include "MatrixColumn.h"
#include "MatrixTextTable.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <limits>
#include <type_traits>

namespace gkBase {

namespace {

constexpr int iBlock = 1 << 16; ///< cells that are read or written at once

enum class StreamType : quint8
{
    Double = 1,
    Int,
    Bool,
    Text,
    Color
};

StreamType streamType(QMetaType::Type eType)
{
    switch (eType) {
    case QMetaType::Double:
        return StreamType::Double;
    case QMetaType::Int:
        return StreamType::Int;
    case QMetaType::Bool:
        return StreamType::Bool;
    case QMetaType::QColor:
        return StreamType::Color;
    default:
        return StreamType::Text;
    }
}

std::optional<QMetaType::Type> columnTypeOf(quint8 iType)
{
    switch (static_cast<StreamType>(iType)) {
    case StreamType::Double:
        return QMetaType::Double;
    case StreamType::Int:
        return QMetaType::Int;
    case StreamType::Bool:
        return QMetaType::Bool;
    case StreamType::Text:
        return QMetaType::QString;
    case StreamType::Color:
        return QMetaType::QColor;
    }
    return std::nullopt;
}

template <typename Cell>
using Bits = std::conditional_t<sizeof(Cell) == 8, quint64, std::conditional_t<sizeof(Cell) == 4, quint32, quint8>>;

/// Cells as little-endian bits, so that NaN payloads and signed zeros survive, without a call per cell.
template <typename Cell>
void writeCells(QDataStream& stream, std::span<const Cell> vCells)
{
    QByteArray oBytes;
    for (std::size_t nFirst = 0; nFirst < vCells.size(); nFirst += iBlock) {
        const std::size_t nCells = std::min<std::size_t>(iBlock, vCells.size() - nFirst);
        oBytes.resize(static_cast<qsizetype>(nCells) * static_cast<qsizetype>(sizeof(Cell)));
        for (std::size_t n = 0; n < nCells; ++n)
            qToLittleEndian(std::bit_cast<Bits<Cell>>(vCells[nFirst + n]), oBytes.data() + n * sizeof(Cell));
        stream.writeRawData(oBytes.constData(), static_cast<int>(oBytes.size()));
    }
}

/// False when the stream ends early; grows with what arrives.
template <typename Cell>
bool readCells(QDataStream& stream, int iCells, std::vector<Cell>& vCells)
{
    const QIODevice* pqDevice = stream.device();
    const qint64 iBytes = static_cast<qint64>(iCells) * static_cast<qint64>(sizeof(Cell));
    if (pqDevice && !pqDevice->isSequential()) {
        if (pqDevice->bytesAvailable() < iBytes)
            return false;
        vCells.reserve(static_cast<std::size_t>(iCells));
    }
    QByteArray oBytes;
    for (int iRead = 0; iRead < iCells;) {
        const int iNow = std::min(iBlock, iCells - iRead);
        oBytes.resize(iNow * static_cast<qsizetype>(sizeof(Cell)));
        if (stream.readRawData(oBytes.data(), static_cast<int>(oBytes.size())) != oBytes.size())
            return false;
        for (int i = 0; i < iNow; ++i)
            vCells.push_back(std::bit_cast<Cell>(
                qFromLittleEndian<Bits<Cell>>(oBytes.constData() + static_cast<std::size_t>(i) * sizeof(Cell))));
        iRead += iNow;
    }
    return true;
}

} // namespace

void MatrixColumn::write(QDataStream& stream, int iCells) const
{
    const int iCount = iCells < 0 ? size() : std::min(iCells, size());
    const std::size_t nCount = static_cast<std::size_t>(iCount);
    stream << static_cast<quint8>(streamType(m_eType)) << static_cast<qint32>(iCount);
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        writeCells(stream, std::span(*pDoubles).first(nCount));
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        writeCells(stream, std::span(pInts->values).first(nCount));
        std::vector<std::uint8_t> vMissing;
        for (int i = 0; i < iCount; ++i)
            if (isMissing(i)) {
                vMissing.resize(nCount, 0);
                vMissing[static_cast<std::size_t>(i)] = 1;
            }
        stream << !vMissing.empty();
        writeCells(stream, std::span<const std::uint8_t>(vMissing));
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        writeCells(stream, std::span(*pFlags).first(nCount));
    } else if (auto* pColors = std::get_if<ColorCells>(&m_cells)) {
        writeCells(stream, std::span(pColors->values).first(nCount));
    } else {
        writeTexts(stream, iCount);
    }
}

void MatrixColumn::writeTexts(QDataStream& stream, int iCount) const
{
    const std::vector<std::int32_t>& viCodes = std::get<TextCells>(m_cells).codes;
    std::vector<std::int32_t> viNewCodes(texts().size(), -1);
    std::vector<std::int32_t> viCells(static_cast<std::size_t>(iCount), -1);
    std::vector<const QString*> vpUsed;
    for (std::size_t n = 0; n < viCells.size(); ++n) {
        if (viCodes[n] < 0)
            continue;
        std::int32_t& iNewCode = viNewCodes[static_cast<std::size_t>(viCodes[n])];
        if (iNewCode < 0) {
            iNewCode = static_cast<std::int32_t>(vpUsed.size());
            vpUsed.push_back(&texts()[static_cast<std::size_t>(viCodes[n])]);
        }
        viCells[n] = iNewCode;
    }
    stream << static_cast<qint32>(vpUsed.size());
    for (const QString* psText : vpUsed)
        stream << *psText;
    writeCells(stream, std::span<const std::int32_t>(viCells));
}

std::optional<MatrixColumn> MatrixColumn::read(QDataStream& stream)
{
    quint8 iType = 0;
    qint32 iCount = 0;
    stream >> iType >> iCount;
    const std::optional<QMetaType::Type> oType = columnTypeOf(iType);
    if (stream.status() != QDataStream::Ok || !oType || iCount < 0)
        return std::nullopt;
    MatrixColumn column(*oType);
    bool bOk = false;
    if (auto* pDoubles = std::get_if<std::vector<double>>(&column.m_cells)) {
        bOk = readCells(stream, iCount, *pDoubles);
    } else if (auto* pInts = std::get_if<IntCells>(&column.m_cells)) {
        bOk = readCells(stream, iCount, pInts->values);
        bool bMissing = false;
        stream >> bMissing;
        std::vector<std::uint8_t> vMissing;
        if (bOk && bMissing) {
            bOk = readCells(stream, iCount, vMissing);
            for (std::size_t n = 0; n < vMissing.size(); ++n)
                if (vMissing[n])
                    column.setMissing(static_cast<int>(n));
        }
    } else if (auto* pFlags = std::get_if<BoolCells>(&column.m_cells)) {
        bOk = readCells(stream, iCount, *pFlags) &&
              std::all_of(pFlags->begin(), pFlags->end(), [](std::uint8_t iFlag) { return iFlag <= 2; });
    } else if (auto* pColors = std::get_if<ColorCells>(&column.m_cells)) {
        bOk = readCells(stream, iCount, pColors->values);
        for (QRgb& iColor : pColors->values)
            iColor = iColor == 0 ? 0 : (iColor | 0xff000000u);
    } else {
        bOk = column.readTexts(stream, iCount);
    }
    if (!bOk || stream.status() != QDataStream::Ok)
        return std::nullopt;
    return column;
}

bool MatrixColumn::readTexts(QDataStream& stream, int iCount)
{
    auto& cells = std::get<TextCells>(m_cells);
    qint32 iTexts = 0;
    stream >> iTexts;
    if (iTexts < 0 || iTexts > iCount)
        return false;
    for (qint32 i = 0; i < iTexts; ++i) {
        QString sText;
        stream >> sText;
        // A text that is there twice would give codes that differ for equal texts.
        if (stream.status() != QDataStream::Ok || codeOf(cells, sText) != i)
            return false;
    }
    if (!readCells(stream, iCount, cells.codes))
        return false;
    return std::all_of(cells.codes.begin(), cells.codes.end(),
                       [iTexts](std::int32_t iCode) { return iCode >= -1 && iCode < iTexts; });
}

} // namespace gkBase

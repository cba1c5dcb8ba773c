#include "EMFObjectTable.h"

#include <QFont>
#include <QFontInfo>
#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

/// Charts coloured by an attribute use as many pens and brushes as the attribute has classes or its map colours.
constexpr std::size_t g_iMostObjects = 600;

constexpr std::int32_t g_iSolidBrush = 0;
constexpr std::int32_t g_iGeometricPen = 0x10000;
constexpr std::int32_t g_iUserStyle = 7;
constexpr std::int32_t g_iSquareCap = 0x100;
constexpr std::int32_t g_iFlatCap = 0x200;
constexpr std::int32_t g_iBevelJoin = 0x1000;
constexpr std::int32_t g_iMiterJoin = 0x2000;
constexpr qsizetype g_iTypeSize = 4;
constexpr qsizetype g_iPenSize = 40; // without dashes
constexpr qsizetype g_iBrushSize = 12;
constexpr qsizetype g_iMostDashes = 16;
constexpr qsizetype g_iFaceNameLength = 32;
/// Bytes of a font's values; readers expect the long form, whose further fields stay empty.
constexpr qsizetype g_iFontSize = 320;

void put(QByteArray& oDefinition, std::int32_t iValue)
{
    const std::int32_t iLittle = qToLittleEndian(iValue);
    oDefinition.append(reinterpret_cast<const char*>(&iLittle), sizeof(iLittle));
}

std::int32_t styleOf(const QPen& oPen)
{
    switch (oPen.style()) {
    case Qt::DashLine:
        return 1;
    case Qt::DotLine:
        return 2;
    case Qt::DashDotLine:
        return 3;
    case Qt::DashDotDotLine:
        return 4;
    case Qt::CustomDashLine:
        return g_iUserStyle;
    default:
        return 0;
    }
}

std::int32_t capOf(const QPen& oPen)
{
    // The named styles have gaps of one width, which the caps of dashes would close.
    if (oPen.style() != Qt::SolidLine)
        return g_iFlatCap;
    switch (oPen.capStyle()) {
    case Qt::SquareCap:
        return g_iSquareCap;
    case Qt::FlatCap:
        return g_iFlatCap;
    default:
        return 0;
    }
}

/// What an object is made of, as a key: the type of its record, then the record's values.
QByteArray definitionOf(EMFRecord eType, qsizetype iValueBytes)
{
    QByteArray oDefinition;
    oDefinition.reserve(g_iTypeSize + iValueBytes);
    put(oDefinition, static_cast<std::int32_t>(eType));
    return oDefinition;
}

/// Lengths of dashes and gaps in units, the caps of the dashes included.
QByteArray dashesOf(const QPen& oPen, double dWidth)
{
    const QList<qreal> vDashes = oPen.dashPattern(); // in pen widths
    const double dCaps = oPen.capStyle() == Qt::FlatCap ? 0.0 : 1.0;
    QByteArray oDashes;
    for (qsizetype i = 0; i < std::min(vDashes.size(), g_iMostDashes); ++i) {
        const double dLength = vDashes[i] + (i % 2 == 0 ? dCaps : -dCaps);
        put(oDashes, std::max(1, static_cast<int>(std::lround(dLength * dWidth))));
    }
    return oDashes;
}

std::int32_t joinOf(const QPen& oPen)
{
    switch (oPen.joinStyle()) {
    case Qt::BevelJoin:
        return g_iBevelJoin;
    case Qt::MiterJoin:
    case Qt::SvgMiterJoin:
        return g_iMiterJoin;
    default:
        return 0;
    }
}

} // namespace

void EMFObjectTable::reset()
{
    m_vObjects.clear();
    m_handles.clear();
    m_iUses = 0;
    forgetSelection();
}

void EMFObjectTable::deleteAll()
{
    for (std::size_t i = 0; i < m_vObjects.size(); ++i)
        m_writer.write(EMFRecord::DeleteObject, {static_cast<std::int32_t>(i + 1)});
    reset();
}

void EMFObjectTable::forgetSelection()
{
    std::fill(std::begin(m_iSelected), std::end(m_iSelected), s_iNothing);
}

void EMFObjectTable::selectPen(const QPen& oPen, double dWidth, const QColor& oColor)
{
    int iWidth = std::max(1, static_cast<int>(std::lround(dWidth)));
    // Some readers leave out lines of exactly one pixel in the colour of the last brush, even where no brush is
    // selected: tails of tadpoles have the colour of the heads.
    if (iWidth == EMFRecordWriter::s_iUnitsPerPixel)
        --iWidth;
    const QByteArray oDashes = oPen.style() == Qt::CustomDashLine ? dashesOf(oPen, dWidth) : QByteArray();
    QByteArray oDefinition = definitionOf(EMFRecord::NewPen, g_iPenSize + oDashes.size());
    for (int i = 0; i < 4; ++i)
        put(oDefinition, 0); // no bitmap
    put(oDefinition, g_iGeometricPen | styleOf(oPen) | capOf(oPen) | joinOf(oPen));
    put(oDefinition, iWidth);
    put(oDefinition, g_iSolidBrush);
    put(oDefinition, colorValue(oColor));
    put(oDefinition, 0); // no hatch
    put(oDefinition, static_cast<std::int32_t>(oDashes.size() / 4));
    oDefinition += oDashes;
    select(Pen, EMFRecord::NewPen, oDefinition);
}

void EMFObjectTable::selectBrush(const QColor& oColor)
{
    QByteArray oDefinition = definitionOf(EMFRecord::NewBrush, g_iBrushSize);
    put(oDefinition, g_iSolidBrush);
    put(oDefinition, colorValue(oColor));
    put(oDefinition, 0); // no hatch
    select(Brush, EMFRecord::NewBrush, oDefinition);
}

void EMFObjectTable::selectFont(const QFont& oFont, int iHeight, int iTenthsOfDegree)
{
    QByteArray oDefinition = definitionOf(EMFRecord::NewFont, g_iFontSize);
    put(oDefinition, -iHeight); // negative: the em square, not the line
    put(oDefinition, 0);        // width as the font has it
    put(oDefinition, iTenthsOfDegree);
    put(oDefinition, iTenthsOfDegree);
    put(oDefinition, oFont.weight());
    // Italic, underlined, struck out (the painter draws these lines itself), character set; then precision of output
    // and clipping, quality, pitch.
    const char cFlags[8] = {static_cast<char>(oFont.italic() ? 1 : 0), 0, 0, 1, 0, 0, 0, 0};
    oDefinition.append(cFlags, sizeof(cFlags));
    const QString sFamily = QFontInfo(oFont).family().left(g_iFaceNameLength - 1);
    for (const QChar cChar : sFamily) {
        const char16_t iLittle = qToLittleEndian(cChar.unicode());
        oDefinition.append(reinterpret_cast<const char*>(&iLittle), sizeof(iLittle));
    }
    oDefinition.append(g_iTypeSize + g_iFontSize - oDefinition.size(), '\0');
    select(Font, EMFRecord::NewFont, oDefinition);
}

std::int32_t EMFObjectTable::colorValue(const QColor& oColor)
{
    return oColor.red() | oColor.green() << 8 | oColor.blue() << 16;
}

void EMFObjectTable::select(Kind eKind, std::uint32_t iHandle)
{
    if (m_iSelected[eKind] == iHandle)
        return;
    m_iSelected[eKind] = iHandle;
    m_writer.write(EMFRecord::SelectObject, {static_cast<std::int32_t>(iHandle)});
}

void EMFObjectTable::select(Kind eKind, EMFRecord eType, const QByteArray& oDefinition)
{
    // Symbols of one look follow each other: no search for what is selected.
    const std::uint32_t iSelected = m_iSelected[eKind];
    std::uint32_t iHandle = iSelected - 1 < m_vObjects.size() && m_vObjects[iSelected - 1].m_oDefinition == oDefinition
                                ? iSelected
                                : m_handles.value(oDefinition, s_iNothing);
    if (iHandle == s_iNothing) {
        iHandle = create(eType, oDefinition);
        m_handles.insert(oDefinition, iHandle);
        m_vObjects[iHandle - 1].m_oDefinition = oDefinition;
    }
    m_vObjects[iHandle - 1].m_iLastUse = ++m_iUses;
    select(eKind, iHandle);
}

std::uint32_t EMFObjectTable::create(EMFRecord eType, const QByteArray& oDefinition)
{
    const std::uint32_t iHandle = freeHandle();
    m_writer.useHandle(static_cast<std::uint16_t>(iHandle));
    m_writer.open(eType);
    m_writer.put(static_cast<std::int32_t>(iHandle));
    m_writer.putBytes(QByteArrayView(oDefinition).sliced(g_iTypeSize));
    m_writer.close();
    return iHandle;
}

std::uint32_t EMFObjectTable::freeHandle()
{
    if (m_vObjects.size() < g_iMostObjects) {
        m_vObjects.emplace_back();
        return static_cast<std::uint32_t>(m_vObjects.size());
    }
    std::uint32_t iIdle = s_iNothing;
    for (std::uint32_t i = 1; i <= m_vObjects.size(); ++i) {
        if (!isSelected(i) && (iIdle == s_iNothing || m_vObjects[i - 1].m_iLastUse < m_vObjects[iIdle - 1].m_iLastUse))
            iIdle = i;
    }
    m_writer.write(EMFRecord::DeleteObject, {static_cast<std::int32_t>(iIdle)});
    m_handles.remove(m_vObjects[iIdle - 1].m_oDefinition);
    return iIdle;
}

bool EMFObjectTable::isSelected(std::uint32_t iHandle) const
{
    return std::find(std::begin(m_iSelected), std::end(m_iSelected), iHandle) != std::end(m_iSelected);
}

} // namespace gkBase

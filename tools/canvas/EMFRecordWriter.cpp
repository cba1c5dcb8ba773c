#include "EMFRecordWriter.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace gkBase {

namespace {

// The header's fields that finish() fills in, as offsets in bytes.
constexpr qsizetype g_iBoundsOffset = 8;
constexpr qsizetype g_iFrameOffset = 24;
constexpr qsizetype g_iBytesOffset = 48;
constexpr qsizetype g_iRecordsOffset = 52;
constexpr qsizetype g_iHandlesOffset = 56;
constexpr int g_iHeaderSize = 108;

/// From PolyBezier … PolylineTo to the records of the same kind with 16-bit co-ordinates.
constexpr std::uint32_t g_iToShortForm = 83;

constexpr std::int32_t g_iSignature = 0x464D4520; // " EMF"
constexpr std::int32_t g_iVersion = 0x10000;
constexpr double g_dHundredthsOfMillimetrePerInch = 2540.0;

// The reference device: a screen of this many pixels at 96 per inch, which gives whole millimetres.
constexpr int g_iReferenceWidth = 1920;
constexpr int g_iReferenceHeight = 1440;
constexpr int g_iReferenceWidthMM = 508;
constexpr int g_iReferenceHeightMM = 381;
constexpr int g_iMicrometresPerMillimetre = 1000;

std::int32_t rounded(double dValue)
{
    return static_cast<std::int32_t>(std::lround(dValue));
}

} // namespace

void EMFRecordWriter::start(const QString& sProgram, const QString& sPicture)
{
    m_oBytes.clear();
    m_iRecords = 0;
    m_iHighestHandle = 0;
    // Two texts, each with its terminator, and one more terminator.
    const QString sDescription = sProgram + QChar() + sPicture + QChar() + QChar();
    open(EMFRecord::Header);
    put(QRect(QPoint(0, 0), QPoint(0, 0))); // bounds
    put(QRect(QPoint(0, 0), QPoint(0, 0))); // frame
    put(g_iSignature);
    put(g_iVersion);
    put(0); // bytes
    put(0); // records
    put(0); // handles
    put(static_cast<std::int32_t>(sDescription.size()));
    put(g_iHeaderSize); // where the description stands
    put(0);             // no palette
    put(g_iReferenceWidth * s_iUnitsPerPixel);
    put(g_iReferenceHeight * s_iUnitsPerPixel);
    put(g_iReferenceWidthMM);
    put(g_iReferenceHeightMM);
    put(0); // no pixel format
    put(0);
    put(0); // no OpenGL
    put(g_iReferenceWidthMM * g_iMicrometresPerMillimetre);
    put(g_iReferenceHeightMM * g_iMicrometresPerMillimetre);
    putText(sDescription);
    close();
}

QByteArray EMFRecordWriter::finish(const QRectF& oPicturePixels)
{
    constexpr std::int32_t iSizeOfLast = 20;
    write(EMFRecord::EndOfFile, {0, iSizeOfLast - 4, iSizeOfLast});
    const double dEdges[4] = {oPicturePixels.left(), oPicturePixels.top(), oPicturePixels.right(),
                              oPicturePixels.bottom()};
    for (qsizetype i = 0; i < 4; ++i) {
        patch32(g_iBoundsOffset + 4 * i, static_cast<std::uint32_t>(rounded(dEdges[i] * s_iUnitsPerPixel)));
        patch32(g_iFrameOffset + 4 * i,
                static_cast<std::uint32_t>(rounded(dEdges[i] * g_dHundredthsOfMillimetrePerInch / s_iPixelsPerInch)));
    }
    patch32(g_iBytesOffset, static_cast<std::uint32_t>(m_oBytes.size()));
    patch32(g_iRecordsOffset, m_iRecords);
    patch32(g_iHandlesOffset, m_iHighestHandle + 1U); // handle 0 is the metafile itself
    return std::exchange(m_oBytes, QByteArray());
}

void EMFRecordWriter::open(EMFRecord eType)
{
    m_iRecordStart = m_oBytes.size();
    put(static_cast<std::int32_t>(eType));
    put(0); // the size
}

void EMFRecordWriter::put(std::int32_t iValue)
{
    const std::int32_t iLittle = qToLittleEndian(iValue);
    m_oBytes.append(reinterpret_cast<const char*>(&iLittle), sizeof(iLittle));
}

void EMFRecordWriter::put16(std::uint16_t iValue)
{
    const std::uint16_t iLittle = qToLittleEndian(iValue);
    m_oBytes.append(reinterpret_cast<const char*>(&iLittle), sizeof(iLittle));
}

void EMFRecordWriter::put(const QRect& oRect)
{
    put(oRect.left());
    put(oRect.top());
    put(oRect.right());
    put(oRect.bottom());
}

void EMFRecordWriter::put(std::span<const QPoint> points)
{
    for (const QPoint& oPoint : points) {
        put(oPoint.x());
        put(oPoint.y());
    }
}

void EMFRecordWriter::putText(const QString& sText)
{
    for (const QChar cChar : sText)
        put16(cChar.unicode());
}

void EMFRecordWriter::pad()
{
    m_oBytes.append((4 - m_oBytes.size() % 4) % 4, '\0');
}

void EMFRecordWriter::close()
{
    pad();
    patch32(m_iRecordStart + 4, static_cast<std::uint32_t>(m_oBytes.size() - m_iRecordStart));
    ++m_iRecords;
}

void EMFRecordWriter::write(EMFRecord eType, std::initializer_list<std::int32_t> values)
{
    open(eType);
    for (const std::int32_t iValue : values)
        put(iValue);
    close();
}

void EMFRecordWriter::writePoints(EMFRecord eType, std::span<const QPoint> points)
{
    const QRect oBounds = bounds(points);
    const bool bShort = std::min(oBounds.left(), oBounds.top()) >= std::numeric_limits<std::int16_t>::min() &&
                        std::max(oBounds.right(), oBounds.bottom()) <= std::numeric_limits<std::int16_t>::max();
    open(bShort ? static_cast<EMFRecord>(static_cast<std::uint32_t>(eType) + g_iToShortForm) : eType);
    put(oBounds);
    put(static_cast<std::int32_t>(points.size()));
    if (bShort) {
        for (const QPoint& oPoint : points) {
            put16(static_cast<std::uint16_t>(oPoint.x()));
            put16(static_cast<std::uint16_t>(oPoint.y()));
        }
    } else {
        put(points);
    }
    close();
}

void EMFRecordWriter::useHandle(std::uint16_t iHandle)
{
    m_iHighestHandle = std::max(m_iHighestHandle, iHandle);
}

QRect EMFRecordWriter::bounds(std::span<const QPoint> points)
{
    if (points.empty())
        return {QPoint(0, 0), QPoint(-1, -1)};
    QPoint oLow = points.front();
    QPoint oHigh = oLow;
    for (const QPoint& oPoint : points) {
        oLow = {std::min(oLow.x(), oPoint.x()), std::min(oLow.y(), oPoint.y())};
        oHigh = {std::max(oHigh.x(), oPoint.x()), std::max(oHigh.y(), oPoint.y())};
    }
    return {oLow, oHigh};
}

void EMFRecordWriter::patch32(qsizetype iOffset, std::uint32_t iValue)
{
    qToLittleEndian(iValue, m_oBytes.data() + iOffset);
}

} // namespace gkBase

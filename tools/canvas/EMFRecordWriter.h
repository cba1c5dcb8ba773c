#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <initializer_list>
#include <span>

namespace gkBase {

/// The records that charts need, with their numbers in the file.
enum class EMFRecord : std::uint32_t
{
    Header = 1,
    PolyBezier = 2,
    Polygon = 3,
    Polyline = 4,
    PolyBezierTo = 5,
    PolylineTo = 6,
    PolyPolygon = 8,
    EndOfFile = 14,
    SetMapMode = 17,
    SetBackgroundMode = 18,
    SetPolyFillMode = 19,
    SetTextAlign = 22,
    SetTextColor = 24,
    MoveTo = 27,
    IntersectClipRect = 30,
    SaveContext = 33,
    RestoreContext = 34,
    SelectObject = 37,
    NewBrush = 39,
    DeleteObject = 40,
    Ellipse = 42,
    Rectangle = 43,
    BeginPath = 59,
    EndPath = 60,
    CloseFigure = 61,
    FillPath = 62,
    StrokeAndFillPath = 63,
    StrokePath = 64,
    SelectClipPath = 67,
    StretchDIBits = 81,
    NewFont = 82,
    Text = 84,
    NewPen = 95
};

/// Writes the records of a Windows enhanced metafile, little-endian on every machine: a type, a size in bytes that is
/// a multiple of four, and the values. Knows nothing of painting.
///
/// Co-ordinates are units of a reference device that is s_iUnitsPerPixel times finer than the chart's pixels of 1/96
/// inch. No window or viewport is declared: readers disagree about pen widths under one, but not about a fine device.
class EMFRecordWriter
{
public:
    static constexpr int s_iUnitsPerPixel = 16;
    static constexpr int s_iPixelsPerInch = 96;

    /// Forgets all, and writes the header with empty bounds and zero counts. The description names program and picture.
    void start(const QString& sProgram, const QString& sPicture);
    /// Writes the last record, fills the header in and hands the bytes over. The picture's rectangle is in pixels.
    QByteArray finish(const QRectF& oPicturePixels);

    // ---- one record: open, put values, close ---------------------------------------------------------------------
    void open(EMFRecord eType);
    void put(std::int32_t iValue);
    void put16(std::uint16_t iValue);
    void put(const QRect& oRect);
    void put(std::span<const QPoint> points);
    void putBytes(QByteArrayView oBytes) { m_oBytes.append(oBytes); }
    /// UTF-16 without a terminator.
    void putText(const QString& sText);
    /// Zeros up to the next multiple of four.
    void pad();
    void close();
    /// A whole record of 32-bit values.
    void write(EMFRecord eType, std::initializer_list<std::int32_t> values = {});
    /// A whole record from PolyBezier to PolylineTo; where all points fit in 16 bits, in the short form of that record.
    void writePoints(EMFRecord eType, std::span<const QPoint> points);

    /// Tells that object handles up to this one are in use.
    void useHandle(std::uint16_t iHandle);
    /// Smallest rectangle around the points, its right and bottom edges included as the file format wants it: a QRect
    /// whose right() and bottom() are the largest co-ordinates.
    static QRect bounds(std::span<const QPoint> points);

private:
    void patch32(qsizetype iOffset, std::uint32_t iValue);

    QByteArray m_oBytes;
    qsizetype m_iRecordStart = 0;
    std::uint32_t m_iRecords = 0;
    std::uint16_t m_iHighestHandle = 0;
};

} // namespace gkBase

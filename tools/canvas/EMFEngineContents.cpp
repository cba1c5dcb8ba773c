// Texts and pictures on a metafile.

#include "EMFDevice.h"
#include "EMFEngine.h"

#include <QBitmap>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QTextItem>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace gkBase {

namespace {

constexpr double g_dPointsPerInch = 72.0;
constexpr int g_iFullCircle = 3600; // tenths of a degree
constexpr std::int32_t g_iAdvancedMode = 2;
constexpr std::int32_t g_iScaleOne = 0x3F800000; // 1.0 as a float
/// Offset of the characters in a text record.
constexpr int g_iTextOffset = 76;
constexpr int g_iStretchHeaderSize = 80;
constexpr int g_iBitmapHeaderSize = 40;
constexpr std::int32_t g_iCopySource = 0x00CC0020;
constexpr std::int32_t g_iLastSaved = -1;
constexpr std::int32_t g_iIntersectClip = 1;
/// A picture with more see-through gaps than this covers what is under it.
constexpr int g_iMostPieces = 2000;

double pixelSize(const QFont& oFont)
{
    return oFont.pixelSize() > 0 ? oFont.pixelSize()
                                 : oFont.pointSizeF() * EMFRecordWriter::s_iPixelsPerInch / g_dPointsPerInch;
}

/// Turned and magnified alike in all directions, as a font can be.
bool keepsShapes(const QTransform& transform)
{
    const double dSlack = 1e-6 * (std::abs(transform.m11()) + std::abs(transform.m12()));
    return transform.isAffine() && std::abs(transform.m11() - transform.m22()) <= dSlack &&
           std::abs(transform.m12() + transform.m21()) <= dSlack && transform.determinant() > 0.0;
}

/// Width of each UTF-16 unit; rounded so that no error adds up along the text.
std::vector<int> advances(const QString& sText, const QFont& oFont, QPaintDevice* pDevice, double dUnitsPerPixel)
{
    QTextLayout layout(sText, oFont, pDevice);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    std::vector<int> viAdvances;
    viAdvances.reserve(static_cast<std::size_t>(sText.size()));
    int iLast = 0;
    for (int i = 1; i <= sText.size(); ++i) {
        const int iEnd = static_cast<int>(std::lround(line.cursorToX(i) * dUnitsPerPixel));
        viAdvances.push_back(iEnd - iLast);
        iLast = iEnd;
    }
    return viAdvances;
}

/// The pixels that are not wholly transparent; everything when that would be very many pieces.
QRegion visiblePart(const QImage& oImage)
{
    if (!oImage.hasAlphaChannel())
        return oImage.rect();
    const QImage oPremultiplied = oImage.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QRegion oVisible(QBitmap::fromImage(oPremultiplied.createMaskFromColor(0, Qt::MaskInColor)));
    return oVisible.rectCount() > g_iMostPieces ? QRegion(oImage.rect()) : oVisible;
}

/// Rectangles of a picture's pixels where they come to lie.
QPainterPath placed(const QRegion& oRegion, const QSize& oPicture, const QRectF& oTarget)
{
    QPainterPath path;
    path.addRegion(oRegion);
    return QTransform::fromTranslate(oTarget.left(), oTarget.top())
        .scale(oTarget.width() / oPicture.width(), oTarget.height() / oPicture.height())
        .map(path);
}

} // namespace

// ---- texts ---------------------------------------------------------------------------------------------------------

void EMFEngine::drawTextItem(const QPointF& oPosition, const QTextItem& item)
{
    if (item.text().isEmpty() || !(m_dOpacity > 0.0) || m_oPen.color().alpha() == 0)
        return;
    // Readers order such scripts and letters in ways of their own, and fonts cannot be sheared.
    if ((item.renderFlags() & QTextItem::RightToLeft) || !keepsShapes(m_oTransform)) {
        QPaintEngine::drawTextItem(oPosition, item); // as outlines
        return;
    }
    if (!prepareClip())
        return;
    const double dScale = std::sqrt(m_oTransform.determinant()) * EMFRecordWriter::s_iUnitsPerPixel;
    const double dClockwiseRad = std::atan2(m_oTransform.m12(), m_oTransform.m11());
    const int iTenths = static_cast<int>(std::lround(-dClockwiseRad * g_iFullCircle / (2.0 * std::numbers::pi)));
    m_objects.selectFont(item.font(), std::max(1, static_cast<int>(std::lround(pixelSize(item.font()) * dScale))),
                         (iTenths + g_iFullCircle) % g_iFullCircle);
    setTextColor(opaque(m_oPen.color()));
    writeText(m_oTransform.map(oPosition), item.text(), advances(item.text(), item.font(), paintDevice(), dScale));
}

void EMFEngine::writeText(const QPointF& oPosition, const QString& sText, const std::vector<int>& viAdvances)
{
    const QPoint oUnits = emfUnits(oPosition);
    const int iTextSize = static_cast<int>((sText.size() * 2 + 3) / 4 * 4);
    m_writer.open(EMFRecord::Text);
    m_writer.put(QRect()); // bounds: not known
    m_writer.put(g_iAdvancedMode);
    m_writer.put(g_iScaleOne);
    m_writer.put(g_iScaleOne);
    m_writer.put(oUnits.x());
    m_writer.put(oUnits.y());
    m_writer.put(static_cast<std::int32_t>(sText.size()));
    m_writer.put(g_iTextOffset);
    m_writer.put(0);       // no options
    m_writer.put(QRect()); // no rectangle
    m_writer.put(g_iTextOffset + iTextSize);
    m_writer.putText(sText);
    m_writer.pad();
    for (const int iAdvance : viAdvances)
        m_writer.put(iAdvance);
    m_writer.close();
}

// ---- pictures ------------------------------------------------------------------------------------------------------

void EMFEngine::drawPixmap(const QRectF& oTarget, const QPixmap& oPixmap, const QRectF& oSource)
{
    drawImage(oTarget, oPixmap.toImage(), oSource, Qt::AutoColor);
}

void EMFEngine::drawImage(const QRectF& oTarget, const QImage& oImage, const QRectF& oSource, Qt::ImageConversionFlags)
{
    QImage oPart = oImage.copy(oSource.toAlignedRect() & oImage.rect());
    const QRectF oPlace = m_oTransform.mapRect(oTarget);
    if (oPart.isNull() || oPlace.isEmpty() || !(m_dOpacity > 0.0) || !prepareClip())
        return;
    oPart.setDevicePixelRatio(1.0);
    if (m_oTransform.type() > QTransform::TxScale || m_oTransform.m11() < 0.0 || m_oTransform.m22() < 0.0) {
        const QTransform linear(m_oTransform.m11(), m_oTransform.m12(), m_oTransform.m21(), m_oTransform.m22(), 0, 0);
        oPart =
            oPart.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                .transformed(QTransform::fromScale(oTarget.width() / oPart.width(), oTarget.height() / oPart.height()) *
                                 linear,
                             Qt::SmoothTransformation);
    }
    const QRegion oVisible = visiblePart(oPart);
    if (oVisible.isEmpty())
        return;
    if (oVisible == QRegion(oPart.rect())) {
        writeImage(oPlace, oPart);
        return;
    }
    // The format knows no transparent pixels: what lies between the visible ones is clipped away.
    m_writer.write(EMFRecord::SaveContext);
    writePath(emfFigures(placed(oVisible, oPart.size(), oPlace)));
    m_writer.write(EMFRecord::SelectClipPath, {g_iIntersectClip});
    writeImage(oPlace, oPart);
    m_writer.write(EMFRecord::RestoreContext, {g_iLastSaved});
}

void EMFEngine::writeImage(const QRectF& oTarget, const QImage& oImage)
{
    QImage oFlat(oImage.size(), QImage::Format_RGB32);
    oFlat.fill(background());
    QPainter painter(&oFlat);
    painter.setOpacity(m_dOpacity);
    painter.drawImage(0, 0, oImage);
    painter.end();
    oFlat = oFlat.convertToFormat(QImage::Format_BGR888); // its lines are padded as those of the file are

    const QRect oUnits = emfUnits(oTarget);
    const auto iBytes = static_cast<std::int32_t>(oFlat.sizeInBytes());
    m_writer.open(EMFRecord::StretchDIBits);
    m_writer.put(oUnits);
    for (const int iValue : {oUnits.left(), oUnits.top(), 0, 0, oFlat.width(), oFlat.height()})
        m_writer.put(iValue);
    m_writer.put(g_iStretchHeaderSize);
    m_writer.put(g_iBitmapHeaderSize);
    m_writer.put(g_iStretchHeaderSize + g_iBitmapHeaderSize);
    m_writer.put(iBytes);
    m_writer.put(0); // colours, not palette entries
    m_writer.put(g_iCopySource);
    m_writer.put(oUnits.right() - oUnits.left());
    m_writer.put(oUnits.bottom() - oUnits.top());
    m_writer.put(g_iBitmapHeaderSize);
    m_writer.put(oFlat.width());
    m_writer.put(oFlat.height());
    m_writer.put16(1);  // plane
    m_writer.put16(24); // bits per pixel
    for (const int iValue : {0, iBytes, 0, 0, 0, 0})
        m_writer.put(iValue);
    for (int y = oFlat.height() - 1; y >= 0; --y) // the lowest line first
        m_writer.putBytes(QByteArrayView(oFlat.constScanLine(y), oFlat.bytesPerLine()));
    m_writer.close();
}

} // namespace gkBase

#include "ChartExporter.h"

#include "EMFDevice.h"
#include "FileCommit.h"

#include <QFileInfo>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRectF>
#include <QSaveFile>
#include <QSvgGenerator>

namespace gkBase {

namespace {

constexpr int g_iMaxSide = 20000;
/// One logical pixel is 1/96 inch on every device, so that point sizes of fonts mean the same everywhere.
constexpr int g_iDotsPerInch = 96;
constexpr double g_dPointsPerInch = 72.0;
constexpr double g_dMetresPerInch = 0.0254;

bool paint(QPaintDevice& device, const QSize& oSize, const ChartPicture& picture)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHint(QPainter::TextAntialiasing);
    const QRectF oRect(QPointF(0, 0), QSizeF(oSize));
    painter.fillRect(oRect, picture.m_oBackground);
    picture.m_fnRender(painter, oRect);
    return painter.end();
}

bool writePng(QIODevice& file, const QSize& oSize, const ChartPicture& picture)
{
    QImage oImage(oSize, QImage::Format_ARGB32_Premultiplied);
    if (oImage.isNull())
        return false;
    oImage.setDotsPerMeterX(qRound(g_iDotsPerInch / g_dMetresPerInch));
    oImage.setDotsPerMeterY(qRound(g_iDotsPerInch / g_dMetresPerInch));
    oImage.fill(picture.m_oBackground);
    if (!picture.m_sTitle.isEmpty())
        oImage.setText(QStringLiteral("Title"), picture.m_sTitle);
    return paint(oImage, oSize, picture) && oImage.save(&file, "PNG");
}

bool writeSvg(QIODevice& file, const QSize& oSize, const ChartPicture& picture)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setSize(oSize);
    generator.setViewBox(QRect(QPoint(0, 0), oSize));
    generator.setResolution(g_iDotsPerInch);
    generator.setTitle(picture.m_sTitle.toHtmlEscaped()); // the generator writes the text into the XML as it is
    return paint(generator, oSize, picture);
}

bool writePdf(QIODevice& file, const QSize& oSize, const ChartPicture& picture)
{
    QPdfWriter writer(&file);
    writer.setResolution(g_iDotsPerInch);
    writer.setPageSize(QPageSize(QSizeF(oSize) * g_dPointsPerInch / g_iDotsPerInch, QPageSize::Point, QString(),
                                 QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(picture.m_sTitle);
    return paint(writer, oSize, picture);
}

QByteArray paintMetafile(const QSize& oSize, const ChartPicture& picture)
{
    EMFDevice device(picture.m_sTitle);
    device.setBoundingRect(QRect(QPoint(0, 0), oSize));
    device.setBackgroundColor(picture.m_oBackground);
    return paint(device, oSize, picture) ? device.metafile() : QByteArray();
}

bool writeEmf(QIODevice& file, const QSize& oSize, const ChartPicture& picture)
{
    const QByteArray oMetafile = paintMetafile(oSize, picture);
    return !oMetafile.isEmpty() && file.write(oMetafile) == oMetafile.size();
}

using Writer = bool (*)(QIODevice&, const QSize&, const ChartPicture&);

Writer writerFor(const QString& sPath)
{
    const QString sSuffix = QFileInfo(sPath).suffix().toLower();
    if (sSuffix == QLatin1String("png"))
        return writePng;
    if (sSuffix == QLatin1String("svg"))
        return writeSvg;
    if (sSuffix == QLatin1String("pdf"))
        return writePdf;
    if (sSuffix == QLatin1String("emf"))
        return writeEmf;
    return nullptr;
}

/// Empty when the file is written, otherwise the reason.
QString writeFile(const QString& sPath, const QSize& oSize, const ChartPicture& picture)
{
    const Writer writer = writerFor(sPath);
    if (!writer)
        return ChartExporter::tr(
                   "The chart cannot be written to \"%1\": the file name must end in .png, .svg, .pdf or .emf.")
            .arg(sPath);
    if (oSize.width() < 1 || oSize.height() < 1 || oSize.width() > g_iMaxSide || oSize.height() > g_iMaxSide)
        return ChartExporter::tr("The chart cannot be written: a size of %1 × %2 pixels is outside 1 to %3.")
            .arg(oSize.width())
            .arg(oSize.height())
            .arg(g_iMaxSide);
    QSaveFile file(sPath);
    if (!file.open(QIODevice::WriteOnly))
        return ChartExporter::tr("The chart cannot be written to \"%1\": %2.").arg(sPath, file.errorString());
    if (!writer(file, oSize, picture)) {
        file.cancelWriting();
        return ChartExporter::tr("The chart could not be drawn into \"%1\".").arg(sPath);
    }
    if (!commitWhole(file))
        return ChartExporter::tr("The chart cannot be written to \"%1\": %2.").arg(sPath, file.errorString());
    return {};
}

} // namespace

bool ChartExporter::write(const QString& sPath, const QSize& oSize, const ChartPicture& picture, QString* psError)
{
    const QString sError = writeFile(sPath, oSize, picture);
    if (psError)
        *psError = sError;
    return sError.isEmpty();
}

QByteArray ChartExporter::metafile(const QSize& oSize, const ChartPicture& picture)
{
    return oSize.isEmpty() ? QByteArray() : paintMetafile(oSize, picture);
}

bool ChartExporter::print(QPrinter& printer, const ChartPicture& picture)
{
    printer.setResolution(g_iDotsPerInch);
    const QSize oSize = printer.pageRect(QPrinter::DevicePixel).size().toSize();
    return !oSize.isEmpty() && paint(printer, oSize, picture);
}

QStringList ChartExporter::nameFilters()
{
    return {tr("PNG picture (*.png)"), tr("SVG drawing (*.svg)"), tr("PDF document (*.pdf)"),
            tr("Enhanced metafile (*.emf)")};
}

QStringList ChartExporter::formats()
{
    return {QStringLiteral("png"), QStringLiteral("svg"), QStringLiteral("pdf"), QStringLiteral("emf")};
}

} // namespace gkBase

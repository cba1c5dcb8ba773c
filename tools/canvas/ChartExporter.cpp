#include "ChartExporter.h"

#include "EMFDevice.h"

#include <QFileInfo>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
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

struct Page
{
    QSize m_oSize;
    QColor m_oBackground;
    QString m_sTitle;
};

bool paint(QPaintDevice& device, const Page& page, const ChartExporter::Render& render)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHint(QPainter::TextAntialiasing);
    const QRectF oRect(QPointF(0, 0), QSizeF(page.m_oSize));
    painter.fillRect(oRect, page.m_oBackground);
    render(painter, oRect);
    return painter.end();
}

bool writePng(QIODevice& file, const Page& page, const ChartExporter::Render& render)
{
    QImage oImage(page.m_oSize, QImage::Format_ARGB32_Premultiplied);
    if (oImage.isNull())
        return false;
    oImage.setDotsPerMeterX(qRound(g_iDotsPerInch / g_dMetresPerInch));
    oImage.setDotsPerMeterY(qRound(g_iDotsPerInch / g_dMetresPerInch));
    oImage.fill(page.m_oBackground);
    if (!page.m_sTitle.isEmpty())
        oImage.setText(QStringLiteral("Title"), page.m_sTitle);
    return paint(oImage, page, render) && oImage.save(&file, "PNG");
}

bool writeSvg(QIODevice& file, const Page& page, const ChartExporter::Render& render)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setSize(page.m_oSize);
    generator.setViewBox(QRect(QPoint(0, 0), page.m_oSize));
    generator.setResolution(g_iDotsPerInch);
    generator.setTitle(page.m_sTitle.toHtmlEscaped()); // the generator writes the text into the XML as it is
    return paint(generator, page, render);
}

bool writePdf(QIODevice& file, const Page& page, const ChartExporter::Render& render)
{
    QPdfWriter writer(&file);
    writer.setResolution(g_iDotsPerInch);
    writer.setPageSize(QPageSize(QSizeF(page.m_oSize) * g_dPointsPerInch / g_iDotsPerInch, QPageSize::Point, QString(),
                                 QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(page.m_sTitle);
    return paint(writer, page, render);
}

QByteArray paintMetafile(const Page& page, const ChartExporter::Render& render)
{
    EMFDevice device(page.m_sTitle);
    device.setBoundingRect(QRect(QPoint(0, 0), page.m_oSize));
    device.setBackgroundColor(page.m_oBackground);
    return paint(device, page, render) ? device.metafile() : QByteArray();
}

bool writeEmf(QIODevice& file, const Page& page, const ChartExporter::Render& render)
{
    const QByteArray oMetafile = paintMetafile(page, render);
    return !oMetafile.isEmpty() && file.write(oMetafile) == oMetafile.size();
}

using Writer = bool (*)(QIODevice&, const Page&, const ChartExporter::Render&);

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
QString writeFile(const QString& sPath, const Page& page, const ChartExporter::Render& render)
{
    const Writer writer = writerFor(sPath);
    if (!writer)
        return ChartExporter::tr(
                   "The chart cannot be written to \"%1\": the file name must end in .png, .svg, .pdf or .emf.")
            .arg(sPath);
    const QSize& oSize = page.m_oSize;
    if (oSize.width() < 1 || oSize.height() < 1 || oSize.width() > g_iMaxSide || oSize.height() > g_iMaxSide)
        return ChartExporter::tr("The chart cannot be written: a size of %1 × %2 pixels is outside 1 to %3.")
            .arg(oSize.width())
            .arg(oSize.height())
            .arg(g_iMaxSide);
    QSaveFile file(sPath);
    if (!file.open(QIODevice::WriteOnly))
        return ChartExporter::tr("The chart cannot be written to \"%1\": %2.").arg(sPath, file.errorString());
    if (!writer(file, page, render)) {
        file.cancelWriting();
        return ChartExporter::tr("The chart could not be drawn into \"%1\".").arg(sPath);
    }
    if (!file.commit())
        return ChartExporter::tr("The chart cannot be written to \"%1\": %2.").arg(sPath, file.errorString());
    return {};
}

} // namespace

bool ChartExporter::write(const QString& sPath, const QSize& oSize, const QColor& oBackground, const QString& sTitle,
                          const Render& render, QString* psError)
{
    const QString sError = writeFile(sPath, {oSize, oBackground, sTitle}, render);
    if (psError)
        *psError = sError;
    return sError.isEmpty();
}

QByteArray ChartExporter::metafile(const QSize& oSize, const QColor& oBackground, const QString& sTitle,
                                   const Render& render)
{
    return oSize.isEmpty() ? QByteArray() : paintMetafile({oSize, oBackground, sTitle}, render);
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

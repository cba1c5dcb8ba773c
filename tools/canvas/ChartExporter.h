#pragma once

#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QColor>
#include <QCoreApplication>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

class QPainter;
class QPrinter;
class QRectF;

namespace gkBase {

/// A chart as it is drawn on any device.
struct ChartPicture
{
    QColor m_oBackground = Qt::white;
    QString m_sTitle; ///< of the file
    /// Draws the chart into the rectangle; called once, with a painter whose unit is one logical pixel (1/96 inch).
    std::function<void(QPainter&, const QRectF&)> m_fnRender;
};

/// Writes a chart to a picture file. The format follows the file's extension: .png, .svg, .pdf or .emf.
class GKBASETOOLS_EXPORT ChartExporter
{
    Q_DECLARE_TR_FUNCTIONS(gkBase::ChartExporter)

public:
    /// oSize is the logical size in pixels, 1 to 20000 each way. The file is replaced as a whole or, on failure, left
    /// alone; the reason goes into psError (may be null) as a sentence for the user.
    static bool write(const QString& sPath, const QSize& oSize, const ChartPicture& picture, QString* psError);

    /// The chart as an enhanced metafile for the clipboard; empty when it cannot be drawn.
    static QByteArray metafile(const QSize& oSize, const ChartPicture& picture);

    /// Draws the chart on one page, laid out for the room between its margins. Sets the printer's resolution, so that
    /// font sizes are those of the screen; lines stay as fine as the device can. False when the printer does not take
    /// it.
    static bool print(QPrinter& printer, const ChartPicture& picture);

    /// For file dialogs, one filter per format.
    static QStringList nameFilters();
    /// Lower-case extensions without the dot.
    static QStringList formats();
};

} // namespace gkBase

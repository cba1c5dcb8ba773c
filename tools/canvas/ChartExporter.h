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
class QRectF;

namespace gkBase {

/// Writes a chart to a picture file. The format follows the file's extension: .png, .svg, .pdf or .emf.
class GKBASETOOLS_EXPORT ChartExporter
{
    Q_DECLARE_TR_FUNCTIONS(gkBase::ChartExporter)

public:
    /// Draws the chart into the rectangle; called once, with a painter whose unit is one logical pixel (1/96 inch).
    using Render = std::function<void(QPainter&, const QRectF&)>;

    /// oSize is the logical size in pixels, 1 to 20000 each way. The file is replaced as a whole or, on failure, left
    /// alone; the reason goes into psError (may be null) as a sentence for the user.
    static bool write(const QString& sPath, const QSize& oSize, const QColor& oBackground, const QString& sTitle,
                      const Render& render, QString* psError);

    /// The chart as an enhanced metafile for the clipboard; empty when it cannot be drawn.
    static QByteArray metafile(const QSize& oSize, const QColor& oBackground, const QString& sTitle,
                               const Render& render);

    /// For file dialogs, one filter per format.
    static QStringList nameFilters();
    /// Lower-case extensions without the dot.
    static QStringList formats();
};

} // namespace gkBase

#pragma once

#include "gkBaseToolsExport.h"

#include <QByteArray>
#include <QColor>
#include <QPaintDevice>
#include <QRect>
#include <QString>

#include <memory>

namespace gkBase {

class EMFEngine;

/// A paint device that records what a QPainter paints as a Windows enhanced metafile: lines, polygons, curves,
/// ellipses, texts and clips stay what they are, so that an office program can enlarge and edit the picture.
///
/// One unit of the painter is a pixel of 1/96 inch. The format knows no transparency: colours that are not opaque are
/// mixed with the background colour. Gradients, hatchings and textures become pictures at the chart's resolution.
class GKBASETOOLS_EXPORT EMFDevice : public QPaintDevice
{
public:
    /// The description names the picture in the file.
    explicit EMFDevice(const QString& sDescription = QString());
    ~EMFDevice() override;

    /// The part of the painter's plane that is the picture, in pixels; may lie anywhere. Without one the picture is
    /// what was painted, and a chart that asks the device for its size gets none. Set it before painting.
    void setBoundingRect(const QRect& oPixels) { m_oBoundingRect = oPixels; }
    QRect boundingRect() const { return m_oBoundingRect; }
    /// What colours that are not opaque are mixed with; white unless set. It is not painted.
    void setBackgroundColor(const QColor& oColor) { m_oBackgroundColor = oColor; }
    QColor backgroundColor() const { return m_oBackgroundColor; }
    QString description() const { return m_sDescription; }

    /// The bytes of the finished file, once the painter has ended; empty before.
    QByteArray metafile() const { return m_oMetafile; }

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric eMetric) const override;

private:
    friend class EMFEngine;

    QString m_sDescription;
    QRect m_oBoundingRect;
    QColor m_oBackgroundColor = Qt::white;
    QByteArray m_oMetafile;
    std::unique_ptr<EMFEngine> m_poEngine;
};

} // namespace gkBase

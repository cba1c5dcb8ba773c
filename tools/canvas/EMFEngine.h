#pragma once

#include "EMFFigures.h"
#include "EMFObjectTable.h"
#include "EMFRecordWriter.h"

#include <QBrush>
#include <QColor>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QTransform>

#include <vector>

namespace gkBase {

class EMFDevice;

/// The paint engine of EMFDevice. Applies the painter's transformation itself and writes records in the units of
/// EMFRecordWriter; pens, brushes, fonts and clips are written when something is drawn with them.
class EMFEngine : public QPaintEngine
{
public:
    EMFEngine();

    bool begin(QPaintDevice* pDevice) override;
    bool end() override;
    /// Not the raster type: charts draw outlines here, not copies of pixels.
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& painterState) override;

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;
    void drawRects(const QRectF* pRects, int iRects) override;
    void drawEllipse(const QRectF& oRect) override;
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* pPoints, int iPoints, PolygonDrawMode eMode) override;
    void drawPixmap(const QRectF& oTarget, const QPixmap& oPixmap, const QRectF& oSource) override;
    void drawImage(const QRectF& oTarget, const QImage& oImage, const QRectF& oSource,
                   Qt::ImageConversionFlags eFlags) override;
    void drawTextItem(const QPointF& oPosition, const QTextItem& item) override;

private:
    /// A shape in device pixels that the clip was intersected with.
    struct Clip
    {
        QPainterPath m_path; ///< its fill rule counts
        bool m_bRect = false;
        bool operator==(const Clip& other) const { return m_bRect == other.m_bRect && m_path == other.m_path; }
    };

    bool hasPen() const;
    bool hasBrush() const;
    /// Selects pen and brush, or none, and the clip. False when nothing would be seen.
    bool prepare(bool bPen, bool bBrush);
    void setFillRule(Qt::FillRule eRule);
    void setTextColor(const QColor& oColor);
    /// A painter's colour as it looks on the device's background.
    QColor opaque(const QColor& oColor) const;
    QColor background() const;

    void updateClip(const QPaintEngineState& painterState);
    bool prepareClip();
    void writeClip(const Clip& clip);
    void restoreContext();
    void forgetWritten();

    void drawFigures(const std::vector<EMFFigure>& vFigures, Qt::FillRule eRule);
    void writeFilled(const std::vector<EMFFigure>& vFigures, Qt::FillRule eRule, bool bOutlined);
    void writeOutline(const EMFFigure& figure);
    /// The figures between the records that begin and end a path.
    void writePath(const std::vector<EMFFigure>& vFigures);
    void writePainted(EMFRecord ePaint, const std::vector<EMFFigure>& vFigures);
    void writePolygons(const std::vector<EMFFigure>& vFigures);
    void writeText(const QPointF& oPosition, const QString& sText, const std::vector<int>& viAdvances);
    void writeImage(const QRectF& oTarget, const QImage& oImage);

    EMFRecordWriter m_writer;
    EMFObjectTable m_objects;
    EMFDevice* m_pDevice = nullptr; ///< while it is painted on

    QPen m_oPen;
    QBrush m_oBrush;
    QTransform m_oTransform;
    double m_dOpacity = 1.0;
    bool m_bInkChanged = true; ///< what the painter draws with, since prepare()
    bool m_bPenSelected = false;
    bool m_bBrushSelected = false;
    std::vector<Clip> m_vClips;
    bool m_bClipEnabled = false;
    bool m_bClipChanged = false;
    bool m_bClippedAway = false; ///< the clip leaves nothing

    // What the file holds at its present end.
    std::vector<Clip> m_vWrittenClips;
    Qt::FillRule m_eWrittenFillRule = Qt::OddEvenFill;
    QColor m_oWrittenTextColor = Qt::black;
};

} // namespace gkBase

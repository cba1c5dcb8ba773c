#pragma once

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QTransform>
#include <QVector>

/// A paint device that keeps texts with their boxes, lines and polygons in device pixels, for tests of charts.
namespace gkTest {

struct RecordedText
{
    QString m_sText;
    QRectF m_oBox; ///< from the base line up to the height of capitals
};

struct Recording
{
    QVector<RecordedText> m_vTexts;
    QVector<QPolygonF> m_voShapes;

    QStringList textList() const
    {
        QStringList lTexts;
        for (const RecordedText& text : m_vTexts)
            lTexts << text.m_sText;
        return lTexts;
    }
};

class RecordingEngine : public QPaintEngine
{
public:
    RecordingEngine()
        : QPaintEngine(AllFeatures)
    {
    }
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void updateState(const QPaintEngineState& newState) override
    {
        if (newState.state() & DirtyTransform)
            m_oTransform = newState.transform();
    }
    void drawTextItem(const QPointF& oPosition, const QTextItem& item) override
    {
        const QFontMetricsF metrics(item.font());
        const QSizeF oSize(metrics.horizontalAdvance(item.text()), metrics.capHeight());
        m_recording.m_vTexts.append(
            {item.text(), QRectF(m_oTransform.map(oPosition) - QPointF(0.0, oSize.height()), oSize)});
    }
    void drawPath(const QPainterPath& oPath) override
    {
        m_recording.m_voShapes.append(m_oTransform.map(oPath.toFillPolygon()));
    }
    void drawPolygon(const QPointF* poPoints, int iCount, PolygonDrawMode) override
    {
        QPolygonF oShape;
        for (int i = 0; i < iCount; ++i)
            oShape << m_oTransform.map(poPoints[i]);
        m_recording.m_voShapes.append(oShape);
    }
    void drawLines(const QLineF* poLines, int iCount) override
    {
        for (int i = 0; i < iCount; ++i)
            m_recording.m_voShapes.append(
                QPolygonF({m_oTransform.map(poLines[i].p1()), m_oTransform.map(poLines[i].p2())}));
    }

    Recording m_recording;

private:
    QTransform m_oTransform;
};

class RecordingDevice : public QPaintDevice
{
public:
    explicit RecordingDevice(const QSize& oSize)
        : m_oSize(oSize)
    {
    }
    QPaintEngine* paintEngine() const override { return &m_engine; }
    const Recording& recording() const { return m_engine.m_recording; }

protected:
    int metric(PaintDeviceMetric eMetric) const override
    {
        switch (eMetric) {
        case PdmWidth:
            return m_oSize.width();
        case PdmHeight:
            return m_oSize.height();
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 0;
        }
    }

private:
    QSize m_oSize;
    mutable RecordingEngine m_engine;
};

} // namespace gkTest

#include "EMFFigures.h"

#include "EMFRecordWriter.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

/// 2^22 pixels; in units this leaves room for differences in 32 bits.
constexpr double g_dFarthestPixel = 4194304.0;

int emfUnit(double dPixel)
{
    return static_cast<int>(
        std::lround(std::clamp(dPixel, -g_dFarthestPixel, g_dFarthestPixel) * EMFRecordWriter::s_iUnitsPerPixel));
}

/// Splits a path while its elements go by.
class FigureBuilder
{
public:
    void moveTo(const QPointF& oPoint)
    {
        finish();
        m_vElements = {oPoint};
    }
    void lineTo(const QPointF& oPoint)
    {
        // As a curve, in case that one of the figure's other sides is curved.
        const QPointF oFrom = m_vElements.back();
        m_vElements.insert(m_vElements.end(),
                           {oFrom + (oPoint - oFrom) / 3.0, oPoint - (oPoint - oFrom) / 3.0, oPoint});
    }
    void curveTo(const QPointF& oFirst, const QPointF& oSecond, const QPointF& oEnd)
    {
        m_bCurved = true;
        m_vElements.insert(m_vElements.end(), {oFirst, oSecond, oEnd});
    }
    std::vector<EMFFigure> take()
    {
        finish();
        return std::move(m_vFigures);
    }

private:
    void finish()
    {
        if (m_vElements.size() > 1) {
            EMFFigure figure;
            figure.m_bCurved = m_bCurved;
            figure.m_bClosed = m_vElements.size() > 4 && m_vElements.front() == m_vElements.back();
            const std::size_t iStep = m_bCurved ? 1 : 3;
            figure.m_vPoints.reserve(m_vElements.size() / iStep + 1);
            for (std::size_t i = 0; i < m_vElements.size(); i += iStep)
                figure.m_vPoints.push_back(emfUnits(m_vElements[i]));
            if (figure.m_bClosed && !m_bCurved)
                figure.m_vPoints.pop_back();
            m_vFigures.push_back(std::move(figure));
        }
        m_vElements.clear();
        m_bCurved = false;
    }

    std::vector<EMFFigure> m_vFigures;
    std::vector<QPointF> m_vElements; ///< start and three points per side
    bool m_bCurved = false;
};

} // namespace

QPoint emfUnits(const QPointF& oPixels)
{
    return {emfUnit(oPixels.x()), emfUnit(oPixels.y())};
}

QRect emfUnits(const QRectF& oPixels)
{
    return {emfUnits(oPixels.topLeft()), emfUnits(oPixels.bottomRight())};
}

std::vector<EMFFigure> emfFigures(const QPainterPath& path)
{
    FigureBuilder builder;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            builder.moveTo(element);
        } else if (element.isLineTo()) {
            builder.lineTo(element);
        } else {
            builder.curveTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return builder.take();
}

std::optional<QRectF> ellipseRect(const QPainterPath& path)
{
    constexpr int iElements = 13; // a start and four curves
    if (path.elementCount() != iElements || !path.elementAt(1).isCurveTo())
        return std::nullopt;
    const QRectF oRect = path.controlPointRect();
    QPainterPath ellipse;
    ellipse.addEllipse(oRect);
    for (int i = 0; i < iElements; ++i) {
        const QPainterPath::Element actual = path.elementAt(i);
        const QPainterPath::Element expected = ellipse.elementAt(i);
        if (actual.type != expected.type || std::abs(actual.x - expected.x) > 1e-6 * (1.0 + oRect.width()) ||
            std::abs(actual.y - expected.y) > 1e-6 * (1.0 + oRect.height()))
            return std::nullopt;
    }
    return oRect;
}

} // namespace gkBase

#include "SymbolGeometry.h"

#include "MissingValue.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace gkBase {

namespace {

constexpr double g_dPi = std::numbers::pi;
/// A tadpole's tail ends 2s + 10 pixels from the centre of its head.
constexpr double g_dTailPastHead = 10.0;

/// The shape families; several styles share one and differ in their fill.
enum class Shape
{
    Disc,
    LineCross,
    Square,
    TriangleUp,
    TriangleDown,
    Diamond,
    Plus,
    TurnedPlus,
    Point
};

struct StyleInfo
{
    const char* m_pName;
    Shape m_eShape;
    SymbolFill m_eFill;
};

constexpr std::array<StyleInfo, 16> g_styles{{
    {"Circle", Shape::Disc, SymbolFill::Colour},
    {"Cross", Shape::LineCross, SymbolFill::None},
    {"Square", Shape::Square, SymbolFill::Colour},
    {"Triangle1", Shape::TriangleUp, SymbolFill::Colour},
    {"Triangle2", Shape::TriangleDown, SymbolFill::Colour},
    {"Diamond", Shape::Diamond, SymbolFill::Colour},
    {"BigCross1", Shape::Plus, SymbolFill::Colour},
    {"BigCross2", Shape::TurnedPlus, SymbolFill::Colour},
    {"Square1", Shape::Square, SymbolFill::Background},
    {"Triangle3", Shape::TriangleUp, SymbolFill::PainterBrush},
    {"Triangle4", Shape::TriangleDown, SymbolFill::PainterBrush},
    {"Diamond1", Shape::Diamond, SymbolFill::PainterBrush},
    {"Ring", Shape::Disc, SymbolFill::PainterBrush},
    {"Pixel", Shape::Point, SymbolFill::None},
    {"BigCross3", Shape::Plus, SymbolFill::PainterBrush},
    {"BigCross4", Shape::TurnedPlus, SymbolFill::PainterBrush},
}};

const StyleInfo& infoOf(int iStyle)
{
    return g_styles[static_cast<std::size_t>(isPointStyle(iStyle) ? iStyle : Circle)];
}

/// Twelve corners, clockwise from the upper arm's left one, around (0, 0).
QPolygonF plusPolygon(int iSize)
{
    const double s = iSize;
    const double h = std::floor(s * 0.5);
    return QPolygonF(
        {{-h, -s}, {h, -s}, {h, -h}, {s, -h}, {s, h}, {h, h}, {h, s}, {-h, s}, {-h, h}, {-s, h}, {-s, -h}, {-h, -h}});
}

QPolygonF polygonAtOrigin(Shape eShape, int iSize)
{
    const double s = iSize;
    switch (eShape) {
    case Shape::Square:
        return QPolygonF({{-s, -s}, {s, -s}, {s, s}, {-s, s}});
    case Shape::TriangleUp:
        return QPolygonF({{0.0, -s}, {s + 1.0, s}, {-s - 1.0, s}});
    case Shape::TriangleDown:
        return QPolygonF({{0.0, s}, {-s - 1.0, -s}, {s + 1.0, -s}});
    case Shape::Diamond:
        return QPolygonF({{0.0, -s}, {s, 0.0}, {0.0, s}, {-s, 0.0}});
    case Shape::Plus:
        return plusPolygon(iSize);
    case Shape::TurnedPlus:
        return QTransform().rotate(45.0).map(plusPolygon(iSize));
    default:
        return {};
    }
}

/// The whole pixel that a position lies in when halves go up, as far as integers reach with room for a symbol. Charts
/// whose scales have no end hold positions beyond that; NaN becomes the farthest pixel to the left or above.
int wholePixel(double dPosition)
{
    constexpr int iFarthest = 1 << 30;
    return dPosition > -iFarthest ? static_cast<int>(std::floor(std::min(dPosition, double(iFarthest)) + 0.5))
                                  : -iFarthest;
}

} // namespace

bool isPointStyle(int iStyle)
{
    return iStyle >= Circle && iStyle <= BigCross4;
}

SymbolFill symbolFill(int iStyle)
{
    return infoOf(iStyle).m_eFill;
}

QString pointStyleName(int iStyle)
{
    return QString::fromLatin1(infoOf(iStyle).m_pName);
}

QList<PointStyle> offeredPointStyles(bool bAll)
{
    QList<PointStyle> lStyles{Cross, Pixel, Circle, Square, Triangle1, Triangle2, Diamond, BigCross1, BigCross2};
    if (bAll)
        lStyles << Ring << Square1 << Triangle3 << Triangle4 << Diamond1 << BigCross3 << BigCross4;
    return lStyles;
}

QPoint symbolCentre(const QPointF& oCentre)
{
    return {wholePixel(oCentre.x()), wholePixel(oCentre.y())};
}

QRectF symbolSquare(const QPointF& oCentre, int iSize)
{
    const double s = std::max(iSize, 0);
    return QRectF(symbolCentre(oCentre) - QPointF(s, s), QSizeF(2.0 * s, 2.0 * s));
}

QPolygonF symbolPolygon(int iStyle, const QPointF& oCentre, int iSize)
{
    return polygonAtOrigin(infoOf(iStyle).m_eShape, std::max(iSize, 0)).translated(symbolCentre(oCentre));
}

QPainterPath symbolPath(int iStyle, const QPointF& oCentre, int iSize)
{
    QPainterPath path;
    const QRectF oSquare = symbolSquare(oCentre, iSize);
    switch (infoOf(iStyle).m_eShape) {
    case Shape::Disc:
        path.addEllipse(oSquare);
        break;
    case Shape::LineCross:
        path.moveTo(oSquare.left(), oSquare.center().y());
        path.lineTo(oSquare.right(), oSquare.center().y());
        path.moveTo(oSquare.center().x(), oSquare.top());
        path.lineTo(oSquare.center().x(), oSquare.bottom());
        break;
    case Shape::Point:
        break;
    default:
        path.addPolygon(symbolPolygon(iStyle, oCentre, iSize));
        path.closeSubpath();
    }
    return path;
}

QPolygonF regularPolygon(const QPointF& oCentre, int iSize, int iCorners)
{
    QPolygonF polygon;
    for (int i = 0; iCorners >= 3 && i < iCorners; ++i) {
        const double dAngleRad = -g_dPi / 2.0 + i * 2.0 * g_dPi / iCorners;
        polygon << symbolCentre(oCentre) + iSize * QPointF(std::cos(dAngleRad), std::sin(dAngleRad));
    }
    return polygon;
}

std::optional<QLineF> tadpoleTail(const QPointF& oCentre, double dAzimuthDeg, int iSize)
{
    if (isMissing(dAzimuthDeg))
        return std::nullopt;
    const double dAngleRad = (dAzimuthDeg - 90.0) * g_dPi / 180.0;
    const QPointF oDirection(std::cos(dAngleRad), std::sin(dAngleRad));
    const QPointF oHead = symbolCentre(oCentre);
    const QLineF tail(oHead + iSize * oDirection, oHead + (2.0 * iSize + g_dTailPastHead) * oDirection);
    // Kept as it always was: only the left and the upper edge of the picture cut tails off.
    if (tail.x1() < 0.0 || tail.y1() < 0.0 || tail.x2() < 0.0 || tail.y2() < 0.0)
        return std::nullopt;
    return tail;
}

} // namespace gkBase

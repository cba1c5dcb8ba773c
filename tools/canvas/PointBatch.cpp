#include "PointBatch.h"

#include "Fingerprint.h"
#include "SymbolGeometry.h"

#include <algorithm>
#include <cstring>

namespace gkBase {

namespace {

constexpr int g_iSelectionPen = 2;
/// How far edge and halo of a selected point reach beyond its outline.
constexpr int g_iEdgePixels = 1;
constexpr int g_iHaloPixels = 2;

/// The selected symbol in one colour, larger on all sides.
SymbolLook grown(const SymbolLook& look, const QColor& oColor, int iPixels)
{
    SymbolLook larger = look;
    larger.m_oColor = oColor;
    larger.m_oFill = look.m_oFill.isValid() ? oColor : QColor();
    larger.m_iPenWidth = std::max(look.m_iPenWidth, g_iSelectionPen) + 2 * iPixels;
    if (look.m_iStyle == Pixel) {
        larger.m_iSize = std::max(look.m_iSize, 1) + 2 * iPixels;
    }
    return larger;
}

std::uint64_t wordOf(const QColor& oColor)
{
    return oColor.isValid() ? std::uint64_t{oColor.rgba()} + 1 : 0;
}

} // namespace

bool PointBatch::hasSelection() const
{
    return !m_vbSelected.empty() && std::memchr(m_vbSelected.data(), 1, m_vbSelected.size()) != nullptr;
}

int PointBatch::style(std::size_t i) const
{
    if (m_bTadPoles) {
        return Circle;
    }
    const int iStyle = i < m_viStyles.size() ? m_viStyles[i] : m_oLook.m_iStyle;
    return isPointStyle(iStyle) ? iStyle : static_cast<int>(Circle);
}

QColor PointBatch::color(int iColorClass) const
{
    return iColorClass >= 0 && iColorClass < static_cast<int>(m_voColors.size())
               ? m_voColors[static_cast<std::size_t>(iColorClass)]
               : m_oLook.m_oColor;
}

SymbolLook PointBatch::look(int iStyle, int iColorClass, bool bOpen) const
{
    SymbolLook look = m_oLook;
    look.m_iStyle = iStyle;
    look.m_oColor = color(iColorClass);
    look.m_oFill = m_bHollow || bOpen ? m_oBackground : look.m_oColor;
    const SymbolFill eFill = symbolFill(iStyle);
    if (eFill == SymbolFill::None) {
        look.m_oFill = QColor();
    } else if (m_bStyleDecidesFill && eFill == SymbolFill::Background) {
        look.m_oFill = m_oBackground;
    }
    return look;
}

SymbolLook PointBatch::selectedLook(const SymbolLook& look)
{
    SymbolLook selected = look;
    selected.m_oColor = QColor::fromRgb(s_oSelectionColor);
    selected.m_iPenWidth = std::max(look.m_iPenWidth, g_iSelectionPen);
    return selected;
}

SymbolLook PointBatch::edgeLook(const SymbolLook& look) const
{
    return grown(look, m_oBackground, g_iEdgePixels);
}

SymbolLook PointBatch::haloLook(const SymbolLook& look) const
{
    return grown(look, m_oHalo, g_iHaloPixels);
}

std::uint64_t PointBatch::fingerprint() const
{
    Fingerprint print;
    print.add(m_voPixels);
    print.add(m_viColors);
    print.add(m_viStyles);
    print.add(m_vdAzimuths);
    print.add(m_vbOpen);
    print.add(wordOf(m_oLook.m_oColor));
    for (const int iNumber : {m_oLook.m_iStyle, m_oLook.m_iSize, m_oLook.m_iPenWidth, int(m_bHollow),
                              int(m_bStyleDecidesFill), int(m_bTadPoles)}) {
        print.add(static_cast<std::uint64_t>(iNumber));
    }
    print.add(wordOf(m_oBackground));
    for (const QColor& oColor : m_voColors) {
        print.add(wordOf(oColor));
    }
    return print.value();
}

} // namespace gkBase

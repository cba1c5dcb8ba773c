#include "PointBatch.h"

#include "Fingerprint.h"
#include "SymbolGeometry.h"

#include <algorithm>
#include <cstring>

namespace gkBase {

namespace {

constexpr int g_iSelectionPen = 2;
/// A pixel and a half of halo show around the outline of a selected point.
constexpr int g_iHaloPen = 3;

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

SymbolLook PointBatch::haloLook(const SymbolLook& look) const
{
    SymbolLook halo = look;
    halo.m_oColor = m_oHalo;
    halo.m_oFill = look.m_oFill.isValid() ? m_oHalo : QColor();
    halo.m_iPenWidth = std::max(look.m_iPenWidth, g_iSelectionPen) + g_iHaloPen;
    if (halo.m_iStyle == Pixel) {
        halo.m_iSize = std::max(look.m_iSize, 1) + g_iHaloPen + 1; // an even difference keeps it centred
    }
    return halo;
}

std::uint64_t PointBatch::fingerprint() const
{
    Fingerprint print;
    print.add(m_voPixels);
    print.add(m_viColors);
    print.add(m_viStyles);
    print.add(m_vdAzimuths);
    print.add(m_vbOpenHeads);
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

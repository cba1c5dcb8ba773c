#pragma once

#include "SymbolSpriteCache.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QPointF>

#include <cstdint>
#include <span>
#include <vector>

namespace gkBase {

/// The points of a chart and how they look, record by record. Spans are empty or as long as the pixels.
struct GKBASETOOLS_EXPORT PointBatch
{
    /// The pen of selected points: far from white, from black and from the colours of maps.
    static constexpr QRgb s_oSelectionColor = 0xffe6007e;

    std::span<const QPointF> m_voPixels;         ///< in pixels of the whole chart, NaN where there is no point
    std::span<const unsigned char> m_vbSelected; ///< 0 or 1; empty: none
    SymbolLook m_oLook;                          ///< what no class says otherwise: style, colour, size and pen
    std::span<const int> m_viColors;             ///< colour class; empty: the look's colour
    std::vector<QColor> m_voColors;              ///< by colour class
    std::span<const int> m_viStyles;             ///< point style, circle for a number that is none; empty: the look's
    bool m_bHollow = false;                      ///< the inside has the background's colour
    bool m_bStyleDecidesFill = false;            ///< hollow styles are hollow even without m_bHollow
    bool m_bTadPoles = false;                    ///< discs with a tail, nothing where the azimuth is missing
    std::span<const double> m_vdAzimuths;        ///< degrees, of the tails
    std::span<const unsigned char> m_vbOpen;     ///< points whose inside has the background's colour
    QColor m_oBackground = Qt::white;
    QColor m_oHalo = Qt::black; ///< around selected points: as far from the background as can be

    bool isSelected(std::size_t i) const { return i < m_vbSelected.size() && m_vbSelected[i] != 0; }
    bool isOpen(std::size_t i) const { return i < m_vbOpen.size() && m_vbOpen[i] != 0; }
    bool hasSelection() const;
    /// A style that exists.
    int style(std::size_t i) const;
    /// 0 without classes.
    int colorClass(std::size_t i) const { return i < m_viColors.size() ? m_viColors[i] : 0; }
    /// The colour of a class, the look's without classes.
    QColor color(int iColorClass) const;

    /// A point that is not selected.
    SymbolLook look(int iStyle, int iColorClass, bool bOpen) const;
    SymbolLook look(std::size_t i) const { return look(style(i), colorClass(i), isOpen(i)); }
    /// The same point selected: outlined by the pen of selected points. Below it lie an edge of the background's
    /// colour and a halo around that, so that it stands out from background and other points of any colour.
    static SymbolLook selectedLook(const SymbolLook& look);
    SymbolLook edgeLook(const SymbolLook& look) const;
    SymbolLook haloLook(const SymbolLook& look) const;

    /// Equal for batches that look the same but for their selection. Reads everything once.
    std::uint64_t fingerprint() const;
};

} // namespace gkBase

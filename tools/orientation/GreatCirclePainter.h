#pragma once

#include "NetProjection.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class QPainter;

namespace gkBase {

/// The great circles of many planes and how they look, plane by plane.
struct GKBASETOOLS_EXPORT GreatCircleBatch
{
    std::span<const double> m_vdDips; ///< degrees, NaN where there is no plane
    std::span<const double> m_vdDipAzimuths;
    std::span<const unsigned char> m_vbSelected; ///< 0 or 1; empty: none
    QColor m_oColor;
    std::span<const int> m_viColors; ///< colour class; empty: m_oColor
    std::vector<QColor> m_voColors;  ///< by colour class
    NetProjection m_oProjection;
    NetFrame m_oFrame; ///< pixels of the whole chart

    std::size_t size() const { return std::min(m_vdDips.size(), m_vdDipAzimuths.size()); }
    bool isSelected(std::size_t i) const { return i < m_vbSelected.size() && m_vbSelected[i] != 0; }
    QColor color(std::size_t i) const;
};

/// Draws great circles as thin curves, later planes above earlier ones, selected ones above all in a colour of their
/// own and twice as wide.
///
/// A few are smooth outlines. From s_iMostOutlines on, screens and images get one picture whose pixels the curves are
/// written into from the last plane to the first, each pixel once; of planes whose curves lie within a pixel one is
/// written, and no more once the net is full. The picture is kept, so that a new selection writes only the selected
/// planes. Vector devices get one curve of those that lie within a pixel.
class GKBASETOOLS_EXPORT GreatCirclePainter
{
public:
    static constexpr std::size_t s_iMostOutlines = 500;

    void draw(QPainter* pPainter, const GreatCircleBatch& batch);
    qint64 memory() const { return m_oKept.sizeInBytes(); }

private:
    QImage m_oKept; ///< as if none were selected
    QPoint m_oKeptTopLeft;
    std::uint64_t m_iKeptFingerprint = 0;
};

} // namespace gkBase
